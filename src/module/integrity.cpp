#include "module/integrity.h"

#include <algorithm>
#include <cstring>

#include "frame/file_stream.h"
#include "frame/wipe.h"
#include "hash/sha256.h"

namespace zul {

// volatile: the values are filled in after the compiler has seen them.
extern const volatile ModuleSeal kModuleSeal;
const volatile ModuleSeal kModuleSeal = {
    {'z', 'u', 'l', 0xB7, 0x1D, 0xE4, 0x52, 0x9A, 0x0F, 0xC8, 0x63, 0x3E, 0xA5, 's', 'l', 0x01},
    {0x6b, 0x1e, 0xd0, 0x43, 0x9c, 0x75, 0x2a, 0xf8, 0x17, 0xbe, 0x50, 0xc4, 0x8d, 0x39, 0xe2, 0x06,
     0xa1, 0x5f, 0x74, 0xcb, 0x38, 0x92, 0x0d, 0xe7, 0x4a, 0xb3, 0x61, 0xfe, 0x25, 0x88, 0xd9, 0x1c},
    {},
    {},
    {},
};

namespace {

uint32_t number32(const uint8_t* bytes) {
    return uint32_t{bytes[0]} | uint32_t{bytes[1]} << 8 | uint32_t{bytes[2]} << 16 | uint32_t{bytes[3]} << 24;
}

uint64_t number64(const uint8_t* bytes) {
    return number32(bytes) | uint64_t{number32(bytes + 4)} << 32;
}

struct Range {
    uint64_t begin, end;
};

// The parts of a PE file that change when it is signed (Windows Authenticode Portable Executable Signature
// Format; PE Format, "Optional Header").
struct SignedParts {
    Range checksum{}, certificateEntry{};
    uint64_t certificates = 0, certificatesSize = 0; // as the entry tells
};

// read_signed_parts reads the head of a PE32+ file; false for any other file, or a cut one.
bool read_signed_parts(const uint8_t* head, size_t size, SignedParts& parts) {
    constexpr size_t kPeAt = 0x3C, kFileHeader = 24; // with the signature before it
    constexpr size_t kChecksum = 64, kDirectoryCount = 108, kEntry = 112 + 4 * 8, kEntryEnd = kEntry + 8;
    constexpr uint8_t kPe32Plus[] = {0x0B, 0x02};
    if (size < kPeAt + 4)
        return false;
    const size_t pe = number32(head + kPeAt);
    if (pe > size || size - pe < kFileHeader + kEntryEnd || memcmp(head + pe, "PE\0\0", 4) != 0)
        return false;
    const size_t optional = pe + kFileHeader;
    if (memcmp(head + optional, kPe32Plus, sizeof kPe32Plus) != 0 ||
        number32(head + optional + kDirectoryCount) < 5)
        return false;
    parts.checksum = {optional + kChecksum, optional + kChecksum + 4};
    parts.certificateEntry = {optional + kEntry, optional + kEntryEnd};
    parts.certificates = number32(head + optional + kEntry);
    parts.certificatesSize = number32(head + optional + kEntry + 4);
    return true;
}

// SealMac is HMAC-SHA-256 on SHA-256 directly. The general HMAC chooses its digest through data, which may be
// damaged.
class SealMac {
  public:
    explicit SealMac(const ModuleSeal& seal) : seal_(seal) { begin(0x36); }
    void update(const uint8_t* bytes, size_t size) { sha256_update(sha256_, bytes, size); }
    bool is(const uint8_t (&expected)[kSha256Size]) {
        uint8_t digest[kSha256Size];
        sha256_final(sha256_, digest);
        begin(0x5C);
        update(digest, sizeof digest);
        sha256_final(sha256_, digest);
        return memcmp(digest, expected, sizeof digest) == 0;
    }

  private:
    void begin(uint8_t pad) {
        uint8_t block[64];
        for (size_t i = 0; i < sizeof block; i++)
            block[i] = pad ^ (i < sizeof seal_.key ? seal_.key[i] : uint8_t{0});
        sha256_init(sha256_);
        update(block, sizeof block);
    }

    const ModuleSeal& seal_;
    Sha256Context sha256_{};
};

// digest_but hashes the next bytes of a file, which begin at offset at, without those in the ranges.
void digest_but(SealMac& mac, uint64_t at, const uint8_t* bytes, size_t size, const Range (&ranges)[3]) {
    const uint64_t end = at + size;
    uint64_t next = at;
    for (const Range& range : ranges) {
        if (range.end <= next || range.begin >= end)
            continue;
        if (range.begin > next)
            mac.update(bytes + (next - at), static_cast<size_t>(range.begin - next));
        next = std::min(range.end, end);
    }
    mac.update(bytes + (next - at), static_cast<size_t>(end - next));
}

// file_matches checks an open file against a seal.
bool file_matches(platform::FileHandle file, const ModuleSeal& seal) {
    constexpr size_t kPortion = 65536;
    const uint64_t sealedSize = number64(seal.fileSize);
    const uint64_t digestAt = number64(seal.digestAt);
    const int64_t fileSize = platform::file_length(file);
    if (fileSize < 0 || sealedSize > static_cast<uint64_t>(fileSize))
        return false;
    const uint64_t behind = static_cast<uint64_t>(fileSize) - sealedSize;

    SecretBuffer portion(kPortion);
    size_t size = platform::file_read(file, portion.data(), kPortion);
    SignedParts parts;
    if (size >= 2 && memcmp(portion.data(), "MZ", 2) == 0 && !read_signed_parts(portion.data(), size, parts))
        return false;
    // Only a table of certificates may follow the sealed file, and the entry must describe exactly that
    // table.
    if (parts.certificatesSize != behind || (behind != 0 && parts.certificates != sealedSize) ||
        (behind == 0 && parts.certificates != 0))
        return false;

    // In the order of the file: a PE file's head lies before its data.
    const Range ranges[] = {
        parts.checksum, parts.certificateEntry, {digestAt, digestAt + sizeof seal.digest}};
    SealMac mac(seal);
    uint64_t at = 0;
    while (size != 0 && at < sealedSize) {
        size = static_cast<size_t>(std::min<uint64_t>(size, sealedSize - at));
        digest_but(mac, at, portion.data(), size, ranges);
        at += size;
        size = platform::file_read(file, portion.data(), kPortion);
    }
    return mac.is(seal.digest) && at == sealedSize;
}

} // namespace

bool module_is_intact() {
    ModuleSeal seal = {};
    const auto* stored = reinterpret_cast<const volatile uint8_t*>(&kModuleSeal);
    auto* copy = reinterpret_cast<uint8_t*>(&seal);
    for (size_t i = 0; i < sizeof seal; i++)
        copy[i] = stored[i];

    const File file(platform::module_file());
    return file.is_open() && file_matches(file.handle(), seal);
}

} // namespace zul
