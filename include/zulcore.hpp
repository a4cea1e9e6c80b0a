// zulcore.hpp: the interface of zulcore for C++17 and later, over zulcore.h, whose comments have every
// detail. Header only: link the module.
//
//  - Every failure is an exception of type zulcore::Error, whatever the convention of the C function.
//  - Bytes come in as ByteView: any container of bytes, an array of unsigned char, pointer and size, or a
//    text without its NUL. More than INT_MAX bytes are refused.
//  - Texts come in as std::string_view. One with a zero byte in it is refused. Names of files are in the
//    system's encoding (UTF-8 on Linux, the ANSI code page on Windows), all other texts are UTF-8.
//  - Secrets come out in SecretBytes, SecretText and Key, which wipe their memory.
//  - "flags" are the options of the C functions beside those that a parameter stands for.
#ifndef ZULCORE_HPP
#define ZULCORE_HPP

#include <array>
#include <climits>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iosfwd>
#include <iterator>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#ifdef _WIN32
#include <direct.h>
#else
#include <unistd.h>
#endif

#include "zulcore.h"
#include "zulcore_errors.hpp"

namespace zulcore {

// --- errors ------------------------------------------------------------------------------------------------

// Error is what a call fails with. what() has all of it.
class Error : public std::runtime_error {
  public:
    Error(int code, const std::string& detail)
        : std::runtime_error(describe(code, detail)), code_(code), detail_(detail) {}

    [[nodiscard]] int code() const noexcept { return code_; }                     // DECRYPT_ERROR
    [[nodiscard]] const char* name() const noexcept { return error_name(code_); } // "DECRYPT_ERROR"
    [[nodiscard]] std::string text() const { return text_of_code(code_); }
    // What the call had to say about it, often nothing.
    [[nodiscard]] const char* detail() const noexcept { return detail_.what(); }

  private:
    static std::string text_of_code(int code) {
        std::array<char, 256> text{};
        ZUL_ErrorLookup(text.data(), static_cast<int>(text.size()), code);
        return text.data();
    }
    static std::string describe(int code, const std::string& detail) {
        std::string all = error_name(code);
        if (all.empty())
            all = "error " + std::to_string(code);
        const std::string text = text_of_code(code);
        if (!text.empty())
            all += ": " + text;
        return detail.empty() ? all : all + " (" + detail + ")";
    }

    int code_;
    std::runtime_error detail_; // a text that can be copied without an exception
};

namespace detail {

// fail throws the code of the call that has just failed in this thread, with the call's own text.
[[noreturn]] inline void fail(int code) {
    std::array<char, 512> text{};
    ZUL_LastError(text.data(), static_cast<int>(text.size()) - 1);
    throw Error(code, text.data());
}

// "Length": 0 or more, or a negated code.
inline std::size_t length(int result) {
    if (result < 0)
        fail(-result);
    return static_cast<std::size_t>(result);
}

// "Status": 0, or a code of either sign.
inline void status(int result) {
    if (result != 0)
        fail(result < 0 ? -result : result);
}

inline int size_of(std::size_t size) {
    if (size > static_cast<std::size_t>(INT_MAX) - 1)
        throw Error(OUT_OF_RANGE_ERROR, "more bytes than one call takes");
    return static_cast<int>(size);
}

template<class T>
inline constexpr bool isByte =
    std::is_same_v<T, unsigned char> || std::is_same_v<T, char> || std::is_same_v<T, std::byte>;

} // namespace detail

// --- bytes and secrets -------------------------------------------------------------------------------------

// ByteView is a look at bytes that somebody else owns, as std::span<const unsigned char>, which it converts
// to and from.
class ByteView {
  public:
    using value_type = unsigned char;
    using const_iterator = const unsigned char*;

    constexpr ByteView() noexcept = default;
    ByteView(const void* data, std::size_t size) noexcept
        : data_(static_cast<const unsigned char*>(data)), size_(size) {}
    // A text up to its NUL. An array of char is one; a view of all of it takes pointer and size.
    ByteView(const char* text) noexcept
        : ByteView(text, text != nullptr ? std::char_traits<char>::length(text) : 0) {}
    template<class Byte, std::size_t size,
             class = std::enable_if_t<detail::isByte<std::remove_cv_t<Byte>> &&
                                      !std::is_same_v<std::remove_cv_t<Byte>, char>>>
    ByteView(Byte (&array)[size]) noexcept : ByteView(static_cast<const void*>(array), size) {}
    template<class Container,
             class Byte =
                 std::remove_cv_t<std::remove_pointer_t<decltype(std::declval<const Container&>().data())>>,
             class = std::enable_if_t<detail::isByte<Byte> && !std::is_same_v<Container, ByteView>>>
    ByteView(const Container& bytes) noexcept(noexcept(bytes.data()))
        : ByteView(static_cast<const void*>(bytes.data()), bytes.size()) {}

    [[nodiscard]] constexpr const unsigned char* data() const noexcept { return data_; }
    [[nodiscard]] constexpr std::size_t size() const noexcept { return size_; }
    [[nodiscard]] constexpr bool empty() const noexcept { return size_ == 0; }
    [[nodiscard]] constexpr const unsigned char* begin() const noexcept { return data_; }
    [[nodiscard]] constexpr const unsigned char* end() const noexcept { return data_ + size_; }
    constexpr unsigned char operator[](std::size_t index) const noexcept { return data_[index]; }

  private:
    const unsigned char* data_ = nullptr;
    std::size_t size_ = 0;
};

// wipe overwrites memory.
inline void wipe(void* data, std::size_t size) noexcept {
    constexpr std::size_t most = INT_MAX;
    auto* at = static_cast<unsigned char*>(data);
    while (size > 0) {
        const std::size_t part = size < most ? size : most;
        WIPE_Data(at, static_cast<int>(part));
        at += part;
        size -= part;
    }
}

// WipingAllocator overwrites all memory that a container gives back.
template<class T>
struct WipingAllocator {
    using value_type = T;

    WipingAllocator() noexcept = default;
    template<class U>
    WipingAllocator(const WipingAllocator<U>&) noexcept {}

    [[nodiscard]] T* allocate(std::size_t count) { return std::allocator<T>().allocate(count); }
    void deallocate(T* memory, std::size_t count) noexcept {
        wipe(memory, count * sizeof(T));
        std::allocator<T>().deallocate(memory, count);
    }
    template<class U>
    bool operator==(const WipingAllocator<U>&) const noexcept {
        return true;
    }
    template<class U>
    bool operator!=(const WipingAllocator<U>&) const noexcept {
        return false;
    }
};

using Bytes = std::vector<unsigned char>;
using SecretBytes = std::vector<unsigned char, WipingAllocator<unsigned char>>;

// SecretText is a text that is wiped at its end. It cannot be copied by accident and has no operator<<.
class SecretText {
  public:
    SecretText() = default;
    explicit SecretText(std::string_view text) : text_(text.begin(), text.end()) { text_.push_back('\0'); }
    SecretText(SecretText&&) noexcept = default;
    SecretText& operator=(SecretText&&) noexcept = default;
    SecretText(const SecretText&) = delete;
    SecretText& operator=(const SecretText&) = delete;
    ~SecretText() = default;

    [[nodiscard]] const char* c_str() const noexcept { return text_.empty() ? "" : text_.data(); }
    [[nodiscard]] const char* data() const noexcept { return c_str(); }
    [[nodiscard]] std::size_t size() const noexcept { return text_.empty() ? 0 : text_.size() - 1; }
    [[nodiscard]] bool empty() const noexcept { return size() == 0; }
    operator std::string_view() const noexcept { return {c_str(), size()}; }

    void clear() noexcept { std::vector<char, WipingAllocator<char>>().swap(text_); }

  private:
    std::vector<char, WipingAllocator<char>> text_; // with its NUL, or empty
};

namespace detail {

// Text is an argument of the C interface: with a NUL, and without a zero byte that would cut it.
class Text {
  public:
    explicit Text(std::string_view text) : text_(text) {
        if (text.find('\0') != std::string_view::npos)
            throw Error(BAD_PARAM_ERROR, "a text with a zero byte in it");
        static_cast<void>(size_of(text.size()));
    }
    [[nodiscard]] const char* c_str() const noexcept { return text_.c_str(); }

  private:
    SecretText text_;
};

// OptionalText is null if there is none.
class OptionalText {
  public:
    explicit OptionalText(std::optional<std::string_view> text) {
        if (text)
            text_.emplace(*text);
    }
    [[nodiscard]] const char* c_str() const noexcept { return text_ ? text_->c_str() : nullptr; }

  private:
    std::optional<Text> text_;
};

// certificate_or_none: whoever wants none has to say so; an empty text is a mistake.
inline OptionalText certificate_or_none(std::optional<std::string_view> certificate) {
    if (certificate && certificate->empty())
        throw Error(BAD_PARAM_ERROR, "an empty text for a certificate");
    return OptionalText(certificate);
}

inline int size_of(ByteView bytes) {
    return size_of(bytes.size());
}

// not_null gives an address even for no bytes, where the C functions refuse null.
inline const unsigned char* not_null(ByteView bytes) noexcept {
    static constexpr unsigned char nothing = 0;
    return bytes.data() != nullptr ? bytes.data() : &nothing;
}

// text_of asks call(output, room) for the length, then for the text.
template<class Call>
std::string text_of(const Call& call) {
    const std::size_t most = length(call(nullptr, 0));
    std::string text(most + 1, '\0');
    text.resize(length(call(text.data(), size_of(most))));
    return text;
}

template<class Call>
SecretText secret_text(std::size_t most, const Call& call) {
    std::vector<char, WipingAllocator<char>> text(most + 1);
    const std::size_t size = length(call(text.data(), size_of(most)));
    return SecretText(std::string_view(text.data(), size));
}

// bytes_of is text_of for bytes. The room is a byte larger, since one of 0 bytes would be a query again.
template<class Buffer, class Call>
Buffer bytes_of(const Call& call) {
    Buffer bytes(length(call(nullptr, 0)) + 1);
    bytes.resize(length(call(bytes.data(), size_of(bytes.size()))));
    return bytes;
}

} // namespace detail

// --- the module --------------------------------------------------------------------------------------------

[[nodiscard]] inline int version() noexcept {
    return ZUL_Version(nullptr, nullptr);
}

[[nodiscard]] inline std::string module_path() {
    return detail::text_of([](char* out, int room) { return ZUL_ModuleName(out, room, 0); });
}

// self_test repeats the tests that the module ran when it was loaded.
inline void self_test() {
    detail::status(ZUL_PowerUpTests(0));
}

// wipe_file overwrites a file and deletes it.
inline void wipe_file(std::string_view file) {
    const detail::Text name(file);
    detail::status(WIPE_File(name.c_str(), 0));
}

// --- hex and base64 ----------------------------------------------------------------------------------------

[[nodiscard]] inline std::string to_hex(ByteView bytes) {
    const int size = detail::size_of(bytes);
    std::string text = detail::text_of(
        [&](char* out, int room) { return CNV_HexStrFromBytes(out, room, detail::not_null(bytes), size); });
    for (char& digit : text)
        digit = static_cast<char>(digit | 0x20); // small letters; digits stay
    return text;
}

// from_hex and from_base64 skip what is not of their alphabet.
[[nodiscard]] inline Bytes from_hex(std::string_view hex) {
    const detail::Text text(hex);
    return detail::bytes_of<Bytes>(
        [&](unsigned char* out, int room) { return CNV_BytesFromHexStr(out, room, text.c_str()); });
}

[[nodiscard]] inline std::string to_base64(ByteView bytes) {
    const int size = detail::size_of(bytes);
    return detail::text_of(
        [&](char* out, int room) { return CNV_B64StrFromBytes(out, room, detail::not_null(bytes), size); });
}

[[nodiscard]] inline Bytes from_base64(std::string_view base64) {
    const detail::Text text(base64);
    return detail::bytes_of<Bytes>(
        [&](unsigned char* out, int room) { return CNV_BytesFromB64Str(out, room, text.c_str()); });
}

// --- random numbers ----------------------------------------------------------------------------------------

inline void random_fill(void* data, std::size_t size) {
    constexpr std::size_t most = 65536;
    auto* at = static_cast<unsigned char*>(data);
    while (size > 0) {
        const std::size_t part = size < most ? size : most;
        detail::status(RNG_Bytes(at, static_cast<int>(part), nullptr, 0));
        at += part;
        size -= part;
    }
}

[[nodiscard]] inline SecretBytes random_bytes(std::size_t size) {
    SecretBytes bytes(size);
    random_fill(bytes.data(), size);
    return bytes;
}

// random_number gives a number from lowest to highest, both included.
[[nodiscard]] inline int random_number(int lowest, int highest) {
    if (highest < lowest || static_cast<long long>(highest) - lowest >= UINT_MAX)
        throw Error(OUT_OF_RANGE_ERROR, "no such range of random numbers");
    return RNG_Number(lowest, highest);
}

// --- digests and MACs --------------------------------------------------------------------------------------

// Hash is a digest of data in pieces. A copy continues from the same point. Algorithms: "sha256", "sha224",
// "sha384", "sha512", "sha512-256", "sha3-224" to "sha3-512", "shake128", "shake256", "sha1", "md5", "md2".
class Hash {
  public:
    explicit Hash(std::string_view algorithm = "sha256") {
        const detail::Text name(algorithm);
        context_.resize(detail::length(HASH_Begin(nullptr, 0, name.c_str(), 0)));
        detail::length(HASH_Begin(context_.data(), detail::size_of(context_.size()), name.c_str(), 0));
    }

    Hash& add(ByteView data) {
        detail::status(HASH_Add(context_.data(), detail::not_null(data), detail::size_of(data)));
        return *this;
    }

    // end gives the digest, after which nothing can be added. size: of the output of "shake128" and
    // "shake256", or to cut another digest; 0 for the usual one.
    [[nodiscard]] Bytes end(std::size_t size = 0) {
        if (size == 0)
            size = detail::length(HASH_End(nullptr, 0, context_.data()));
        Bytes digest(size);
        digest.resize(detail::length(HASH_End(digest.data(), detail::size_of(size), context_.data())));
        return digest;
    }

  private:
    SecretBytes context_;
};

// Hmac is a MAC of data in pieces.
class Hmac {
  public:
    explicit Hmac(ByteView key, std::string_view algorithm = "sha256") {
        const detail::Text name(algorithm);
        const int size = detail::size_of(key);
        context_.resize(detail::length(HMAC_Begin(nullptr, 0, detail::not_null(key), size, name.c_str(), 0)));
        detail::length(HMAC_Begin(context_.data(), detail::size_of(context_.size()), detail::not_null(key),
                                  size, name.c_str(), 0));
    }

    Hmac& add(ByteView data) {
        detail::status(HMAC_Add(context_.data(), detail::not_null(data), detail::size_of(data)));
        return *this;
    }

    [[nodiscard]] Bytes end() {
        return detail::bytes_of<Bytes>(
            [&](unsigned char* out, int room) { return HMAC_End(out, room, context_.data()); });
    }

  private:
    SecretBytes context_;
};

namespace detail {

// add_file gives a file's content to a digest or MAC.
template<class Digest>
void add_file(Digest& digest, std::string_view file) {
    const Text name(file);
    std::ifstream in(name.c_str(), std::ios::binary);
    if (!in)
        throw Error(OPEN_ERROR, name.c_str());
    SecretBytes piece(65536);
    do {
        in.read(reinterpret_cast<char*>(piece.data()), static_cast<std::streamsize>(piece.size()));
        if (in.bad())
            throw Error(READ_ERROR, name.c_str());
        digest.add(ByteView(piece.data(), static_cast<std::size_t>(in.gcount())));
    } while (in);
}

} // namespace detail

[[nodiscard]] inline Bytes hash(ByteView data, std::string_view algorithm = "sha256") {
    return Hash(algorithm).add(data).end();
}
[[nodiscard]] inline Bytes hash_file(std::string_view file, std::string_view algorithm = "sha256") {
    Hash digest(algorithm);
    detail::add_file(digest, file);
    return digest.end();
}
[[nodiscard]] inline std::string hash_hex(ByteView data, std::string_view algorithm = "sha256") {
    return to_hex(hash(data, algorithm));
}
[[nodiscard]] inline std::string hash_file_hex(std::string_view file, std::string_view algorithm = "sha256") {
    return to_hex(hash_file(file, algorithm));
}
[[nodiscard]] inline Bytes hmac(ByteView key, ByteView data, std::string_view algorithm = "sha256") {
    return Hmac(key, algorithm).add(data).end();
}
[[nodiscard]] inline std::string hmac_hex(ByteView key, ByteView data,
                                          std::string_view algorithm = "sha256") {
    return to_hex(hmac(key, data, algorithm));
}

// --- keys from passwords and from other keys ---------------------------------------------------------------

namespace detail {

template<class Call>
SecretBytes derive(std::size_t size, const Call& call) {
    SecretBytes key(size);
    length(call(key.data(), size_of(size)));
    return key;
}

} // namespace detail

[[nodiscard]] inline SecretBytes pbkdf2(std::size_t size, ByteView password, ByteView salt,
                                        int iterations = 600000, std::string_view hash = "sha256") {
    const detail::Text name(hash);
    return detail::derive(size, [&](unsigned char* out, int room) {
        return KDF_Pbkdf2(out, room, password.data(), detail::size_of(password), salt.data(),
                          detail::size_of(salt), iterations, name.c_str());
    });
}

[[nodiscard]] inline SecretBytes hkdf(std::size_t size, ByteView key, ByteView salt = {}, ByteView info = {},
                                      std::string_view hash = "sha256") {
    const detail::Text name(hash);
    return detail::derive(size, [&](unsigned char* out, int room) {
        return KDF_Hkdf(out, room, key.data(), detail::size_of(key), salt.data(), detail::size_of(salt),
                        info.data(), detail::size_of(info), name.c_str());
    });
}

[[nodiscard]] inline SecretBytes scrypt(std::size_t size, ByteView password, ByteView salt, int n = 131072,
                                        int r = 8, int p = 1) {
    return detail::derive(size, [&](unsigned char* out, int room) {
        return KDF_Scrypt(out, room, password.data(), detail::size_of(password), salt.data(),
                          detail::size_of(salt), n, r, p);
    });
}

[[nodiscard]] inline SecretBytes argon2id(std::size_t size, ByteView password, ByteView salt,
                                          int memoryKiB = 65536, int passes = 3, int lanes = 4) {
    return detail::derive(size, [&](unsigned char* out, int room) {
        return KDF_Argon2id(out, room, password.data(), detail::size_of(password), salt.data(),
                            detail::size_of(salt), memoryKiB, passes, lanes);
    });
}

// --- authenticated encryption ------------------------------------------------------------------------------

namespace detail {

using AeadFunction = decltype(&AEAD_Encrypt);

template<class Buffer>
Buffer aead(AeadFunction function, ByteView key, ByteView nonce, ByteView input, ByteView aad,
            std::string_view algorithm, int options) {
    const Text name(algorithm);
    return bytes_of<Buffer>([&](unsigned char* out, int room) {
        return function(out, room, not_null(input), size_of(input), not_null(key), size_of(key), nonce.data(),
                        size_of(nonce), aad.data(), size_of(aad), name.c_str(), options);
    });
}

} // namespace detail

// aead_encrypt puts a random nonce in front of the output and a tag behind it. Algorithms: "aes-128-gcm",
// "aes-192-gcm", "aes-256-gcm", "chacha20-poly1305", "aes-256-gcm-siv".
[[nodiscard]] inline Bytes aead_encrypt(ByteView key, ByteView data, ByteView aad = {},
                                        std::string_view algorithm = "aes-256-gcm") {
    return detail::aead<Bytes>(AEAD_Encrypt, key, {}, data, aad, algorithm, ZUL_AEAD_RANDOM_NONCE);
}
[[nodiscard]] inline SecretBytes aead_decrypt(ByteView key, ByteView data, ByteView aad = {},
                                              std::string_view algorithm = "aes-256-gcm") {
    return detail::aead<SecretBytes>(AEAD_Decrypt, key, {}, data, aad, algorithm, ZUL_AEAD_RANDOM_NONCE);
}

// The caller's nonce is not in the output, and may serve for one message of a key only.
[[nodiscard]] inline Bytes aead_encrypt_with_nonce(ByteView key, ByteView nonce, ByteView data,
                                                   ByteView aad = {},
                                                   std::string_view algorithm = "aes-256-gcm") {
    return detail::aead<Bytes>(AEAD_Encrypt, key, nonce, data, aad, algorithm, 0);
}
[[nodiscard]] inline SecretBytes aead_decrypt_with_nonce(ByteView key, ByteView nonce, ByteView data,
                                                         ByteView aad = {},
                                                         std::string_view algorithm = "aes-256-gcm") {
    return detail::aead<SecretBytes>(AEAD_Decrypt, key, nonce, data, aad, algorithm, 0);
}

// --- files that are not secret -----------------------------------------------------------------------------

namespace detail {

// PublicFile is a file in a folder that nobody else can enter, for what the C interface writes to files
// alone: public keys, certificates, encrypted messages. Both are removed at its end.
class PublicFile {
  public:
    PublicFile() {
#ifdef _WIN32
        const char* temp = std::getenv("TEMP");
        for (int tries = 0; folder_.empty() && tries < 16; ++tries) {
            const std::string name =
                std::string(temp != nullptr ? temp : ".") + "\\zulcore-" + to_hex(random_bytes(12));
            if (_mkdir(name.c_str()) == 0)
                folder_ = name;
        }
#else
        const char* temp = std::getenv("TMPDIR");
        std::string name = std::string(temp != nullptr && *temp != '\0' ? temp : "/tmp") + "/zulcore-XXXXXX";
        if (mkdtemp(name.data()) != nullptr)
            folder_ = name;
#endif
        if (folder_.empty())
            throw Error(CREATE_ERROR, "no temporary folder");
        name_ = folder_ + "/file";
    }
    PublicFile(const PublicFile&) = delete;
    PublicFile& operator=(const PublicFile&) = delete;
    ~PublicFile() {
        static_cast<void>(std::remove(name_.c_str()));
#ifdef _WIN32
        static_cast<void>(_rmdir(folder_.c_str()));
#else
        static_cast<void>(rmdir(folder_.c_str()));
#endif
    }

    [[nodiscard]] const char* c_str() const noexcept {
        return name_.c_str();
    }
    [[nodiscard]] std::string content() const {
        std::ifstream in(name_, std::ios::binary);
        std::string all{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
        if (!in)
            throw Error(READ_ERROR, name_);
        return all;
    }

  private:
    std::string folder_, name_;
};

// content_of gives what call(file) writes to a file.
template<class Call>
std::string content_of(const Call& call) {
    const PublicFile file;
    status(call(file.c_str()));
    return file.content();
}

// The longest key string has 90,000 characters.
inline constexpr std::size_t kLongestKey = 90000;

} // namespace detail

// --- keys --------------------------------------------------------------------------------------------------

// Key is a private or public key of any kind. It owns a key string, which only this process can open, and
// wipes it.
class Key {
  public:
    // generate makes a private key: "rsa" (3072 bits), "rsa-N", "p-256", "p-384", "p-521", "ed25519" or
    // "x25519".
    [[nodiscard]] static Key generate(std::string_view algorithm) {
        const detail::Text name(algorithm);
        const std::size_t most = detail::length(KEY_Make(nullptr, 0, name.c_str(), 0));
        return Key(detail::secret_text(
            most, [&](char* out, int room) { return KEY_Make(out, room, name.c_str(), 0); }));
    }

    // read takes the name of a file of DER, PEM or base64, or such a text. Of a certificate it reads the
    // public key.
    [[nodiscard]] static Key read(std::string_view fileOrText,
                                  std::optional<std::string_view> password = std::nullopt) {
        const detail::Text source(fileOrText);
        const detail::OptionalText secret(password);
        // A query would derive the key from the password a second time.
        return Key(detail::secret_text(detail::kLongestKey, [&](char* out, int room) {
            return KEY_Read(out, room, source.c_str(), secret.c_str(), 0);
        }));
    }

    // from_key_string takes over a key string of the C interface, unseen.
    [[nodiscard]] static Key from_key_string(SecretText keyString) { return Key(std::move(keyString)); }

    // save writes PEM: a private key encrypted under a password, a public key without one. Parameters: as in
    // KEY_Save, "kdf=scrypt". Flags: ZUL_KEY_FORMAT_PEM, or 0 for DER.
    void save(std::string_view file, std::optional<std::string_view> password = std::nullopt,
              std::string_view parameters = {}, int flags = ZUL_KEY_FORMAT_PEM) const {
        if (!password && isPrivate())
            throw Error(BAD_PARAM_ERROR,
                        "a private key without a password: save_unencrypted writes such files");
        const detail::Text name(file), text(parameters);
        const detail::OptionalText secret(password);
        detail::status(KEY_Save(name.c_str(), c_str(), secret.c_str(), text.c_str(), flags));
    }
    // save_unencrypted writes a private key as it is. Flags: also ZUL_KEY_FORMAT_OWN.
    void save_unencrypted(std::string_view file, int flags = ZUL_KEY_FORMAT_PEM) const {
        const detail::Text name(file);
        detail::status(KEY_Save(name.c_str(), c_str(), nullptr, nullptr, flags));
    }

    [[nodiscard]] Key public_key() const {
        const std::size_t most = detail::length(KEY_Public(nullptr, 0, c_str()));
        return Key(
            detail::secret_text(most, [&](char* out, int room) { return KEY_Public(out, room, c_str()); }));
    }

    // public_pem is the public key as PEM "PUBLIC KEY".
    [[nodiscard]] std::string public_pem() const {
        const Key key = public_key();
        return detail::content_of([&](const char* file) {
            return KEY_Save(file, key.c_str(), nullptr, nullptr, ZUL_KEY_FORMAT_PEM);
        });
    }

    [[nodiscard]] std::string algorithm() const { return query("algorithm"); } // "rsa", "ec", "ed25519" ...
    [[nodiscard]] std::string curve() const { return query("curve"); }         // "p-256"; empty for RSA
    [[nodiscard]] std::string fingerprint() const { return query("fingerprint"); }
    [[nodiscard]] int bits() const { return number("bits"); }
    [[nodiscard]] bool isPrivate() const { return number("isPrivate") != 0; }

    // matches tells whether this private key belongs to that key, of which the public part counts.
    [[nodiscard]] bool matches(const Key& other) const {
        const int result = KEY_Match(c_str(), other.c_str());
        if (result != NO_MATCH_ERROR)
            detail::status(result);
        return result == 0;
    }

    // check throws if the key's values are not valid or do not belong together.
    void check() const { detail::status(KEY_Check(c_str(), 0)); }

    // sign: the default algorithm is that of the kind of key. Flags: ZUL_SIG_RAW, ZUL_SIG_DETERMINISTIC.
    [[nodiscard]] Bytes sign(ByteView data, std::string_view algorithm = {}, int flags = 0) const {
        const detail::Text name(algorithm);
        return detail::bytes_of<Bytes>([&](unsigned char* out, int room) {
            return SIG_Sign(out, room, detail::not_null(data), detail::size_of(data), c_str(), name.c_str(),
                            flags);
        });
    }
    [[nodiscard]] Bytes sign_file(std::string_view file, std::string_view algorithm = {},
                                  int flags = 0) const {
        const detail::Text source(file), name(algorithm);
        return detail::bytes_of<Bytes>([&](unsigned char* out, int room) {
            return SIG_SignFile(out, room, source.c_str(), c_str(), name.c_str(), flags);
        });
    }
    [[nodiscard]] Bytes sign_digest(ByteView digest, std::string_view algorithm = {}, int flags = 0) const {
        const detail::Text name(algorithm);
        return detail::bytes_of<Bytes>([&](unsigned char* out, int room) {
            return SIG_SignDigest(out, room, detail::not_null(digest), detail::size_of(digest), c_str(),
                                  name.c_str(), flags);
        });
    }

    // verify throws SIGNATURE_ERROR if the signature is not that of the data.
    void verify(ByteView signature, ByteView data, std::string_view algorithm = {}, int flags = 0) const {
        const detail::Text name(algorithm);
        detail::status(SIG_Verify(detail::not_null(signature), detail::size_of(signature),
                                  detail::not_null(data), detail::size_of(data), c_str(), name.c_str(),
                                  flags));
    }
    void verify_file(ByteView signature, std::string_view file, std::string_view algorithm = {},
                     int flags = 0) const {
        const detail::Text source(file), name(algorithm);
        detail::status(SIG_VerifyFile(detail::not_null(signature), detail::size_of(signature), source.c_str(),
                                      c_str(), name.c_str(), flags));
    }
    void verify_digest(ByteView signature, ByteView digest, std::string_view algorithm = {},
                       int flags = 0) const {
        const detail::Text name(algorithm);
        detail::status(SIG_VerifyDigest(detail::not_null(signature), detail::size_of(signature),
                                        detail::not_null(digest), detail::size_of(digest), c_str(),
                                        name.c_str(), flags));
    }

    // agree computes the secret shared with the owner of another key; derive keys from it (hkdf).
    [[nodiscard]] SecretBytes agree(const Key& other) const {
        return detail::bytes_of<SecretBytes>(
            [&](unsigned char* out, int room) { return KEY_Agree(out, room, c_str(), other.c_str(), 0); });
    }

    // describe tells kind and bits, nothing secret: "private p-256 key, 256 bits".
    [[nodiscard]] std::string describe() const {
        if (string_.empty())
            return "no key";
        const std::string name = curve();
        return std::string(isPrivate() ? "private " : "public ") + (name.empty() ? algorithm() : name) +
               " key, " + std::to_string(bits()) + " bits";
    }

    // The key string, for functions of the C interface.
    [[nodiscard]] const char* c_str() const noexcept { return string_.c_str(); }

    // close wipes the key; later calls fail.
    void close() noexcept { string_.clear(); }

  private:
    explicit Key(SecretText string) : string_(std::move(string)) {}

    std::string query(const char* what) const {
        return detail::text_of([&](char* out, int room) { return KEY_Query(out, room, c_str(), what, 0); });
    }
    int number(const char* what) const {
        return static_cast<int>(detail::length(KEY_Query(nullptr, 0, c_str(), what, 0)));
    }

    SecretText string_;
};

inline std::ostream& operator<<(std::ostream& out, const Key& key) {
    return out << key.describe();
}

// --- files encrypted in the format of age ------------------------------------------------------------------

namespace seal {

[[nodiscard]] inline SecretText make_identity() {
    return detail::secret_text(74, [](char* out, int room) { return SEAL_MakeIdentity(out, room, 0); });
}

// recipient gives the public key, "age1...", of an identity or of a file of one.
[[nodiscard]] inline std::string recipient(std::string_view identity) {
    const detail::Text secret(identity);
    return detail::text_of([&](char* out, int room) { return SEAL_Recipient(out, room, secret.c_str()); });
}

// Recipients and identities are lists joined by ";" of keys and of files of keys. Flags: ZUL_SEAL_ARMOUR.
inline void seal_file(std::string_view out, std::string_view in, std::string_view recipients, int flags = 0) {
    const detail::Text target(out), source(in), keys(recipients);
    detail::status(SEAL_File(target.c_str(), source.c_str(), keys.c_str(), nullptr, flags));
}
inline void seal_file_with_password(std::string_view out, std::string_view in, std::string_view password,
                                    int flags = 0) {
    const detail::Text target(out), source(in), secret(password);
    detail::status(SEAL_File(target.c_str(), source.c_str(), nullptr, secret.c_str(), flags));
}
inline void open_file(std::string_view out, std::string_view in, std::string_view identities, int flags = 0) {
    const detail::Text target(out), source(in), keys(identities);
    detail::status(SEAL_OpenFile(target.c_str(), source.c_str(), keys.c_str(), nullptr, flags));
}
inline void open_file_with_password(std::string_view out, std::string_view in, std::string_view password,
                                    int flags = 0) {
    const detail::Text target(out), source(in), secret(password);
    detail::status(SEAL_OpenFile(target.c_str(), source.c_str(), nullptr, secret.c_str(), flags));
}

} // namespace seal

// --- certificates ------------------------------------------------------------------------------------------

// Certificates, requests and CRLs are texts (PEM) or names of files. Descriptions are keyword=value pairs
// joined by ";", as "CN=www.example.com;dns=www.example.com;profile=server". The functions whose names end
// with _file write a file, PEM unless the flag ZUL_CERT_DER is given; the others give PEM.
namespace cert {

inline void self_sign_file(std::string_view out, const Key& key, std::string_view description,
                           int flags = 0) {
    const detail::Text name(out), text(description);
    detail::status(CERT_SelfSign(name.c_str(), key.c_str(), text.c_str(), flags));
}
[[nodiscard]] inline std::string self_sign(const Key& key, std::string_view description) {
    const detail::Text text(description);
    return detail::content_of(
        [&](const char* file) { return CERT_SelfSign(file, key.c_str(), text.c_str(), 0); });
}

// issue: the subject is a request, or a key in a file or text. Flags: ZUL_CERT_BEYOND_ISSUER.
inline void issue_file(std::string_view out, std::string_view issuer, const Key& issuerKey,
                       std::string_view subject, std::string_view description = {}, int flags = 0) {
    const detail::Text name(out), authority(issuer), source(subject), text(description);
    detail::status(
        CERT_Issue(name.c_str(), authority.c_str(), issuerKey.c_str(), source.c_str(), text.c_str(), flags));
}
[[nodiscard]] inline std::string issue(std::string_view issuer, const Key& issuerKey,
                                       std::string_view subject, std::string_view description = {},
                                       int flags = 0) {
    const detail::PublicFile file;
    issue_file(file.c_str(), issuer, issuerKey, subject, description, flags & ~ZUL_CERT_DER);
    return file.content();
}
[[nodiscard]] inline std::string issue(std::string_view issuer, const Key& issuerKey, const Key& subject,
                                       std::string_view description, int flags = 0) {
    return issue(issuer, issuerKey, std::string_view(subject.c_str()), description, flags);
}

inline void request_file(std::string_view out, const Key& key, std::string_view description, int flags = 0) {
    const detail::Text name(out), text(description);
    detail::status(CERT_Request(name.c_str(), key.c_str(), text.c_str(), flags));
}
[[nodiscard]] inline std::string request(const Key& key, std::string_view description) {
    const detail::PublicFile file;
    request_file(file.c_str(), key, description);
    return file.content();
}

// issue_crl: revoked and description as in CERT_IssueCRL, "serial=0a1b,reason=superseded" and "days=7".
inline void issue_crl_file(std::string_view out, std::string_view issuer, const Key& issuerKey,
                           std::string_view revoked, std::string_view description = {},
                           std::string_view earlier = {}, int flags = 0) {
    const detail::Text name(out), authority(issuer), list(revoked), text(description), before(earlier);
    detail::status(CERT_IssueCRL(name.c_str(), authority.c_str(), issuerKey.c_str(), before.c_str(),
                                 list.c_str(), text.c_str(), flags));
}
[[nodiscard]] inline std::string issue_crl(std::string_view issuer, const Key& issuerKey,
                                           std::string_view revoked, std::string_view description = {},
                                           std::string_view earlier = {}) {
    const detail::PublicFile file;
    issue_crl_file(file.c_str(), issuer, issuerKey, revoked, description, earlier);
    return file.content();
}

// query answers one question, "subject" or "notAfter"; several values are joined by line feeds.
[[nodiscard]] inline std::string query(std::string_view certificate, std::string_view what) {
    const detail::Text source(certificate), word(what);
    return detail::text_of(
        [&](char* out, int room) { return CERT_Query(out, room, source.c_str(), word.c_str(), 0); });
}

// report describes all fields, as text or with ZUL_CERT_JSON as JSON.
[[nodiscard]] inline std::string report(std::string_view certificate, int flags = 0) {
    const detail::Text source(certificate);
    return detail::text_of(
        [&](char* out, int room) { return CERT_Report(out, room, source.c_str(), flags); });
}

// check_name throws NO_MATCH_ERROR if a certificate is not for a host, address or mailbox.
inline void check_name(std::string_view certificate, std::string_view hostOrAddress, int flags = 0) {
    const detail::Text source(certificate), name(hostOrAddress);
    detail::status(CERT_CheckName(source.c_str(), name.c_str(), flags));
}

// PathError is the answer of a certificate that cannot be relied on, with the report.
class PathError : public Error {
  public:
    PathError(const Error& error, std::string report)
        : Error(error), report_(std::make_shared<const std::string>(std::move(report))) {}
    [[nodiscard]] const std::string& report() const noexcept { return *report_; }

  private:
    std::shared_ptr<const std::string> report_;
};

// PathCheck is what check_path takes, all as in CERT_CheckPath.
struct PathCheck {
    std::string certificate;
    std::string others = {};
    std::string trusted = {};
    std::string evidence = {};
    std::string conditions = {}; // "host=www.example.com;purpose=server"
    int flags = 0;               // ZUL_CERT_WEB, ZUL_CERT_SUBJECT_NAME, ZUL_CERT_JSON
};

// check_path returns the report if the certificate is valid, and throws PathError if it is not.
inline std::string check_path(const PathCheck& check) {
    const detail::Text certificate(check.certificate), others(check.others), trusted(check.trusted),
        evidence(check.evidence), conditions(check.conditions);
    constexpr std::size_t most = std::size_t{1} << 26;
    for (std::size_t room = std::size_t{1} << 20;; room = most) {
        std::string report(room + 1, '\0');
        try {
            const int result =
                CERT_CheckPath(report.data(), detail::size_of(room), certificate.c_str(), others.c_str(),
                               trusted.c_str(), evidence.c_str(), conditions.c_str(), check.flags);
            report.resize(std::char_traits<char>::length(report.c_str()));
            // A text that fills so much of the room may have been cut.
            if (room < most && (result == SHORT_BUF_ERROR || report.size() > room / 2))
                continue;
            detail::status(result);
        } catch (const Error& error) {
            throw PathError(error, std::move(report));
        }
        return report;
    }
}

} // namespace cert

// --- PKCS #12 ----------------------------------------------------------------------------------------------

namespace p12 {

// pack writes a file of a key and certificates, which are joined by ";". Flags: ZUL_P12_LEGACY,
// ZUL_P12_PBMAC1, ZUL_P12_TRUSTED, ZUL_KEY_FORMAT_PEM.
inline void pack(std::string_view out, std::string_view certificates, const Key& key,
                 std::string_view password, std::string_view name = {}, int flags = 0) {
    const detail::Text target(out), list(certificates), secret(password), label(name);
    detail::status(P12_Pack(target.c_str(), list.c_str(), key.c_str(), secret.c_str(), label.c_str(), flags));
}
inline void pack_certificates(std::string_view out, std::string_view certificates, std::string_view password,
                              std::string_view name = {}, int flags = 0) {
    const detail::Text target(out), list(certificates), secret(password), label(name);
    detail::status(P12_Pack(target.c_str(), list.c_str(), nullptr, secret.c_str(), label.c_str(), flags));
}

// unpack_key gives a private key: flags are its number, from 0, and ZUL_P12_NEED_MAC.
[[nodiscard]] inline Key unpack_key(std::string_view p12, std::string_view password, int flags = 0) {
    const detail::Text source(p12), secret(password);
    return Key::from_key_string(detail::secret_text(detail::kLongestKey, [&](char* out, int room) {
        detail::status(P12_Unpack(nullptr, out, room, source.c_str(), secret.c_str(), flags));
        return detail::size_of(std::char_traits<char>::length(out));
    }));
}

// unpack_certificates gives them as PEM, that of the key first.
[[nodiscard]] inline std::string unpack_certificates(std::string_view p12, std::string_view password,
                                                     int flags = 0) {
    const detail::Text source(p12), secret(password);
    return detail::content_of([&](const char* file) {
        return P12_Unpack(file, nullptr, 0, source.c_str(), secret.c_str(), flags);
    });
}

// list describes a file. Without a password it shows what is visible without one. Flags: ZUL_P12_JSON,
// ZUL_P12_NEED_MAC.
[[nodiscard]] inline std::string
list(std::string_view p12, std::optional<std::string_view> password = std::nullopt, int flags = 0) {
    const detail::Text source(p12);
    const detail::OptionalText secret(password);
    return detail::text_of(
        [&](char* out, int room) { return P12_List(out, room, source.c_str(), secret.c_str(), flags); });
}

} // namespace p12

// --- messages (CMS) with RSA keys --------------------------------------------------------------------------

namespace cms {

// Flags of a signature with the time of signing in it.
inline constexpr int kSignedWithAttributes = ZUL_HASH_SHA256 | ZUL_CMS_INCLUDE_ATTRS | ZUL_CMS_ADD_SIGNTIME;

// The certificates are joined by ";", the signer's first. Flags: ZUL_HASH_ and ZUL_CMS_ as in
// CMS_MakeSigData.
inline void sign_file(std::string_view out, std::string_view in, std::string_view certificates,
                      const Key& key, int flags = ZUL_HASH_SHA256) {
    const detail::Text target(out), source(in), list(certificates);
    detail::status(CMS_MakeSigData(target.c_str(), source.c_str(), list.c_str(), key.c_str(), flags));
}
inline void sign_text(std::string_view out, std::string_view text, std::string_view certificates,
                      const Key& key, int flags = ZUL_HASH_SHA256) {
    const detail::Text target(out), content(text), list(certificates);
    detail::status(
        CMS_MakeSigDataFromString(target.c_str(), content.c_str(), list.c_str(), key.c_str(), flags));
}

// sign_digest gives a signature of content that stays elsewhere, as base64; its digest is hash(content).
[[nodiscard]] inline std::string sign_digest(ByteView digest, std::string_view certificates, const Key& key,
                                             int flags = ZUL_HASH_SHA256) {
    const detail::Text list(certificates);
    const std::string hex = to_hex(digest);
    return detail::content_of([&](const char* file) {
        return CMS_MakeDetachedSig(file, hex.c_str(), list.c_str(), key.c_str(),
                                   flags | ZUL_CMS_FORMAT_BASE64);
    });
}

// verify throws SIGNATURE_ERROR if the message was not signed with that certificate's key. With std::nullopt
// anybody in the message can have signed. digest: of content that the message does not carry.
inline void verify(std::string_view message, std::optional<std::string_view> certificate,
                   ByteView digest = {}) {
    const detail::Text source(message);
    const detail::OptionalText signer = detail::certificate_or_none(certificate);
    const std::string hex = to_hex(digest);
    detail::status(CMS_VerifySigData(source.c_str(), signer.c_str(), hex.c_str(), 0));
}

// read gives the content of a signed message, which verify has to have checked.
[[nodiscard]] inline SecretBytes read(std::string_view message) {
    const detail::Text source(message);
    SecretBytes content(detail::length(CMS_ReadSigDataToString(nullptr, 0, source.c_str(), 0)) + 1);
    content.resize(detail::length(CMS_ReadSigDataToString(
        reinterpret_cast<char*>(content.data()), detail::size_of(content.size() - 1), source.c_str(), 0)));
    return content;
}

// encrypt_file serves every certificate of the list, or throws and leaves no file. Flags: the cipher,
// ZUL_CMS_FORMAT_BASE64.
inline void encrypt_file(std::string_view out, std::string_view in,
                         const std::vector<std::string>& certificates, int flags = ZUL_CMS_CIPHER_AES256) {
    std::string all;
    for (const std::string& certificate : certificates) {
        if (certificate.empty() || certificate.find(';') != std::string::npos)
            throw Error(BAD_PARAM_ERROR, "a certificate without a name, or with a ';' in it");
        all += certificate + ';';
    }
    if (certificates.empty() || certificates.size() > 10)
        throw Error(OUT_OF_RANGE_ERROR, "a message has 1 to 10 recipients");
    const detail::Text target(out), source(in), list(all);
    const std::size_t served =
        detail::length(CMS_MakeEnvData(target.c_str(), source.c_str(), list.c_str(), nullptr, 0, flags));
    if (served != certificates.size()) {
        std::remove(target.c_str());
        detail::fail(BAD_KEY_ERROR); // the text tells the certificate
    }
}

// decrypt gives the content, decrypt_file writes it. Whether it was changed cannot be told: verify a
// signature in it.
[[nodiscard]] inline SecretBytes decrypt(std::string_view message, const Key& key,
                                         std::string_view certificate = {}) {
    const detail::Text source(message), recipient(certificate);
    const auto call = [&](char* out, int room) {
        return CMS_ReadEnvDataToString(out, room, source.c_str(), recipient.c_str(), key.c_str(), 0);
    };
    SecretBytes content(detail::length(call(nullptr, 0)) + 1);
    content.resize(
        detail::length(call(reinterpret_cast<char*>(content.data()), detail::size_of(content.size() - 1))));
    return content;
}
inline void decrypt_file(std::string_view out, std::string_view message, const Key& key,
                         std::string_view certificate = {}) {
    const detail::Text target(out), source(message), recipient(certificate);
    detail::status(CMS_ReadEnvData(target.c_str(), source.c_str(), recipient.c_str(), key.c_str(), 0));
}

} // namespace cms

// --- OCSP --------------------------------------------------------------------------------------------------

namespace ocsp {

// request gives the DER of a request about one certificate, to be sent as application/ocsp-request. Many
// responders know no other digest of names than SHA-1.
[[nodiscard]] inline Bytes request(std::string_view issuer, std::string_view certificate,
                                   int flags = ZUL_HASH_SHA1) {
    const detail::Text authority(issuer), subject(certificate);
    if (issuer.empty() || certificate.empty()) // the one code that is not negated
        throw Error(BAD_PARAM_ERROR, "no issuer or certificate");
    return from_base64(detail::text_of([&](char* out, int room) {
        return OCSP_MakeRequest(out, room, authority.c_str(), subject.c_str(), nullptr, flags);
    }));
}

// read gives a report of a response, and throws SIGNATURE_ERROR if the issuer's key did not sign it. With
// std::nullopt the signature is not verified.
[[nodiscard]] inline std::string read(std::string_view response, std::optional<std::string_view> issuer) {
    const detail::Text source(response);
    const detail::OptionalText authority = detail::certificate_or_none(issuer);
    return detail::text_of([&](char* out, int room) {
        return OCSP_ReadResponse(out, room, source.c_str(), authority.c_str(), nullptr, 0);
    });
}

} // namespace ocsp

} // namespace zulcore

#endif
