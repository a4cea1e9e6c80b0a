#include "cert/fields/signed_view.h"

#include <algorithm>

#include "frame/array.h"

namespace zul {

bool algorithm_view_read(DerReader& reader, AlgorithmView& algorithm) {
    DerElement whole, parameters;
    if (!reader.next_is(kDerSequence) || !reader.take_any(whole))
        return false;
    DerReader fields(whole.content);
    if (!fields.take(kDerOid, algorithm.oid) || !der_is_oid(algorithm.oid))
        return false;
    algorithm.encoding = whole.encoding;
    algorithm.parameters = {};
    if (fields.at_end())
        return true;
    if (!fields.take_any(parameters) || !fields.at_end())
        return false;
    algorithm.parameters = parameters.encoding;
    return true;
}

bool signed_view_read(DerView encoding, SignedView& object) {
    DerView content, bits;
    if (!der_single(encoding, kDerSequence, content))
        return false;
    object.encoding = encoding;
    DerReader fields(content);
    DerElement toBeSigned;
    if (!fields.next_is(kDerSequence) || !fields.take_any(toBeSigned) ||
        !algorithm_view_read(fields, object.signatureAlgorithm) || !fields.take(kDerBitString, bits) ||
        !fields.at_end() || bits.empty() || bits[0] > 7)
        return false;
    object.toBeSigned = toBeSigned.encoding;
    object.signature = {bits.data + 1, bits.size - 1};
    object.unusedBits = bits[0];
    return true;
}

bool ExtensionReader::next(ExtensionView& extension) {
    DerView content, flag;
    bool hasFlag;
    if (reader_.at_end() || !reader_.take(kDerSequence, content))
        return false;
    DerReader fields(content);
    extension.isCritical = false;
    return fields.take(kDerOid, extension.oid) && der_is_oid(extension.oid) &&
           fields.take_optional(kDerBoolean, flag, hasFlag) &&
           (!hasFlag || der_boolean(flag, extension.isCritical)) &&
           fields.take(kDerOctetString, extension.value) && fields.at_end();
}

bool extensions_are_valid(DerView extensions) {
    // Entries of CRLs, of which there are many, have one or two.
    constexpr size_t kFew = 4;
    std::string_view few[kFew];
    Array<std::string_view> many;
    ExtensionReader reader(extensions);
    ExtensionView extension;
    size_t count = 0;
    const uint8_t* end = extensions.data;
    for (; reader.next(extension); count++) {
        const std::string_view type = extension.oid.text();
        if (count < kFew) {
            if (std::find(few, few + count, type) != few + count)
                return false;
            few[count] = type;
        } else {
            many.add(type);
        }
        end = extension.value.end();
    }
    if (end != extensions.end() || count == 0)
        return false;
    if (count <= kFew)
        return true;
    for (const std::string_view type : few)
        many.add(type);
    std::sort(many.begin(), many.end());
    return std::adjacent_find(many.begin(), many.end()) == many.end();
}

bool find_extension(DerView extensions, std::string_view oid, ExtensionView& extension) {
    ExtensionReader reader(extensions);
    while (reader.next(extension))
        if (extension.is(oid))
            return true;
    return false;
}

} // namespace zul
