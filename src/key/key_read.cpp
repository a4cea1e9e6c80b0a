#include "key/key_read.h"

#include <cstring>

#include "asn1/asn_input.h"
#include "asn1/asn_parse.h"
#include "encode/base64.h"
#include "encode/whole_file.h"
#include "frame/err.h"
#include "frame/text.h"
#include "key/key_der.h"
#include "key/key_encryption.h"
#include "key/pem_key.h"
#include "platform/platform.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr size_t kMaxInput = 1 << 22;
constexpr std::string_view kPemBegin = "-----BEGIN ";
// Labels of structures that are not read, but look like others or like damage.
constexpr std::string_view kOtherLabels[] = {"DSA PRIVATE KEY", "DSA PUBLIC KEY", "OPENSSH PRIVATE KEY"};

[[nodiscard]] int no_password() {
    return err_fail(BAD_PARAM_ERROR, "The key is encrypted: a password is needed");
}

// read_decrypted reads what came of a decryption. A wrong password does not give the elements of a key.
[[nodiscard]] int read_decrypted(Key& key, const SecretBuffer& plain) {
    AsnList list;
    if (!key_parse(plain.data(), plain.size(), list) || key_shape(list.head()) == KeyShape::none)
        return err_fail(DECRYPT_ERROR, "Not a private key: a wrong password, or damaged data");
    if (const int error = key_read_structure(list.head(), key))
        return error;
    return key.isPrivate ? 0 : err_fail(BAD_FORMAT_ERROR, "What is encrypted is not a private key");
}

[[nodiscard]] int read_list(Key& key, const asn_Node* list, const char* password) {
    if (key_shape(list) != KeyShape::encrypted)
        return key_read_structure(list, key);
    if (password == nullptr)
        return no_password();
    SecretBuffer plain;
    const int error = key_decrypt(plain, list, password);
    return error != 0 ? error : read_decrypted(key, plain);
}

[[nodiscard]] int read_pem(Key& key, std::string_view text, const char* password) {
    PemBlock block;
    if (const int error = pem_find_key(text, block))
        return error;
    for (const std::string_view label : kOtherLabels)
        if (block.label == label)
            return err_fail(NOT_SUPPORTED_ERROR, "A PEM block \"%s\" is not supported", label.data());
    SecretBuffer data(b64_decoded_length(block.body.data(), block.body.size()));
    b64_decode(data.data(), data.size(), block.body.data(), block.body.size());
    if (!block.cipher.empty()) {
        if (password == nullptr)
            return no_password();
        const int error = pem_decrypt_body(data, block, password);
        return error != 0 ? error : read_decrypted(key, data);
    }
    AsnList list;
    if (!key_parse(data.data(), data.size(), list))
        return err_fail(INVALID_DATA_ERROR, "Not a valid DER structure");
    return read_list(key, list.head(), password);
}

// is_der tells whether bytes are a SEQUENCE, behind which decoders of text may have left zeros or line
// breaks.
bool is_der(std::string_view bytes) {
    constexpr std::string_view kLeft("\0\r\n", 3);
    size_t offset = 0, size = 0;
    return bytes.starts_with('0') &&
           asn_FindElement(&offset, &size, bytes.data(), bytes.size(), -1, 1, 0) != 0 &&
           bytes.find_first_not_of(kLeft, size) == std::string_view::npos;
}

bool is_pem(std::string_view text) {
    return text.find(kPemBegin) != std::string_view::npos && !is_der(text);
}

} // namespace

int key_read(Key& key, const char* fileOrText, const char* password) {
    const std::string_view text(fileOrText);
    if (is_pem(text))
        return text.size() > kMaxInput ? err_fail(INVALID_DATA_ERROR, "Text is too long")
                                       : read_pem(key, text, password);
    AsnList list;
    if (may_be_name(text)) {
        SecretBuffer content;
        // What cannot be read as a file may still be base64: asn_read_input tells.
        err_clear();
        const int unread = read_whole_file(fileOrText, content, kMaxInput);
        if (unread == 0) {
            const std::string_view bytes(content.text(), content.size());
            if (is_pem(bytes))
                return read_pem(key, bytes, password);
            const int error = asn_read_content(content.data(), content.size(), list);
            return error != 0 ? error : read_list(key, list.head(), password);
        }
        if (unread == READ_ERROR || platform::file_is_regular(fileOrText))
            return unread; // a second attempt might find another of its keys
        err_clear();
    }
    const int error = asn_read_input(fileOrText, list, kMaxInput);
    return error != 0 ? error : read_list(key, list.head(), password);
}

} // namespace zul
