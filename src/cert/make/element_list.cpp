#include "cert/make/element_list.h"

#include <algorithm>
#include <cstring>

#include "asn1/asn_build.h"
#include "asn1/asn_element.h"
#include "frame/array.h"

namespace zul {
namespace {

struct Element {
    SecretBuffer encoding;
    size_t place;
};

// compare orders encodings, of which none is empty.
int compare(const SecretBuffer& a, const SecretBuffer& b) {
    if (a.size() != b.size())
        return a.size() < b.size() ? -1 : 1;
    return memcmp(a.data(), b.data(), a.size());
}

} // namespace

void list_add(AsnList& list, AsnList element) {
    list = asn_Link(std::move(list), std::move(element));
}

// A request may hold tens of thousands of names, so they are sorted and not compared one with all the others.
void list_drop_repeats(AsnList& list) {
    Array<Element> elements;
    Array<bool> isRepeated;
    for (const asn_Node* node = list.head(); node != nullptr; node = asn_ElementEnd(node)) {
        elements.add({asn_EncodeElement(node), elements.size()});
        isRepeated.add(false);
    }
    std::sort(elements.begin(), elements.end(), [](const Element& a, const Element& b) {
        const int order = compare(a.encoding, b.encoding);
        return order != 0 ? order < 0 : a.place < b.place;
    });
    bool hasAny = false;
    for (size_t i = 1; i < elements.size(); i++) {
        const bool isSame = compare(elements[i - 1].encoding, elements[i].encoding) == 0;
        isRepeated[elements[i].place] = isSame;
        hasAny = hasAny || isSame;
    }
    if (!hasAny)
        return;
    AsnList kept;
    size_t place = 0;
    for (const asn_Node* node = list.head(); node != nullptr; node = asn_ElementEnd(node))
        if (!isRepeated[place++])
            list_add(kept, asn_CopyElement(node));
    list = std::move(kept);
}

bool list_has_type(const AsnList& list, const asn_Node* type) {
    for (const asn_Node* node = list.head(); node != nullptr; node = asn_ElementEnd(node))
        if (asn_SameElement(node->next, type))
            return true;
    return false;
}

} // namespace zul
