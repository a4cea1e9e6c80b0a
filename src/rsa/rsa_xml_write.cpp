#include <cstring>
#include <utility>

#include "encode/base64.h"
#include "encode/hex.h"
#include "rsa/rsa_xml.h"
#include "rsa/rsa_xml_elements.h"
#include "zulcore.h"

namespace zul {

namespace {

class XmlWriter {
  public:
    explicit XmlWriter(size_t room) : out_(room) {}

    void add(std::string_view piece) {
        memcpy(out_.data() + length_, piece.data(), piece.size());
        length_ += piece.size();
    }
    void tag(std::string_view opening, std::string_view name) {
        add(opening);
        add(name);
        add(">");
    }
    void value(std::string_view name, const MtNumber* number, bool asHex) {
        SecretBuffer octets(mtConvToOctets(number, nullptr, 0));
        mtConvToOctets(number, octets.data(), octets.size());
        add("<");
        add(name);
        if (asHex) {
            add(" ");
            add(kXmlEncodingName);
            add("=\"");
            add(kXmlHexEncoding);
            add("\"");
        }
        add(">");
        const auto encode = asHex ? hex_encode : b64_encode;
        length_ += encode(out_.text() + length_, out_.size() - length_, octets.data(), octets.size());
        tag("</", name);
    }
    SecretBuffer finish() {
        out_[length_] = 0;
        out_.shrink(length_);
        return std::move(out_);
    }

  private:
    SecretBuffer out_;
    size_t length_ = 0;
};

} // namespace

SecretBuffer rsa_key_to_xml(const RsaKey& key, int options) {
    const bool isPublic = (key.flags & kRsaPrivate) == 0 || (options & ZUL_XML_PUBLIC_ONLY) != 0;
    const bool asHex = (options & ZUL_XML_HEXBINARY) != 0;
    const std::string_view root =
        isPublic || (options & ZUL_XML_RSAKEYVALUE) != 0 ? kXmlPublicRoot : kXmlPairRoot;

    constexpr size_t kMarkup = 64; // the most that tags and rounding add to a value
    const size_t count = isPublic ? kXmlPublicElements : size_t{kXmlElementCount};
    size_t room = kMarkup;
    for (size_t i = 0; i < count; i++)
        room += 2 * mtConvToOctets(key.*kXmlElements[i].value, nullptr, 0) + kMarkup;
    XmlWriter xml(room);
    xml.tag("<", root);
    for (size_t i = 0; i < count; i++)
        xml.value(kXmlElements[i].name, key.*kXmlElements[i].value, asHex);
    xml.tag("</", root);
    return xml.finish();
}

} // namespace zul
