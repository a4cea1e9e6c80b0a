#include "file_digest.h"

#include <functional>

#include "contexts.h"
#include "progress.h"
#include "streams.h"

namespace tool {

namespace {

// fold_line_ends drops the CR of each CR LF in place and gives the new size.
size_t fold_line_ends(unsigned char* text, size_t size) {
    size_t kept = 0;
    for (size_t i = 0; i < size; ++i)
        if (text[i] != '\r' || i + 1 == size || text[i + 1] != '\n')
            text[kept++] = text[i];
    return kept;
}

void each_piece(const std::string& file, bool foldsLineEnds,
                const std::function<int(const unsigned char*, int)>& add) {
    Input input(file);
    Progress progress(input);
    SecretBytes piece(kChunk + 1);
    size_t held = 0; // 1: a CR at the end of a piece waits for what follows
    for (size_t count = kChunk; count == kChunk;) {
        count = input.read(piece.data() + held, kChunk);
        progress.add(count);
        size_t size = held + count;
        if (foldsLineEnds) {
            size = fold_line_ends(piece.data(), size);
            held = count == kChunk && size > 0 && piece[size - 1] == '\r' ? 1 : 0;
            size -= held;
        }
        accept_status(add(piece.data(), static_cast<int>(size)), file);
        if (held != 0)
            piece[0] = '\r';
    }
}

std::string lower_hex(const SecretBytes& bytes) {
    std::string text;
    for (const unsigned char byte : bytes)
        for (const int digit : {byte >> 4, byte & 15})
            text += "0123456789abcdef"[digit];
    return text;
}

} // namespace

std::string file_digest(const std::string& file, const Digest& digest, const DigestForm& form) {
    SecretBytes context = make_context(digest.name, [&](unsigned char* memory, int size) {
        return HASH_Begin(memory, size, digest.name, 0);
    });
    each_piece(file, form.foldsLineEnds,
               [&](const unsigned char* piece, int size) { return HASH_Add(context.data(), piece, size); });
    const int bytes = form.bytes > 0 ? form.bytes : accept_length(HASH_End(nullptr, 0, context.data()), file);
    SecretBytes result(static_cast<size_t>(bytes));
    accept_length(HASH_End(result.data(), bytes, context.data()), file);
    return lower_hex(result);
}

std::string file_hmac(const std::string& file, const Digest& digest, const SecretBytes& key) {
    SecretBytes context = make_context(digest.name, [&](unsigned char* memory, int size) {
        return HMAC_Begin(memory, size, key.data(), int_length(key), digest.name, 0);
    });
    each_piece(file, false,
               [&](const unsigned char* piece, int size) { return HMAC_Add(context.data(), piece, size); });
    SecretBytes result(static_cast<size_t>(accept_length(HMAC_End(nullptr, 0, context.data()), file)));
    accept_length(HMAC_End(result.data(), int_length(result), context.data()), file);
    return lower_hex(result);
}

} // namespace tool
