// Makes the encoding of a Name from its text. name_text.cpp does the reverse.
#include "x509/names/distinguished_name.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <iterator>

#include "asn1/asn_build.h"
#include "asn1/asn_header.h"
#include "asn1/oid.h"
#include "encode/hex.h"
#include "encode/utf8.h"
#include "frame/debug_output.h"
#include "frame/slice.h"
#include "x509/names/name_attributes.h"
#include "x509/names/pair_reader.h"
#include "zulcore.h"

namespace zul {

namespace {

// find_word gives a keyword's place in the table, -1 if it is unknown.
[[nodiscard]] int find_word(std::string_view keyword) {
    const auto* found = std::find_if(std::begin(kNameWords), std::end(kNameWords), [=](const NameWord& word) {
        return same_word(keyword, word.keyword) ||
               (word.second != nullptr && same_word(keyword, word.second));
    });
    return found == std::end(kNameWords) ? -1 : static_cast<int>(found - std::begin(kNameWords));
}

// from_hex decodes hex digits. If their number is odd, the first one makes a byte alone.
SecretBuffer from_hex(std::string_view text) {
    SecretBuffer digits(text.size() + 2);
    digits[0] = '0';
    const size_t count = hex_filter(digits.text() + 1, text.data(), text.size());
    SecretBuffer bytes(count / 2 + 1);
    bytes.shrink(hex_decode(bytes.data(), bytes.size(), digits.text() + (count % 2 == 0)));
    return bytes;
}

// read_value gives the bytes of a value; false for a value in hex without digits.
bool read_value(const PairReader& pair, SecretBuffer& value) {
    const std::string_view raw = pair.raw_value();
    if (raw.starts_with("#x")) {
        value = from_hex(slice(raw, 2));
        return !value.empty();
    }
    if (raw.starts_with("##x"))
        value.append(raw.data() + 1, raw.size() - 1);
    else
        value = pair.value();
    return true;
}

void trace(const PairReader& pair, int word) {
    printf("attribute=[%.*s]\t", static_cast<int>(pair.keyword().size()), pair.keyword().data());
    printf("value=[%.*s]\t", static_cast<int>(pair.raw_value().size()), pair.raw_value().data());
    printf("idn=%d\n", word);
}

bool is_ia5(uint8_t c) {
    return c >= 0x20 && c <= 0x7E;
}

bool is_printable(uint8_t c) {
    if ((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9'))
        return true;
    return c != 0 && strchr(" '()+,-./:=?", c) != nullptr;
}

// choose_type gives the tag of a value's string type. With ZUL_X509_UTF8 it converts a value that is not
// UTF-8.
uint8_t choose_type(SecretBuffer& value, int options) {
    const uint8_t* bytes = value.data();
    const size_t n = value.size();
    if ((options & ZUL_X509_UTF8) == 0) {
        if (std::all_of(bytes, bytes + n, is_printable))
            return kAsnPrintableString;
        return std::all_of(bytes, bytes + n, is_ia5) ? kAsnIa5String : kAsnTeletexString;
    }
    if (utf8_classify(bytes, n) == Utf8Class::invalid) {
        SecretBuffer converted(2 * n);
        converted.shrink(utf8_from_latin1(converted.data(), converted.size(), bytes, n).stored);
        value = std::move(converted);
    }
    return kAsnUtf8String;
}

// NameEncoder reads a text twice, first to measure and then to write: nodes would take many times the memory
// of the encoding.
class NameEncoder {
  public:
    NameEncoder(const char* text, int options) : text_(text == nullptr ? "" : text), options_(options) {}

    // go gives the size of all relative names and writes them to out, unless it is null.
    size_t go(uint8_t* out) {
        size_ = 0;
        count_ = 0;
        PairReader pair(text_);
        while (pair.next()) {
            const int word = find_word(pair.keyword());
            if (out == nullptr && debugOutput.structures != 0)
                trace(pair, word);
            if (SecretBuffer value; word >= 0 && read_value(pair, value))
                put_pair(out, type_of(word), value);
        }
        return size_;
    }
    int count() const { return count_; }

  private:
    const OidInfo& type_of(int word) { // looked up once
        if (types_[word].length == 0)
            oid_FromName(&types_[word], kNameWords[word].type);
        return types_[word];
    }
    // header writes the header octets of an element and gives their number.
    static size_t header(uint32_t octet, size_t content, uint8_t hdr[8]) {
        asn_Node node = {};
        node.cls = octet;
        node.length = static_cast<uint32_t>(content);
        return asn_header_octets(&node, hdr);
    }
    static size_t size_of(size_t content) {
        uint8_t hdr[8];
        return header(0, content, hdr) + content;
    }
    void put_header(uint8_t* out, uint32_t octet, size_t content) {
        uint8_t hdr[8] = {};
        put(out, hdr, header(octet, content, hdr));
    }
    void put(uint8_t* out, const void* bytes, size_t n) {
        if (out != nullptr && n != 0)
            memcpy(out + size_, bytes, n);
        size_ += n;
    }
    void put_pair(uint8_t* out, const OidInfo& type, SecretBuffer& value) {
        const uint8_t tag = choose_type(value, options_);
        const auto typeSize = static_cast<size_t>(type.length);
        const size_t inPair = size_of(typeSize) + size_of(value.size());
        put_header(out, kAsnConstructed | kAsnSet, size_of(inPair));
        put_header(out, kAsnConstructed | kAsnSequence, inPair);
        put_header(out, kAsnOid, typeSize);
        put(out, type.bytes, typeSize);
        put_header(out, tag, value.size());
        put(out, value.data(), value.size());
        count_++;
    }

    std::string_view text_;
    int options_;
    OidInfo types_[std::size(kNameWords)] = {};
    size_t size_ = 0;
    int count_ = 0;
};

} // namespace

int name_encode(const char* text, int options, AsnList& name) {
    NameEncoder encoder(text, options);
    const size_t size = encoder.go(nullptr);
    if (size > kAsnMaxMade) {
        name = AsnList::failure();
        return encoder.count();
    }
    name = AsnList(asn_make_node(kAsnConstructed, kAsnSequence, size));
    name.head()->length = static_cast<uint32_t>(size);
    if (size != 0)
        encoder.go(name.head()->data);
    asn_SetHeader(name.head());
    return encoder.count();
}

} // namespace zul
