#pragma once
#include <cstddef>
#include <cstdint>

// MD2 (RFC 1319).
namespace zul {

constexpr size_t kMd2Size = 16, kMd2BlockSize = 16;

struct Md2Context {
    uint8_t state[48]; // the first 16 bytes live on, the rest is work space
    uint8_t checksum[16];
    uint8_t block[kMd2BlockSize];
    size_t filled; // bytes waiting in block
};

void md2_init(Md2Context& context);
void md2_update(Md2Context& context, const void* data, size_t size);
void md2_final(Md2Context& context, uint8_t digest[kMd2Size]); // wipes the context

} // namespace zul
