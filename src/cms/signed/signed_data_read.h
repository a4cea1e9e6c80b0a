#pragma once

// What a signed message carries. All give 0 or a positive code with a text.
namespace zul {

// Both read the content, verified or not, of a message of version 1; *length is what was written, or without
// output or room the whole length.
[[nodiscard]] int signed_content_to_file(const char* path, const char* fileOrText, int* length);
[[nodiscard]] int signed_content_to_room(char* out, int room, const char* fileOrText, int* length);

// carried_certificate writes the certificate of an index from 1 to a file (path null or empty: to none).
// *result is the length of its DER, 0 past the last; for an index below 1 the number of certificates.
[[nodiscard]] int carried_certificate(const char* path, const char* fileOrText, int index, int* result);

} // namespace zul
