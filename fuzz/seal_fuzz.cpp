#include <cstring>
#include <string>

#include "fuzz_support.h"
#include "seal/age_armour.h"
#include "seal/header_open.h"
#include "seal/stanza_scrypt.h"
#include "seal/stream_payload.h"
#include "zulcore.h"

// Armour gives the same bytes in any pieces, and they make the same armour. Readers of headers, payloads and
// lists of keys end in a code that they document.

using namespace zul;
using fuzz::require;

// Of the seeds; no file is sealed for it elsewhere.
static const char kIdentity[] = "AGE-SECRET-KEY-1WURK6ZNNRZJH60QKC9E9RVNXGH05CTUJA0QFJ2KPWLA628DE9S4QRH9ZLR";

static const fuzz::Folder& folder() {
    static const fuzz::Folder made;
    return made;
}

static FileInput input_of(const std::string& path) {
    return FileInput(File(path.c_str(), platform::OpenMode::read), path.c_str());
}

static std::string rest_of(ArmourReader& input) {
    std::string all;
    uint8_t part[1000];
    while (const size_t got = input.read(part, sizeof part))
        all.append(reinterpret_cast<const char*>(part), got);
    return all;
}

// The bytes in armour, read at once or in pieces.
static void check_armour(const std::string& in, const std::string& out) {
    FileInput whole = input_of(in), pieces = input_of(in);
    ArmourReader reader(whole), slow(pieces);
    const std::string bytes = rest_of(reader);
    std::string slowly;
    for (uint8_t c; slow.read(&c, 1) == 1;)
        slowly += static_cast<char>(c);
    require(bytes == slowly && reader.error() == slow.error());
    require(reader.error() == 0 || reader.error() == BAD_FORMAT_ERROR);
    if (reader.error() != 0)
        return;
    {
        FileWriter file(out.c_str());
        SealOutput armour(file, true);
        require(armour.write(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()) &&
                armour.finish());
    }
    std::string text = fuzz::content_of(in);
    std::erase(text, '\r');
    const size_t first = text.find('-');
    text = text.substr(first, text.rfind('-') + 1 - first) + '\n';
    require(text == fuzz::content_of(out));
}

static void check_sealed(const std::string& in, const std::string& out) {
    FileInput file = input_of(in);
    SealInput input(file, armour_begins(file));
    AgeHeader header;
    const int read = header.read(input);
    require(read == 0 || read == BAD_FORMAT_ERROR);
    if (read != 0)
        return;
    AgeStanza stanza;
    size_t count = 0;
    bool isExpensive = false;
    for (size_t at = 0; header.next(stanza, at); count++) {
        ScryptStanza scrypt;
        isExpensive = isExpensive ||
                      (stanza.type == ScryptStanza::kType && scrypt.read(stanza) == 0 && scrypt.logN > 4);
    }
    require(count == header.count());
    AgeKeys keys;
    require(keys.read(kIdentity, AgeKeyKind::identity) == 0);
    FileKey fileKey;
    if (!isExpensive)
        (void)header_open(fileKey, header, keys, "secret");
    FileWriter plain(out.c_str());
    const int opened = open_payload(plain, input, fileKey);
    require(opened == 0 || opened == DECRYPT_ERROR || opened == BAD_FORMAT_ERROR);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string in = folder().file("in"), out = folder().file("out");
    fuzz::write_file(in, data, size);
    check_armour(in, out);
    check_sealed(in, out);
    // A list of keys in a file.
    AgeKeys keys;
    const int code = keys.read(in.c_str(), AgeKeyKind::recipient);
    require((code == 0) == (keys.count() > 0) || code == BAD_KEY_ERROR);
    return 0;
}
