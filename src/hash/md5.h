#pragma once
#include "hash/block_digest.h"

// MD5 (RFC 1321).
namespace zul {

constexpr size_t kMd5Size = 16;

struct Md5Context : BlockDigestContext<uint32_t, 4, 64> {};

void md5_init(Md5Context& context);
void md5_update(Md5Context& context, const void* data, size_t size);
void md5_final(Md5Context& context, uint8_t digest[kMd5Size]); // wipes the context

} // namespace zul
