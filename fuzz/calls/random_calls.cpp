// random_calls SEED SECONDS|CALLSc: calls every export with arguments drawn at random, sensible and absurd
// ones: null pointers, odd addresses, lengths below zero, unknown options, garbage for texts. What a caller
// owes is kept: a buffer is as long as it is said to be, and ends where the process may not go on. A call
// must come back, leave a text that ends inside its room, and hold neither memory nor handles. The working
// folder is the program's own.
#include <algorithm>
#include <array>
#include <chrono>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <map>
#include <memory>
#include <regex>
#include <set>
#include <string>
#include <vector>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

#include "endurance/fixtures.h"
#include "endurance/process_size.h"
#include "guarded_block.h"
#include "zulcore.h"

#ifdef ZUL_ENDURANCE_EMBEDDED
#include "frame/memory.h"
#endif

namespace endurance {
namespace {

const char* currentFunction = "";
unsigned long currentCall = 0;
FILE* report = stderr;

struct Room {
    uint8_t* data = nullptr;
    int claimed = 0;
    template<class Pointer>
    Pointer as() const {
        return reinterpret_cast<Pointer>(data);
    }
};

constexpr uint8_t kUnwritten = 0xEE;

using Words = std::vector<std::string>;

class Arguments {
  public:
    Arguments(uint64_t seed, const Fixtures& fixtures) : state_(seed), fixtures_(fixtures) {
        fill_dictionary();
        for (std::vector<uint8_t>& context : contexts_)
            context.resize(8192);
    }

    void begin() {
        used_ = 0;
        texts_.clear();
        wild_ = chance(2);
    }
    // rooms_hold_texts tells whether every text that was written ends inside its room. Numbers, and lengths
    // above the room, come without a text.
    bool rooms_hold_texts(int result) const {
        for (const Room& room : texts_)
            if (result <= room.claimed && room.data[0] != kUnwritten &&
                memchr(room.data, 0, static_cast<size_t>(room.claimed) + 1) == nullptr)
                return false;
        return true;
    }

    int number(const std::string& name);
    const char* text(const std::string& name);
    Room text_room(const char* name, const char* length);
    Room bytes_room(const char* name, const char* length);
    Room input(const char* name, const char* length);
    Room context_room(const char* name, const char* length);
    void* context(const char* name);
    uint8_t* fixed(const char* name,
                   size_t size = 32); // a key or an IV of the longest length that is asked for

    uint64_t draw(uint64_t below) { return next() % below; }
    bool chance(uint64_t of) { return draw(of) == 0; }
    // Half of the calls are tame, so that they get far; of the others most arguments are absurd in some way.
    bool absurd(uint64_t of) { return chance(wild_ ? of : 20 * of); }
    uint8_t* place(size_t size);

  private:
    uint64_t next() { // splitmix64
        uint64_t z = state_ += 0x9E3779B97F4A7C15;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EB;
        return z ^ (z >> 31);
    }
    template<class List>
    auto& one_of(List& list) {
        return list[draw(std::size(list))];
    }
    int length(size_t* size);
    std::string garbage(size_t size);
    std::string any_text();
    const Words& words_for(const std::string& name);
    void fill_dictionary();

    uint64_t state_;
    const Fixtures& fixtures_;
    std::map<std::string, Words> dictionary_;
    std::map<std::string, std::string> groups_; // of words for parameters
    std::array<GuardedBlock, 16> blocks_;
    size_t used_ = 0;
    bool wild_ = false;
    std::vector<Room> texts_;
    std::array<std::vector<uint8_t>, 3> contexts_;
};

uint8_t* Arguments::place(size_t size) {
    GuardedBlock& block = blocks_[used_++ % blocks_.size()];
    return chance(8) ? block.at_begin() : block.at_end(size);
}

// length draws what a caller says, and the bytes that have to be there for it.
int Arguments::length(size_t* size) {
    static constexpr int kAbsurd[] = {-1, -2, -8, -65536, INT_MIN, INT_MIN + 1, -INT_MAX / 2};
    static constexpr int kUsual[] = {0,  1,  2,  3,  7,  8,  12,  15,  16,  17,  20,  24,  28,   31,   32,
                                     40, 48, 63, 64, 65, 66, 100, 128, 129, 255, 256, 257, 1000, 4096, 65536};
    int said;
    if (absurd(10))
        said = one_of(kAbsurd);
    else if (chance(4))
        said = static_cast<int>(draw(3000));
    else
        said = one_of(kUsual);
    *size = said > 0 ? static_cast<size_t>(said) : 0;
    return said;
}

int Arguments::number(const std::string& name) {
    // Some costs have no upper bound, because a caller may want to wait.
    static constexpr int kCosts[] = {INT_MIN, -1, 0, 1, 2, 3, 8, 16, INT_MAX};
    static constexpr int kWaits[] = {INT_MIN, -1, 0, 1, 2, 5, 64, 1000};
    static constexpr int kBits[] = {INT_MIN, -1, 0, 1, 96, 97, 128, 255, 256, 512, 65537, INT_MAX};
    static constexpr int kAny[] = {INT_MIN, -65536, -1, 0, 1, 2, 3, 4, 8, 16, 64, 100, 30000, 65536, INT_MAX};
    static constexpr int kBlocks[] = {8, 16, 8, 16, 8, 16, 0, -8, 7, 255, 256, INT_MIN, INT_MAX};
    if (name == "nCount" || name == "nIterations" || name == "nTests")
        return one_of(kWaits);
    if (name == "nBits")
        return one_of(kBits);
    if (name == "nN" || name == "nR" || name == "nP" || name == "nMemoryKiB" || name == "nPasses" ||
        name == "nLanes")
        return one_of(kCosts);
    if (name == "nBlkLen")
        return one_of(kBlocks);
    if (name != "nOptions")
        return chance(4) ? static_cast<int>(next()) : one_of(kAny);
    static constexpr unsigned kModes[] = {0x000, 0x100, 0x200, 0x300, 0x400};
    switch (wild_ ? draw(8) : 8) {
    case 0:
        return static_cast<int>(next());
    case 1:
        return static_cast<int>(1u << draw(32) | 1u << draw(32));
    case 2:
    case 3:
        return static_cast<int>(draw(9));
    case 4:
        return static_cast<int>((draw(5) << 4) | one_of(kModes));
    case 5:
        return static_cast<int>(draw(9) | (1u << (8 + draw(20))));
    default:
        return chance(3) ? static_cast<int>(draw(9)) : 0;
    }
}

std::string Arguments::garbage(size_t size) {
    std::string text(size, '\0');
    const uint64_t kind = draw(4);
    const std::string alphabet =
        kind == 2 ? "0123456789abcdefABCDEFxyz " : ";=,'#MIIBAAEC-- \n"; // of hex, or of texts with structure
    for (char& c : text) {
        if (kind == 0)
            c = static_cast<char>(1 + draw(255));
        else if (kind == 1)
            c = static_cast<char>(0x20 + draw(95));
        else
            c = one_of(alphabet);
        // No name of a file may lead out of the folder.
        if (c == '/' || c == '\\' || c == ':' || c == '|' || c == '.')
            c = '_';
    }
    return text;
}

std::string Arguments::any_text() {
    static constexpr size_t kSizes[] = {1, 2, 3, 8, 16, 31, 64, 255, 256, 257, 512, 1024, 5000};
    switch (draw(6)) {
    case 0:
        return one_of(fixtures_.files).name;
    case 1:
        return one_of(fixtures_.texts);
    case 2: {
        std::string text = one_of(fixtures_.texts);
        if (!text.empty())
            text[draw(text.size())] = static_cast<char>(1 + draw(45)); // below the slash
        return text;
    }
    case 3: {
        auto group = dictionary_.begin();
        std::advance(group, static_cast<long>(draw(dictionary_.size())));
        return one_of(group->second);
    }
    case 4:
        return chance(10) ? garbage(50000) : garbage(one_of(kSizes));
    default:
        return garbage(draw(40) + 1);
    }
}

void Arguments::fill_dictionary() {
    Words files;
    for (const Fixtures::Object& object : fixtures_.files)
        files.push_back(object.name);
    Words inputs = files;
    inputs.insert(inputs.end(), {"none.txt", ".", "rsa-leaf.pem;rsa-ca.der", ";;", "ca.pem;leaf.pem"});
    inputs.insert(inputs.end(), fixtures_.texts.begin(), fixtures_.texts.end());
    inputs.insert(inputs.end(), {fixtures_.identity, fixtures_.recipient});
    Words keys = fixtures_.privateKeys;
    keys.insert(keys.end(), fixtures_.publicKeys.begin(), fixtures_.publicKeys.end());
    for (const std::string& key : fixtures_.privateKeys) {
        keys.push_back(key);
        keys.back()[key.size() / 2] ^= 1;
        keys.push_back(key.substr(0, key.size() - 8));
    }
    keys.push_back("key-p-256.pem");
    dictionary_ = {
        {"input", inputs},
        {"key", keys},
        {"output", {"out1", "out2", "out3.pem", "missing_folder/out", "."}},
        {"password", {"p", "p", "p", "q", "\xE4\xF6\xFC"}},
        {"rsa", {fixtures_.privateKeys[0], fixtures_.privateKeys[0], fixtures_.publicKeys[0], keys[1]}},
        {"seal", {fixtures_.identity, fixtures_.recipient, "sealed.age", "plain.txt"}},
        {"certificate",
         {"rsa-leaf.pem", "rsa-ca.der", "rsa-leaf.pem;rsa-ca.der", "ca.pem", "leaf.pem", "ca.pem;leaf.pem",
          "bundle.p7b", "request.pem", "list.pem"}},
        {"list", {"list.pem", "rsa-list.der", "rsa-ca.der"}},
        {"pfx", {"new.p12", "old.pfx", "plain.txt"}},
        {"seed", {"seed.bin", "plain.txt"}},
        {"message", {"signed.der", "enveloped.txt", "sealed.age", "bundle.p7b", "plain.txt"}},
        {"conditions",
         {"iterations=1;hash=sha512", "kdf=scrypt;n=16", "cipher=tdea-cbc;iterations=2",
          "host=leaf.example;purpose=server", "time=2026-12-24;revocation=none", "maxDepth=0",
          "policy=1.2.3;explicitPolicy"}},
        {"SIG algorithm",
         {"", "", "rsa-sha256", "rsa-pss-sha256;salt=max", "ecdsa-sha512", "ed25519", "ed25519ph"}},
        {"HASH algorithm", {"sha256", "sha3-256", "shake128", "md2", "sha1"}},
        {"HMAC algorithm", {"sha256", "sha3-256", "md5", "sha512-256"}},
        {"AEAD algorithm", {"aes-128-gcm", "aes-256-gcm", "aes-256-gcm-siv", "chacha20-poly1305"}},
        {"TDEA algorithm", {"ECB", "CBC", "OFB", "ctr", "CFB"}},
        {"any algorithm",
         {"sha256",
          "SHA-512",
          "sha3-256",
          "shake128",
          "md2",
          "sha1",
          "aes-128-gcm",
          "aes-256-gcm-siv",
          "chacha20-poly1305",
          "aes-256-cbc",
          "tdea-ctr",
          "aes-128-ecb",
          "aes-192/CTR",
          "Tdea-CFB",
          "CBC",
          "ECB",
          "OFB",
          "rsa-1024",
          "p-256",
          "ed25519",
          "x25519",
          "rsa-sha256",
          "rsa-pss-sha256;salt=max",
          "ecdsa-sha512",
          "ed25519ph",
          "rsa-pss-sha1;salt=99999",
          "sha512-256",
          "aes-256-cfb"}},
        {"query",
         {"subject",
          "issuer",
          "serialNumber",
          "dns",
          "sha256",
          "publicKey",
          "extensions",
          "isCA",
          "selfSigned",
          "version",
          "notAfter",
          "keyUsage",
          "subjectName",
          "rfc822Name",
          "signatureValue",
          "CountOfCerts",
          "SigningTime",
          "messageDigest",
          "recipientIssuerName",
          "sizeofEncryptedContent",
          "bits",
          "algorithm",
          "fingerprint",
          "curve",
          "salt"}},
        {"description",
         {"CN=Name;C=AU",
          "CN=Name;profile=ca;pathLength=1",
          "CN=Name;dns=a.example;days=3",
          "C=AUS",
          "CN='a;b'",
          "CN=Name;keyUsage=keyCertSign;signature=ecdsa-sha384",
          "notBefore=2026-01-31;notAfter=2027-01-31",
          "serial=01",
          "serial=01,reason=certificateHold",
          "cert=leaf.pem",
          "host=leaf.example;purpose=server",
          "time=2026-12-24;revocation=none",
          "number=7;delta",
          "1,2026-01-01",
          "thisUpdate=2026-01-01",
          "iterations=1;hash=sha512",
          "kdf=scrypt;n=16",
          "cipher=tdea-cbc",
          "#x4142",
          "CN=#x00",
          "2026-02-30",
          "CN=Name;extension=1.2.3:0500",
          "CN=Name;valid=99999999y",
          "a@leaf.example",
          "10.0.0.1",
          "*.example"}},
        {"data",
         {"48656C6C6F", "0123456789ABCDEF0123456789ABCDEF", "abc", "AAECAwQFBgc=", "MIIB", "=", "<a/>", ",",
          "\xC3\xA4", "\xE4", "000102030405060708090a0b0c0d0e0f1011121314151617",
          "000102030405060708090a0b0c0d0e0f1011121314151617", "AAECAwQFBgcICQoLDA0ODxAREhMUFRYX"}},
    };
}

// group_for gives the group of words that a parameter wants, by its name and the family of its function.
static std::string group_for(const std::string& family, const std::string& name) {
    struct Rule {
        const char *families, *names, *group;
    };
    static const Rule kRules[] = {
        {".*", ".*Out|szNewCertFile|szPubKeyFile|szPriKeyFile|szReqFile", "output"},
        {".*", "szPassword", "password"},
        {"SEAL", "szRecipients|szIdentit.*", "seal"},
        {"RSA|X509|CMS|PFX", "szKeyString|szPrivateKey|szPublicKey|sz.*KeyFile|szEPKFile", "rsa"},
        {".*", "szKeyString|szPrivateKey|szPublicKey|szKey|szIssuerKey|szKeyFile|szSubjectKeyOrRequest",
         "key"},
        {"SIG|HASH|HMAC|AEAD|TDEA", "szAlgorithm|szMode", "algorithm"},
        {".*", "szAlgorithm|szHash|szMode|szAlgAndMode", "any algorithm"},
        {".*", "szQuery", "query"},
        {".*", "szConditions|szParameters", "conditions"},
        {".*", "szDescription|szExtensions|szDistName|szRevoked|szDate|szHostOrAddress|szName",
         "description"},
        {".*", ".*Hex.*|.*B64.*|szDelim|szHeader|szDataIn|szInput", "data"},
        {".*", ".*Cert.*|szX509File|szOthers|szTrusted", "certificate"},
        {".*", "szCrl.*|.*Crl|szEvidence", "list"},
        {".*", "szP12|szPfxFile", "pfx"},
        {".*", "szSeedFile", "seed"},
        {"CMS|SEAL", ".*", "message"},
        {".*", ".*", "input"},
    };
    for (const Rule& rule : kRules)
        if (std::regex_match(family, std::regex(rule.families)) &&
            std::regex_match(name, std::regex(rule.names)))
            return strcmp(rule.group, "algorithm") == 0 ? family + " algorithm" : rule.group;
    return "input";
}

const Words& Arguments::words_for(const std::string& name) {
    const std::string function = currentFunction;
    auto [place, isNew] = groups_.try_emplace(function + name);
    if (isNew)
        place->second = group_for(function.substr(0, function.find('_')), name);
    return dictionary_.at(place->second);
}

const char* Arguments::text(const std::string& name) {
    std::string value;
    // scrypt of SEAL_File takes a second, so a password comes seldom.
    const bool dear = name == "szPassword" && strncmp(currentFunction, "SEAL_", 5) == 0 && !chance(50);
    if (dear || absurd(20))
        return nullptr;
    if (absurd(25))
        value = "";
    else
        value = absurd(5) ? any_text() : one_of(words_for(name));
    uint8_t* const placed = place(value.size() + 1);
    memcpy(placed, value.c_str(), value.size() + 1);
    return reinterpret_cast<const char*>(placed);
}

Room Arguments::text_room(const char*, const char* lengthName) {
    const std::string function = currentFunction;
    // These count the NUL.
    const bool whole = function == "ZUL_ErrorLookup" || strcmp(lengthName, "nPwdLen") == 0;
    size_t size;
    Room room;
    room.claimed = !wild_ || chance(3) ? 60000 : length(&size);
    size = room.claimed > 0 ? static_cast<size_t>(room.claimed) + (whole ? 0 : 1) : 0;
    if (absurd(12))
        return room;
    room.data = place(size);
    memset(room.data, kUnwritten, size);
    if (room.claimed > 0 && !whole)
        texts_.push_back(room);
    return room;
}

Room Arguments::bytes_room(const char* name, const char* lengthName) {
    Room room = input(name, lengthName);
    if (!wild_ && strncmp(lengthName, "nOut", 4) == 0 && !chance(3)) {
        room.claimed = 4096;
        room.data = place(4096);
    }
    // What is more than such a function ever gives is refused before the room is touched.
    const std::string function = currentFunction;
    if (chance(20) && (function == "RNG_Bytes" || function == "KDF_Hkdf"))
        room.claimed = INT_MAX - static_cast<int>(draw(20));
    return room;
}

Room Arguments::input(const char*, const char* lengthName) {
    Room room;
    size_t size;
    room.claimed = length(&size);
    const std::string counted = lengthName;
    if (!wild_ && (counted == "nKeyLen" || counted == "nKekLen")) {
        static constexpr int kKeys[] = {16, 24, 32, 32};
        room.claimed = one_of(kKeys);
        size = static_cast<size_t>(room.claimed);
    } else if (!wild_ && (counted == "nNonceLen" || counted == "nIVLen")) {
        room.claimed = counted == "nIVLen" ? (chance(2) ? 16 : 8) : 12;
        size = static_cast<size_t>(room.claimed);
    } else if (!wild_ && (counted == "nDataLen" || counted == "nDigestLen")) {
        static constexpr int kData[] = {128, 32, 64, 24, 20};
        room.claimed = one_of(kData);
        size = static_cast<size_t>(room.claimed);
    }
    if (chance(30) && (counted == "nKekLen" || counted == "nDigestLen" ||
                       (counted == "nKeyLen" && strncmp(currentFunction, "HMAC", 4) != 0 &&
                        strncmp(currentFunction, "KDF", 3) != 0))) {
        room.claimed = INT_MAX; // no key and no digest has such a length
        size = 64;
    }
    if (absurd(12))
        return room;
    room.data = place(size);
    const uint64_t kind = draw(3);
    for (size_t i = 0; i < size; i++)
        room.data[i] = kind == 0 ? 0 : static_cast<uint8_t>(next() >> 56);
    if (kind == 2 && size > 0) {
        const std::string& content = one_of(fixtures_.files).content;
        memcpy(room.data, content.data(), std::min(size, content.size()));
    }
    return room;
}

uint8_t* Arguments::fixed(const char*, size_t size) {
    if (absurd(15))
        return nullptr;
    uint8_t* const data = place(size);
    for (size_t i = 0; i < size; i++)
        data[i] = static_cast<uint8_t>(next() >> 56);
    return data;
}

// Contexts live longer than a call, so that what one call begins others go on with. They lie at odd
// addresses.
void* Arguments::context(const char*) {
    if (chance(20))
        return nullptr;
    std::vector<uint8_t>& room = one_of(contexts_);
    if (chance(30)) // as if the caller had damaged it
        room[1 + draw(600)] ^= static_cast<uint8_t>(1u << draw(8));
    return room.data() + 1;
}

Room Arguments::context_room(const char* name, const char*) {
    Room room;
    room.claimed = 8000;
    room.data = static_cast<uint8_t*>(context(name));
    if (chance(8)) {
        size_t size;
        room.claimed = length(&size);
        if (size > 8000)
            room.claimed = 8000;
    }
    return room;
}

struct Call {
    const char* name;
    int (*make)(Arguments&);
};

// These have buffers whose lengths follow from other arguments.
template<class Function>
int filter(Arguments& a, Function function) {
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
int triple_des_text(Arguments& a, Function function) {
    const char* const in = a.text("szInputHex");
    const char* const key = a.text("szKeyHex");
    const char* const mode = a.text("szMode");
    const char* const iv = a.text("szIVHex");
    auto* const out = reinterpret_cast<char*>(a.place((in != nullptr ? strlen(in) : 0) + 5));
    return function(a.absurd(15) ? nullptr : out, in, key, a.number("fEncrypt"), mode, iv);
}

const Call kCalls[] = {
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

void on_signal(int signal) {
    std::fprintf(report, "signal %d in call %lu, %s\n", signal, currentCall, currentFunction);
    std::fflush(report);
    std::_Exit(1);
}

bool failed(const char* what, const char* function) {
    std::fprintf(report, "call %lu, %s: %s\n", currentCall, function, what);
    std::fflush(report);
    return false;
}

std::set<std::string> succeeded; // functions that had a call without an error

bool call_once(Arguments& a, const Call& call) {
    currentFunction = call.name;
    a.begin();
    const int result = call.make(a);
    const int code = ZUL_ErrorCode();
    if (result > 0 && code == 0 && !a.rooms_hold_texts(result))
        return failed("a text does not end inside its room", call.name);
    if (result >= 0 && code == 0)
        succeeded.insert(call.name);
    char text[512];
    if (strncmp(call.name, "CNV_", 4) != 0 && (code < 0 || code > MISC_ERROR))
        return failed("no error code", call.name);
    const int length = ZUL_LastError(text, 511);
    if (length < 0 || length > 511 || strlen(text) != static_cast<size_t>(length))
        return failed("an error text with another length", call.name);
    return true;
}

int run(uint64_t seed, double seconds, unsigned long calls) {
    const Fixtures fixtures = make_fixtures();
    Arguments arguments(seed, fixtures);
    // Calls may write to the standard streams; the report goes where the errors went.
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    report = fdopen(dup(2), "w");
#ifdef _WIN32
    const char* const nothing = "NUL";
#else
    const char* const nothing = "/dev/null";
#endif
    if (!std::freopen(nothing, "r", stdin) || !std::freopen(nothing, "w", stdout) ||
        !std::freopen(nothing, "w", stderr))
        return 2;
    for (const int signal : {SIGSEGV, SIGILL, SIGFPE, SIGABRT})
        std::signal(signal, on_signal);
#ifdef SIGBUS
    std::signal(SIGBUS, on_signal);
#endif

    const auto start = std::chrono::steady_clock::now();
    const auto passed = [&] {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
    ProcessSize early;
    [[maybe_unused]] long blocks = 0;
    double slowest = 0;
    const char* slowestFunction = "";
    const size_t many = sizeof kCalls / sizeof kCalls[0];
    for (currentCall = 0; calls != 0 ? currentCall < calls : passed() < seconds; currentCall++) {
        if (currentCall % 2000 == 0)
            restore_folder(fixtures);
        const bool warm = calls != 0 ? currentCall == calls / 4 : early.memory == 0 && passed() > seconds / 4;
        if (warm) {
            early = process_size();
#ifdef ZUL_ENDURANCE_EMBEDDED
            blocks = zul::live_blocks();
#endif
        }
        const Call& call = kCalls[arguments.draw(many)];
        // Random bytes with a prompt wait half a second for keys to be let go.
        if ((strncmp(call.name, "RNG_BytesWith", 13) == 0 || strcmp(call.name, "RNG_MakeSeedFile") == 0) &&
            !arguments.chance(100))
            continue;
        const double before = passed();
        if (!call_once(arguments, call))
            return 1;
        if (passed() - before > slowest) {
            slowest = passed() - before;
            slowestFunction = call.name;
        }
    }
    const ProcessSize end = process_size();
    std::fprintf(
        report,
        "%lu calls of %zu functions (%zu succeeded) in %.0f s; memory %ld -> %ld KiB, handles %ld -> %ld; "
        "longest %.2f s (%s)\n",
        currentCall, many, succeeded.size(), passed(), early.memory, end.memory, early.handles, end.handles,
        slowest, slowestFunction);
    if (std::getenv("ZUL_ENDURANCE_NAMES"))
        for (const Call& call : kCalls)
            if (succeeded.count(call.name) == 0)
                std::fprintf(report, "%s never succeeded\n", call.name);
    bool good = end.handles <= early.handles && end.memory < early.memory + 16 * 1024;
#ifdef ZUL_ENDURANCE_EMBEDDED
    std::fprintf(report, "blocks %ld -> %ld\n", blocks, zul::live_blocks());
    good = good && zul::live_blocks() == blocks;
#endif
    std::fflush(report);
    return good ? 0 : 1;
}

} // namespace
} // namespace endurance

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: random_calls SEED SECONDS|CALLSc\n");
        return 2;
    }
#ifndef _WIN32
    setsid(); // without a terminal nobody is asked anything
#endif
    const std::filesystem::path folder = std::filesystem::current_path() / "random_calls";
    std::filesystem::remove_all(folder);
    std::filesystem::create_directory(folder);
    std::filesystem::current_path(folder);
    const std::string many = argv[2];
    const bool counted = many.back() == 'c';
    return endurance::run(std::strtoull(argv[1], nullptr, 0), counted ? 0 : std::atof(argv[2]),
                          counted ? std::strtoul(argv[2], nullptr, 10) : 0);
}
