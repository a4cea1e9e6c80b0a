#include "cms/message/message_file.h"

#include <algorithm>
#include <cstring>

#include "asn1/asn_build.h"
#include "asn1/asn_encode.h"
#include "asn1/asn_header.h"
#include "encode/pem.h"
#include "frame/err.h"
#include "frame/file_writer.h"
#include "frame/text.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr int kLineLen = 64;

// LineWriter writes bytes that come in pieces as lines of base64, without a copy of all of them.
class LineWriter {
  public:
    explicit LineWriter(FileWriter& out) : out_(out), part_(kPart) {}

    void write(const uint8_t* bytes, size_t size) {
        while (size > 0) {
            const size_t taken = std::min(size, kPart - filled_);
            memcpy(part_.data() + filled_, bytes, taken);
            filled_ += taken;
            bytes += taken;
            size -= taken;
            if (filled_ == kPart)
                flush();
        }
    }
    void flush() {
        pem_write(out_, part_.data(), filled_, nullptr, kLineLen);
        filled_ = 0;
    }

  private:
    static constexpr size_t kLineBytes = kLineLen / 4 * 3, kPart = 256 * kLineBytes; // whole lines

    FileWriter& out_;
    SecretBuffer part_;
    size_t filled_ = 0;
};

void write_base64(FileWriter& out, const asn_Node* message) {
    LineWriter lines(out);
    for (const asn_Node* node = message; node != nullptr; node = node->next) {
        uint8_t hdr[8];
        const size_t headerSize = asn_header_octets(node, hdr);
        lines.write(hdr, headerSize);
        if (node->data != nullptr)
            lines.write(node->data, node->length);
    }
    lines.flush();
}

void write_armoured(FileWriter& out, const asn_Node* message, const char* label) {
    const SecretBuffer der = asn_Encode(message);
    pem_write(out, der.data(), der.size(), label, kLineLen);
}

} // namespace

int message_write(const char* path, const asn_Node* message, int options, const char* label,
                  const WriteRules& rules) {
    // Before the file is opened, so that one that exists is not lost to what cannot be written.
    if (message == nullptr || asn_Length(message) == 0)
        return INVALID_DATA_ERROR;
    FileWriter out(path, rules);
    if (!out.is_open())
        return CREATE_ERROR;
    const bool asBase64 = (options & ZUL_CMS_FORMAT_BASE64) != 0;
    if (!asBase64)
        static_cast<void>(asn_WriteFile(message, out)); // finish tells of a failure
    else if (label == nullptr)
        write_base64(out, message);
    else
        write_armoured(out, message, label);
    if (out.finish())
        return 0;
    err_add_text("Cannot write file %s", shown_name(path));
    return asBase64 ? err_fail(WRITE_ERROR, "Error converting to base64") : int{WRITE_ERROR};
}

} // namespace zul
