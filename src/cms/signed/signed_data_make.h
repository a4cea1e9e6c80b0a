#pragma once
#include <cstddef>
#include <cstdint>

// Makers of signed messages (RFC 5652, 5): 0 or a positive code with a text. options are those of the
// exports; arguments are there and not empty unless said otherwise.
namespace zul {

[[nodiscard]] int make_signed_file(const char* path, const char* contentFile, const char* certList,
                                   const char* privateKey, int options);
[[nodiscard]] int make_signed_bytes(const char* path, const void* content, size_t size, const char* certList,
                                    const char* privateKey, int options);
[[nodiscard]] int make_detached_signature(const char* path, const char* hexDigest, const char* certList,
                                          const char* privateKey, int options);
// make_signed_with_value carries a finished signature of the content, which is checked with the key of the
// first certificate. It has no signed attributes, whatever the options say: the signature is not of those.
[[nodiscard]] int make_signed_with_value(const char* path, const uint8_t* signature, size_t signatureLen,
                                         const void* content, size_t size, const char* certList, int options);
[[nodiscard]] int make_certs_only(const char* path, const char* certList, int options);

} // namespace zul
