#include "key_forms.h"

#include <algorithm>
#include <string_view>

#include "armour.h"
#include "der.h"
#include "failures.h"

namespace tool {

namespace {

char letter_of(unsigned char tag) {
    switch (tag) {
    case 0x02:
        return 'i'; // INTEGER
    case 0x03:
        return 'b'; // BIT STRING
    case 0x04:
    case 0x24:
        return 'o'; // OCTET STRING
    case 0x30:
        return 's'; // SEQUENCE
    default:
        return '?';
    }
}

// Outline has a letter for each element at level 1, which tells the structures of keys apart, and counts the
// elements at level 2 in the first of them. Empty if the bytes are not DER.
struct Outline {
    std::string letters;
    int inFirst = 0;

    Outline(const SecretBytes& bytes, const std::string& name) {
        try {
            DerWalk walk(bytes, name);
            for (DerElement element; walk.next(element);)
                if (element.level == 1)
                    letters += letter_of(element.header[0]);
                else if (element.level == 2 && letters.size() == 1)
                    ++inFirst;
        } catch (const Refused&) {
            letters.clear();
        }
    }

    bool is_encrypted() const { return letters == "so"; }

    // form is empty if the structure is that of no key.
    std::string form() const {
        constexpr int kPartsOfRequest = 4; // a certificate has six or more
        if (is_encrypted())
            return "private key, encrypted (PKCS #8)";
        if (letters == "ii")
            return "public key (PKCS #1)";
        if (letters == "sb")
            return "public key (X.509)";
        if (letters == "ssb")
            return inFirst <= kPartsOfRequest ? "public key of a request" : "public key of a certificate";
        if (letters.starts_with("iso"))
            return "private key (PKCS #8)";
        if (letters.starts_with("iii"))
            return "private key (PKCS #1)";
        if (letters.starts_with("io"))
            return "private key (SEC 1)";
        return {};
    }
};

// key_block gives the block to read of a text with armour, the whole text if it is but one.
SecretBytes key_block(const SecretBytes& content) {
    const std::string_view all(as_text(content), content.size());
    std::string_view chosen;
    for (size_t begin = all.find("-----BEGIN"); begin != all.npos;) {
        const size_t next = all.find("-----BEGIN", begin + 10);
        const std::string_view block = all.substr(begin, next == all.npos ? next : next - begin);
        const std::string_view label = block.substr(10, block.find("-----", 10) - 10);
        const bool isPrivate = label.ends_with("PRIVATE KEY");
        if (isPrivate || (chosen.empty() && !label.ends_with("PARAMETERS")))
            chosen = block;
        if (isPrivate)
            break;
        begin = next;
    }
    return chosen.empty() ? content : SecretBytes(chosen.begin(), chosen.end());
}

SecretBytes pem_text(const SecretBytes& der, const std::string& name) {
    static constexpr std::string_view kBegin = "-----BEGIN KEY-----\n", kEnd = "\n-----END KEY-----\n";
    SecretBytes text(kBegin.begin(), kBegin.end());
    const size_t room = (der.size() + 2) / 3 * 4;
    text.resize(kBegin.size() + room + 1);
    accept_length(CNV_B64StrFromBytes(reinterpret_cast<char*>(text.data() + kBegin.size()),
                                      static_cast<int>(room), der.data(), int_length(der)),
                  name);
    text.pop_back();
    text.insert(text.end(), kEnd.begin(), kEnd.end());
    text.push_back('\0');
    return text;
}

} // namespace

KeyText key_text(const SecretBytes& content, const std::string& name) {
    SecretBytes block = key_block(content);
    const std::string_view all(as_text(block), block.size());
    if (all.find("Proc-Type:") != all.npos) {
        const bool isEncrypted = all.find("DEK-Info:") != all.npos;
        block.push_back('\0');
        return {isEncrypted ? "private key, encrypted (PEM)" : "private key (PEM)", isEncrypted, block};
    }
    const SecretBytes der = binary_content(block, name);
    if (der.empty())
        throw Refused::by_system(NO_DATA_ERROR, name);
    const Outline outline(der, name);
    if (outline.form().empty())
        throw Refused::by_system(BAD_FORMAT_ERROR, name, "It holds no key and no certificate.");
    return {outline.form(), outline.is_encrypted(), pem_text(der, name)};
}

bool is_key_xml(const SecretBytes& content) {
    const std::string_view all(as_text(content), content.size());
    return all.find("RSAKeyValue") != all.npos || all.find("RSAKeyPair") != all.npos;
}

bool holds_private_key(const SecretBytes& content, const std::string& name) try {
    const std::string_view all(as_text(content), content.size());
    if (all.find("PRIVATE KEY-----") != all.npos || all.find("<RSAKeyPair") != all.npos ||
        all.find("<D>") != all.npos)
        return true;
    const Outline outline(binary_content(content, name), name);
    const std::string& letters = outline.letters;
    return outline.is_encrypted() || letters.starts_with("io") || letters.starts_with("iso") ||
           letters.starts_with("iiii") || letters == "iss";
} catch (const Refused&) {
    return false;
}

} // namespace tool
