#include <string_view>

#include "encode/base64.h"
#include "encode/hex.h"
#include "frame/err.h"
#include "frame/slice.h"
#include "rsa/rsa_der.h"
#include "rsa/rsa_xml.h"
#include "rsa/rsa_xml_elements.h"
#include "rsa/xml_reader.h"
#include "zulcore.h"

namespace zul {

namespace {

// ValueText collects the characters of one value without white space. It has room for the longest key and
// some leading zeros.
class ValueText {
  public:
    void start(bool isHex) {
        isHex_ = isHex;
        length_ = 1; // a "0" before the text, for an odd number of hex digits
        buffer_[0] = '0';
    }
    bool add(std::string_view piece) {
        for (const char c : piece) {
            if (c == ' ' || c == '\t' || c == '\r' || c == '\n')
                continue;
            if (length_ == buffer_.size())
                return false;
            buffer_[length_++] = static_cast<uint8_t>(c);
        }
        return true;
    }
    bool empty() const { return length_ == 1; }
    bool decode(MT value) const {
        SecretBuffer octets(length_); // more than either encoding fills
        size_t size = 0;
        if (isHex_) {
            const size_t from = length_ % 2 == 0 ? 0 : 1;
            if (!hex_decode_strict(octets.data(), &size, buffer_.text() + from, length_ - from))
                return false;
        } else {
            if (!is_base64())
                return false;
            size = b64_decode(octets.data(), length_, buffer_.text() + 1, length_ - 1);
        }
        mtConvFromOctets(value, octets.data(), size);
        return true;
    }

  private:
    bool is_base64() const {
        const std::string_view text(buffer_.text() + 1, length_ - 1);
        const size_t digits = slice(text, 0, text.find('=')).size();
        for (const char c : slice(text, 0, digits))
            if (!b64_is_char(c))
                return false;
        const std::string_view padding = slice(text, digits);
        return digits % 4 != 1 && (padding.empty() || text.size() % 4 == 0) &&
               (padding.empty() || padding == "=" || padding == "==");
    }

    static constexpr size_t kMaxBytes = kMaxRsaBits / 8 + 64;
    SecretBuffer buffer_{2 * kMaxBytes};
    size_t length_ = 1;
    bool isHex_ = false;
};

class KeyReader {
  public:
    explicit KeyReader(RsaKey& key) : key_(key) {}

    [[nodiscard]] int read(std::string_view document) {
        XmlReader xml(document);
        bool isSound = true; // of the values; a document that is not well-formed is refused first
        for (;;) {
            switch (xml.next()) {
            case XmlReader::Event::start:
                isSound = start(xml) && isSound;
                break;
            case XmlReader::Event::text:
                isSound = (current_ == kXmlElementCount || text_.add(xml.text())) && isSound;
                break;
            case XmlReader::Event::end:
                isSound = end(xml) && isSound;
                break;
            case XmlReader::Event::malformed:
                return err_fail(BAD_XML_ERROR, "Invalid XML data");
            case XmlReader::Event::finished:
                if (!hasRoot_)
                    return err_fail(BAD_XML_ERROR, "Cannot find valid RSAKeyValue or RSAKeyPair element");
                return isSound ? complete() : err_fail(BAD_XML_ERROR, "Invalid XML data");
            }
        }
    }

  private:
    bool start(const XmlReader& xml) {
        if (xml.depth() == 1)
            hasRoot_ = xml.name() == kXmlPublicRoot || xml.name() == kXmlPairRoot;
        if (xml.depth() != 2 || !hasRoot_)
            return current_ == kXmlElementCount; // a value holds no elements
        for (size_t i = 0; i < kXmlElementCount; i++) {
            const XmlElement& element = kXmlElements[i];
            if (xml.name() == element.name || (!element.alias.empty() && xml.name() == element.alias)) {
                const std::string_view encoding = xml.attribute(kXmlEncodingName);
                current_ = i;
                text_.start(encoding == kXmlHexEncoding);
                // Hexadecimal digits are base64 characters too, so an encoding is never guessed.
                return encoding.empty() || encoding == kXmlHexEncoding || encoding == kXmlBase64Encoding;
            }
        }
        return true;
    }

    // An empty element counts as missing. Two elements of one name are refused.
    bool end(const XmlReader& xml) {
        if (xml.depth() != 1 || current_ == kXmlElementCount)
            return true;
        const size_t ended = current_;
        current_ = kXmlElementCount;
        if (text_.empty())
            return true;
        if (has_[ended] || !text_.decode(key_.*kXmlElements[ended].value))
            return false;
        has_[ended] = true;
        return true;
    }

    [[nodiscard]] int complete() {
        if (!has_[kXmlModulus])
            return err_fail(BAD_XML_ERROR, "Missing <Modulus> element");
        if (!has_[kXmlExponent])
            return err_fail(BAD_XML_ERROR, "Missing <Exponent> element");
        key_.flags = kRsaPublic;
        bool isPrivate = false;
        for (size_t i = kXmlPublicElements; i < kXmlElementCount; i++)
            isPrivate = isPrivate || has_[i];
        if (!isPrivate)
            return 0;
        if (!has_[kXmlD] || !has_[kXmlP] || !has_[kXmlQ])
            return err_fail(BAD_XML_ERROR, "Not all private key elements are present");
        key_.flags = kRsaPublic | kRsaPrivate | kRsaCrt;
        return compute_missing() ? 0 : err_fail(BAD_XML_ERROR, "Failed to compute missing CRT values");
    }

    bool compute_missing() {
        return (has_[kXmlDP] || invert_exponent(key_.dP, key_.p)) &&
               (has_[kXmlDQ] || invert_exponent(key_.dQ, key_.q)) && (has_[kXmlInverseQ] || invert_q());
    }
    bool invert_exponent(MT inverse, MT prime) {
        if (mtShortCmp(prime, 1) <= 0)
            return false;
        BigInt less1;
        mtShortSub(less1, prime, 1);
        return mtModInv(inverse, key_.e, less1) == 0;
    }
    bool invert_q() {
        if (mtShortCmp(key_.p, 1) <= 0)
            return false;
        BigInt reduced;
        mtModulo(reduced, key_.q, key_.p);
        return mtModInv(key_.qInv, reduced, key_.p) == 0;
    }

    RsaKey& key_;
    ValueText text_;
    bool hasRoot_ = false;
    bool has_[kXmlElementCount] = {};
    size_t current_ = kXmlElementCount; // the value that is being read
};

} // namespace

int rsa_key_from_xml(const char* xml, RsaKey& key) {
    if (const int code = KeyReader(key).read(xml))
        return code;
    key.bits = mtBitLength(key.n);
    if (rsa_values_usable(key)) // as for keys read from DER
        return 0;
    return err_fail(INVALID_DATA_ERROR, "Not an RSA %s key",
                    (key.flags & kRsaPrivate) != 0 ? "private" : "public");
}

} // namespace zul
