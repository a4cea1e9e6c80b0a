#pragma once
#include "asn1/der_reader.h"

// GeneralNames (RFC 5280, 4.2.1.6).
namespace zul {

enum class GeneralNameType : uint8_t {
    otherName,
    rfc822Name,
    dNSName,
    x400Address,
    directoryName,
    ediPartyName,
    uniformResourceIdentifier,
    iPAddress,
    registeredID,
};

// GeneralNameView is one name. value is its content: the text or octets; the whole Name of a directoryName;
// the fields of an otherName.
struct GeneralNameView {
    GeneralNameType type = GeneralNameType::otherName;
    DerView value, encoding;
};

// take_general_name takes one name: false for an unknown form and a text that is not ASCII. Empty texts, zero
// bytes and lengths of addresses are not looked at.
[[nodiscard]] bool take_general_name(DerReader& reader, GeneralNameView& name);

// GeneralNameReader steps over the content of a SEQUENCE OF GeneralName.
class GeneralNameReader {
  public:
    explicit GeneralNameReader(DerView names) : reader_(names) {}
    [[nodiscard]] bool next(GeneralNameView& name) {
        return !reader_.at_end() && take_general_name(reader_, name);
    }
    bool at_end() const { return reader_.at_end(); } // false behind a name that cannot be read

  private:
    DerReader reader_;
};
// general_names_are_valid tells whether a content holds one name at least and nothing else.
[[nodiscard]] bool general_names_are_valid(DerView names);

} // namespace zul
