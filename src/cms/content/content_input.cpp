#include "cms/content/content_input.h"

#include <cstring>

#include "frame/err.h"
#include "frame/file_stream.h"
#include "frame/text.h"
#include "hash/digest.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr size_t kChunk = size_t{64} * 1024;

[[nodiscard]] int cannot_open(const char* path) {
    return err_fail(OPEN_ERROR, "Cannot open file %s", shown_name(path));
}

[[nodiscard]] int cannot_read(const char* path) {
    return err_fail(READ_ERROR, "Cannot read file %s", shown_name(path));
}

size_t pad_length(size_t size, const ContentShape& shape) {
    return shape.blockLength == 0 ? 0 : shape.blockLength - size % shape.blockLength;
}

// make_element makes the element for size bytes of content, with its padding behind their room.
[[nodiscard]] int make_element(size_t size, const ContentShape& shape, AsnList& element) {
    const size_t pad = pad_length(size, shape);
    if (size > kAsnMaxContent - pad)
        return err_fail(MSG_TOO_LONG_ERROR, "Content is too long (max=%u bytes)", kAsnMaxContent);
    asn_Node* node = asn_make_node(shape.cls, shape.tag, size + pad);
    node->length = static_cast<uint32_t>(size + pad);
    if (pad != 0)
        memset(node->data + size, static_cast<int>(pad), pad);
    element = AsnList(node, node);
    return 0;
}

// read_on reads a source of unknown length (a pipe).
[[nodiscard]] int read_on(const File& file, const char* path, const ContentShape& shape, AsnList& element) {
    SecretBuffer content, chunk(kChunk);
    bool failed = false;
    for (size_t got = kChunk; got == kChunk && content.size() <= kAsnMaxContent;) {
        got = platform::file_read(file.handle(), chunk.data(), kChunk, &failed);
        content.append(chunk.data(), got);
    }
    return failed ? cannot_read(path) : content_from_bytes(content.data(), content.size(), shape, element);
}

} // namespace

int content_from_bytes(const void* bytes, size_t size, const ContentShape& shape, AsnList& element) {
    const int error = make_element(size, shape, element);
    if (error == 0 && size != 0)
        memcpy(element.head()->data, bytes, size);
    return error;
}

int content_from_file(const char* path, const ContentShape& shape, AsnList& element) {
    const File file(path, platform::OpenMode::read);
    if (!file.is_open())
        return cannot_open(path);
    const int64_t length = file.length();
    if (length <= 0)
        return read_on(file, path, shape, element);
    const size_t size =
        length > int64_t{kAsnMaxContent} ? size_t{kAsnMaxContent} + 1 : static_cast<size_t>(length);
    const int error = make_element(size, shape, element);
    if (error != 0)
        return error;
    return platform::file_read(file.handle(), element.head()->data, size) == size ? 0 : cannot_read(path);
}

int content_digest_of_file(const char* path, int algorithm, uint8_t* digest, bool& isEmpty) {
    FileReader file(path);
    if (!file.is_open())
        return cannot_open(path);
    SecretBuffer chunk(kChunk);
    Wiped<DigestContext> context;
    digest_init(*context, algorithm);
    isEmpty = true;
    while (const size_t got = file.read(chunk.data(), kChunk)) {
        digest_update(*context, chunk.data(), got);
        isEmpty = false;
    }
    digest_final(*context, digest);
    return file.failed() ? cannot_read(path) : 0;
}

} // namespace zul
