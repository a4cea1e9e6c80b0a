#pragma once
#include "asn1/der_reader.h"

namespace zul {

// AlgorithmView is an AlgorithmIdentifier. parameters is a whole element, empty if it is missing.
struct AlgorithmView {
    DerView oid, parameters, encoding;
};
[[nodiscard]] bool algorithm_view_read(DerReader& reader, AlgorithmView& algorithm);

// SignedView is SEQUENCE { toBeSigned, signatureAlgorithm, signatureValue } (RFC 5280, 4.1.1).
struct SignedView {
    DerView encoding, toBeSigned; // whole elements
    AlgorithmView signatureAlgorithm;
    DerView signature; // without the octet of unused bits, of which no signature has any
    unsigned unusedBits = 0;
};
// signed_view_read takes an encoding that is such an object and nothing else.
[[nodiscard]] bool signed_view_read(DerView encoding, SignedView& object);

// ExtensionView is one extension (RFC 5280, 4.2).
struct ExtensionView {
    DerView oid, value; // value: the content of the OCTET STRING
    bool isCritical = false;

    bool is(std::string_view octets) const { return oid.text() == octets; }
};

// ExtensionReader steps over the content of a SEQUENCE OF Extension, which extensions_are_valid has checked:
// all are well made and no two are of one type.
class ExtensionReader {
  public:
    explicit ExtensionReader(DerView extensions) : reader_(extensions) {}
    [[nodiscard]] bool next(ExtensionView& extension); // false at the end

  private:
    DerReader reader_;
};
[[nodiscard]] bool extensions_are_valid(DerView extensions);

// find_extension gives the extension of a type: false if there is none.
[[nodiscard]] bool find_extension(DerView extensions, std::string_view oid, ExtensionView& extension);

} // namespace zul
