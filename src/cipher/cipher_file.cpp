#include "cipher/cipher_file.h"

#include <cstring>
#include <utility>

#include "cipher/padding.h"
#include "frame/constant_time.h"
#include "frame/err.h"
#include "frame/file_writer.h"
#include "frame/text.h"
#include "zulcore.h"

namespace zul {

namespace {

constexpr size_t kChunk = 4096; // whole blocks of either cipher

// A chunk with room for the pad of its last block.
using Chunk = Secret<kChunk + kMaxPadding>;

[[nodiscard]] int stream_plain(CipherContext& context, FileWriter& writer, FileReader& reader) {
    Chunk chunk;
    size_t got;
    do {
        got = reader.read(chunk.data(), kChunk);
        if (const int code = context.update(chunk.data(), chunk.data(), got))
            return code;
        if (!writer.write(chunk.data(), got))
            return WRITE_ERROR;
    } while (got == kChunk);
    return 0;
}

[[nodiscard]] int stream_padding(CipherContext& context, FileWriter& writer, FileReader& reader,
                                 size_t block) {
    Chunk chunk;
    size_t got;
    do {
        got = reader.read(chunk.data(), kChunk);
        size_t size = got;
        if (got < kChunk && !reader.failed()) {
            const size_t pad = pad_bytes_needed(got, block);
            memset(chunk.data() + got, static_cast<int>(pad), pad);
            size += pad;
        }
        // After a read error the rest may be a partial block; the caller reports the read error then.
        if (const int code = context.update(chunk.data(), chunk.data(), size))
            return code;
        if (!writer.write(chunk.data(), size))
            return WRITE_ERROR;
    } while (got == kChunk);
    return 0;
}

// The last chunk, which holds the pad, is known only when nothing follows, so one chunk is read ahead.
[[nodiscard]] int stream_unpadding(CipherContext& context, FileWriter& writer, FileReader& reader,
                                   size_t block) {
    Chunk first, second;
    Chunk *chunk = &first, *ahead = &second;
    size_t size = reader.read(chunk->data(), kChunk);
    if (size == 0)
        return BAD_LENGTH_ERROR;
    for (;;) {
        const size_t next = size == kChunk ? reader.read(ahead->data(), kChunk) : 0;
        if (const int code = context.update(chunk->data(), chunk->data(), size))
            return code;
        if (next == 0)
            break;
        if (!writer.write(chunk->data(), size))
            return WRITE_ERROR;
        std::swap(chunk, ahead);
        size = next;
    }
    if (reader.failed())
        return READ_ERROR;
    const size_t pad = ct_declassify(pad_count(chunk->data() + size - block, block));
    if (pad == 0)
        return err_fail(DECRYPT_ERROR, "Wrong padding: wrong key or damaged file");
    return writer.write(chunk->data(), size - pad) ? 0 : WRITE_ERROR;
}

} // namespace

int cipher_file(const CipherChoice& choice, bool encrypt, const char* pathOut, const char* pathIn,
                const uint8_t* key, const uint8_t* iv) {
    if (pathOut == nullptr || pathIn == nullptr)
        return NULL_ERROR;
    CipherContext context;
    if (const int code = context.init(choice.algorithm, choice.mode, encrypt, key, iv))
        return code;

    FileReader reader(pathIn);
    if (!reader.is_open())
        return err_fail(OPEN_ERROR, "Cannot open file '%s'", shown_name(pathIn));
    const size_t block = cipher_block_length(choice.algorithm);
    const bool pads = cipher_mode_pads(choice.mode);
    const int64_t length = platform::file_length(reader.handle()); // negative if not known beforehand
    if (pads && !encrypt && (length == 0 || (length > 0 && length % static_cast<int64_t>(block) != 0)))
        return err_fail(BAD_LENGTH_ERROR, "File '%s' is not whole blocks of %d bytes", shown_name(pathIn),
                        static_cast<int>(block));
    // The writer's own guard does not serve: it would answer CREATE_ERROR, and it opens the input's name
    // again, where this compares the open file. A device named twice has no content to lose; its length is
    // not known.
    if (length >= 0 && platform::file_is(reader.handle(), pathOut))
        return err_fail(BAD_PARAM_ERROR, "Output is the input file '%s'", shown_name(pathIn));
    FileWriter writer(pathOut);
    if (!writer.is_open())
        return err_fail(CREATE_ERROR, "Cannot create file '%s'", shown_name(pathOut));
    int code = !pads     ? stream_plain(context, writer, reader)
               : encrypt ? stream_padding(context, writer, reader, block)
                         : stream_unpadding(context, writer, reader, block);
    if (reader.failed())
        code = READ_ERROR;
    if (code == 0 && !writer.finish())
        code = WRITE_ERROR;
    if (code == READ_ERROR)
        err_add_text("Cannot read file '%s'", shown_name(pathIn));
    if (code == WRITE_ERROR)
        err_add_text("Cannot write file '%s'", shown_name(pathOut));
    return code;
}

} // namespace zul
