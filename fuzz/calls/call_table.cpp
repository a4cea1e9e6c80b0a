#include "call_table.h"

#include <cstring>

#include "zulcore.h"

namespace endurance {

// These have buffers whose lengths follow from other arguments.
template<class Function>
static int filter(Arguments& a, Function function) {
    const Room in = a.input("szInput", "nStrLen");
    if (in.claimed > 0 && in.data != nullptr)
        for (int i = 0; i < in.claimed; i++)
            in.data[i] = static_cast<uint8_t>(in.data[i] | 1);
    char* const out =
        a.chance(8) ? nullptr
        : a.chance(4)
            ? nullptr
            : reinterpret_cast<char*>(a.place(in.claimed > 0 ? static_cast<size_t>(in.claimed) + 1 : 1));
    return function(out, in.as<const char*>(), in.claimed);
}

template<class Function>
static int triple_des_text(Arguments& a, Function function) {
    const char* const in = a.text("szInputHex");
    const char* const key = a.text("szKeyHex");
    const char* const mode = a.text("szMode");
    const char* const iv = a.text("szIVHex");
    auto* const out = reinterpret_cast<char*>(a.place((in != nullptr ? strlen(in) : 0) + 5));
    return function(a.absurd(15) ? nullptr : out, in, key, a.number("fEncrypt"), mode, iv);
}

static const Call kCalls[] = {
    {"CNV_HexFilter", [](Arguments& a) { return filter(a, CNV_HexFilter); }},
    {"CNV_B64Filter", [](Arguments& a) { return filter(a, CNV_B64Filter); }},
    {"TDEA_HexMode", [](Arguments& a) { return triple_des_text(a, TDEA_HexMode); }},
    {"TDEA_B64Mode", [](Arguments& a) { return triple_des_text(a, TDEA_B64Mode); }},
    {"CIPHER_Bytes",
     [](Arguments& a) {
         const Room in = a.input("lpInput", "nBytes");
         uint8_t* const out =
             a.chance(3) ? in.data : a.place(in.claimed > 0 ? static_cast<size_t>(in.claimed) : 0);
         const uint8_t* const key = a.fixed("lpKey");
         const uint8_t* const iv = a.fixed("lpIV", 16);
         const char* const mode = a.text("szAlgAndMode");
         return CIPHER_Bytes(a.number("fEncrypt"), out, in.data, in.claimed, key, iv, mode,
                             a.number("nOptions"));
     }},
    {"TDEA_BytesMode",
     [](Arguments& a) {
         const Room in = a.input("lpInput", "nBytes");
         uint8_t* const out =
             a.chance(3) ? in.data : a.place(in.claimed > 0 ? static_cast<size_t>(in.claimed) : 0);
         const uint8_t* const key = a.fixed("lpKey", 24);
         const uint8_t* const iv = a.fixed("lpIV", 8);
         return TDEA_BytesMode(out, in.data, in.claimed, key, a.number("fEncrypt"), a.text("szMode"), iv);
     }},
#include "calls.inc"
};

std::span<const Call> calls() {
    return kCalls;
}

} // namespace endurance
