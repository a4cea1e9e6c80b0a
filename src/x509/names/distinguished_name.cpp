// Names from their text to the encoding; name_text.cpp has the way back.
#include "x509/names/distinguished_name.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <new>

#include "asn1/asn_build.h"
#include "encode/hex.h"
#include "encode/utf8.h"
#include "frame/debug_output.h"
#include "frame/slice.h"
#include "x509/names/name_attributes.h"
#include "x509/names/pair_reader.h"
#include "zulcore.h"

namespace zul {

ParsedName::~ParsedName() {
    while (first_ != nullptr) {
        NameAttribute* gone = first_;
        first_ = gone->next;
        gone->~NameAttribute();
        efree(gone);
    }
}

void ParsedName::append(const char* type, SecretBuffer value) {
    auto* added = new (emalloc(sizeof(NameAttribute))) NameAttribute{type, std::move(value)};
    (last_ == nullptr ? first_ : last_->next) = added;
    last_ = added;
    count_++;
}

namespace {

// find_word gives a keyword's place in the table, -1 if it is unknown.
int find_word(std::string_view keyword) {
    const auto* found = std::find_if(std::begin(kNameWords), std::end(kNameWords), [=](const NameWord& word) {
        return same_word(keyword, word.keyword) ||
               (word.second != nullptr && same_word(keyword, word.second));
    });
    return found == std::end(kNameWords) ? -1 : static_cast<int>(found - std::begin(kNameWords));
}

// from_hex decodes digits, of which the first stands alone if their number is odd.
SecretBuffer from_hex(std::string_view text) {
    SecretBuffer digits(text.size() + 2);
    digits[0] = '0';
    const size_t count = hex_filter(digits.text() + 1, text.data(), text.size());
    SecretBuffer bytes(count / 2 + 1);
    bytes.shrink(hex_decode(bytes.data(), bytes.size(), digits.text() + (count % 2 == 0)));
    return bytes;
}

// read_value gives what a value stands for; false if it stands for nothing.
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

} // namespace

int name_parse(const char* text, ParsedName& name) {
    const int before = name.count();
    PairReader pair(text == nullptr ? "" : text);
    while (pair.next()) {
        const int word = find_word(pair.keyword());
        if (debugOutput.structures != 0)
            trace(pair, word);
        if (SecretBuffer value; word >= 0 && read_value(pair, value))
            name.append(kNameWords[word].type, std::move(value));
    }
    return name.count() - before;
}

namespace {

bool is_ia5(uint8_t c) {
    return c >= 0x20 && c <= 0x7E;
}

bool is_printable(uint8_t c) {
    if ((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9'))
        return true;
    return c != 0 && strchr(" '()+,-./:=?", c) != nullptr;
}

AsnList utf8_value(const uint8_t* bytes, size_t n) {
    if (utf8_classify(bytes, n) != Utf8Class::invalid)
        return asn_NewString(kAsnUtf8String, bytes, n);
    SecretBuffer converted(2 * n);
    const size_t length = utf8_from_latin1(converted.data(), converted.size(), bytes, n).stored;
    return asn_NewString(kAsnUtf8String, converted.data(), length);
}

AsnList encode_value(const SecretBuffer& value, int options) {
    const uint8_t* bytes = value.data();
    const size_t n = value.size();
    if ((options & ZUL_X509_UTF8) != 0)
        return utf8_value(bytes, n);
    if (std::all_of(bytes, bytes + n, is_printable))
        return asn_NewString(kAsnPrintableString, bytes, n);
    return asn_NewString(std::all_of(bytes, bytes + n, is_ia5) ? kAsnIa5String : kAsnTeletexString, bytes, n);
}

} // namespace

AsnList name_encode(const ParsedName& name, int options) {
    AsnList relativeNames;
    for (const NameAttribute* at = name.first(); at != nullptr; at = at->next) {
        AsnList pair = asn_LinkList(asn_NewOid(at->type), encode_value(at->value, options));
        relativeNames = asn_Link(std::move(relativeNames), asn_NewSet(asn_NewSequence(std::move(pair))));
    }
    return asn_NewSequence(std::move(relativeNames));
}

} // namespace zul
