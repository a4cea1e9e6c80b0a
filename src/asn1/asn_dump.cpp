#include <cstdio>

#include "asn1/asn_encode.h"

namespace zul {

static void print_indent(uint32_t levels) {
    while (levels-- > 0)
        printf("   ");
}

static void print_content(const asn_Node* node) {
    constexpr uint32_t kPerLine = 16;
    for (uint32_t i = 0; i < node->length; i++) {
        if (i % kPerLine == 0)
            print_indent(node->level + 1);
        printf("%02x ", node->data[i]);
        if (i % kPerLine == kPerLine - 1 || i + 1 == node->length)
            printf("\n");
    }
}

void asn_Dump(const asn_Node* list) {
    for (const asn_Node* node = list; node != nullptr; node = node->next) {
        if (node->hdrsize == 0) {
            fprintf(stderr, "\nInvalid HeaderSize");
            return;
        }
        print_indent(node->level);
        for (uint32_t i = 0; i < node->hdrsize; i++)
            printf("%02x ", node->hdr[i]);
        printf(" #Level=%d", static_cast<int>(node->level));
        if (node->ndef != 0)
            printf("  (NDEF)");
        else
            printf(" length=0x%lx/%ld", static_cast<unsigned long>(node->length),
                   static_cast<long>(node->length));
        printf("\n");
        if (node->data != nullptr)
            print_content(node);
    }
}

} // namespace zul
