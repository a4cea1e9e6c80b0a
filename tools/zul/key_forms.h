#pragma once
#include <string>

#include "secret_bytes.h"

// What a file with a key looks like, before the library reads it.
namespace tool {

// KeyText is a file's key as KEY_Read takes it, and its structure in words.
struct KeyText {
    std::string form;
    bool isEncrypted;
    SecretBytes text; // PEM, with its NUL
};
// key_text takes the first private key of several PEM blocks, or else the first block that does not hold
// parameters. Refused if the content has the structure of no key; name is for messages.
KeyText key_text(const SecretBytes& content, const std::string& name);

bool is_key_xml(const SecretBytes& content);
// holds_private_key looks for the outline of one, encrypted or not, or of a PKCS #12 file.
bool holds_private_key(const SecretBytes& content, const std::string& name);

} // namespace tool
