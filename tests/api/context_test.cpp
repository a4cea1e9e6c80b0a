#include <algorithm>
#include <climits>
#include <string>

#include "support/module_calls.h"

namespace {

using test::Bytes;

int length_of(const Bytes& bytes) {
    return static_cast<int>(bytes.size());
}

Bytes some_bytes(int size, unsigned seed) {
    return test::sequence(static_cast<size_t>(size), seed);
}

// A context at an address of no alignment, which every use moves.
class Context {
  public:
    template<class Begin>
    explicit Context(const Begin& begin) : bytes_(static_cast<size_t>(begin(nullptr, 0)) + 1) {
        EXPECT_EQ(begin(memory(), size() - 1), -SHORT_BUF_ERROR);
        EXPECT_EQ(begin(memory(), size()), size());
    }
    void* at() {
        Bytes moved(bytes_);
        bytes_.swap(moved);
        moved.assign(moved.size(), 0xEE);
        return memory();
    }
    int size() const { return static_cast<int>(bytes_.size()) - 1; }
    unsigned char* memory() { return bytes_.data() + 1; }
    bool is_wiped() const { return Bytes(bytes_.begin() + 1, bytes_.end()) == Bytes(bytes_.size() - 1); }

  private:
    Bytes bytes_;
};

Context hash_context(const std::string& name) {
    return Context([&](void* memory, int size) { return HASH_Begin(memory, size, name.c_str(), 0); });
}
Context hmac_context(const std::string& name, const Bytes& key) {
    return Context([&](void* memory, int size) {
        return HMAC_Begin(memory, size, key.data(), length_of(key), name.c_str(), 0);
    });
}
Context cipher_context(int encrypts, const std::string& name, const Bytes& key, const Bytes& iv,
                       int options) {
    return Context([&](void* memory, int size) {
        return CIPHER_Begin(memory, size, encrypts, key.data(), length_of(key), iv.data(), length_of(iv),
                            name.c_str(), options);
    });
}

// in_pieces feeds data in pieces of 0, 1, 2 ... bytes more than the one before.
template<class Feed>
void in_pieces(const Bytes& data, int step, const Feed& feed) {
    for (int done = 0, piece = 0; done < length_of(data); piece += step) {
        const int size = std::min(piece, length_of(data) - done);
        feed(data.data() + done, size);
        done += size;
    }
}

// ciphered gives all that a context writes, or an empty result with the code of its end.
Bytes ciphered(Context context, const Bytes& data, int step, int* code) {
    Bytes out(data.size() + 64);
    int done = 0;
    in_pieces(data, step, [&](const unsigned char* piece, int size) {
        const int room = CIPHER_Add(nullptr, 0, context.at(), piece, size);
        if (room > 0) {
            EXPECT_EQ(CIPHER_Add(out.data() + done, room - 1, context.at(), piece, size), -SHORT_BUF_ERROR);
        }
        EXPECT_EQ(CIPHER_Add(out.data() + done, room, context.at(), piece, size), room);
        done += room;
    });
    // Where nothing is to be written the call without an output is the end.
    *code = CIPHER_End(nullptr, 0, context.at());
    EXPECT_LE(*code, 16);
    EXPECT_EQ(context.is_wiped(), *code <= 0);
    if (*code > 0)
        *code = CIPHER_End(out.data() + done, *code, context.at());
    EXPECT_TRUE(context.is_wiped());
    EXPECT_EQ(CIPHER_End(out.data() + done, 16, context.at()), -INVALID_DATA_ERROR);
    out.resize(*code < 0 ? 0 : static_cast<size_t>(done + *code));
    return out;
}

} // namespace

TEST(DigestContexts, EqualTheWholeCalls) {
    const struct {
        const char* name;
        int options;
    } rows[] = {{"SHA1", ZUL_HASH_SHA1},     {"sha-256", ZUL_HASH_SHA256}, {"sha224", ZUL_HASH_SHA224},
                {"Sha384", ZUL_HASH_SHA384}, {"sha512", ZUL_HASH_SHA512},  {"md5", ZUL_HASH_MD5}};
    const Bytes data = some_bytes(1500, 1), key = some_bytes(200, 2);
    for (const auto& row : rows) {
        for (const int step : {1, 37, 1500}) {
            Bytes expected(64), out(64), expectedMac(64), mac(64);
            Context hash = hash_context(row.name), hmac = hmac_context(row.name, key);
            in_pieces(data, step, [&](const unsigned char* piece, int size) {
                EXPECT_EQ(HASH_Add(hash.at(), size == 0 ? nullptr : piece, size), 0);
                EXPECT_EQ(HMAC_Add(hmac.at(), piece, size), 0);
            });
            const int length = HASH_Bytes(expected.data(), 64, data.data(), length_of(data), row.options);
            HMAC_Bytes(expectedMac.data(), 64, data.data(), length_of(data), key.data(), length_of(key),
                       row.options);
            EXPECT_EQ(HASH_End(nullptr, 0, hash.at()), length);
            EXPECT_EQ(HMAC_End(nullptr, 0, hmac.at()), length);
            EXPECT_EQ(HASH_End(out.data(), 64, hash.at()), length);
            EXPECT_EQ(HMAC_End(mac.data(), 64, hmac.at()), length);
            EXPECT_EQ(out, expected) << row.name << " " << step;
            EXPECT_EQ(mac, expectedMac) << row.name << " " << step;
            EXPECT_TRUE(hash.is_wiped() && hmac.is_wiped());
        }
    }
    // Outputs are cut; those of SHAKE are as long as the room, and begin alike.
    for (const char* const name : {"sha256", "shake128", "shake256"}) {
        Bytes whole(200), part(200);
        Context first = hash_context(name), second = hash_context(name);
        EXPECT_EQ(HASH_End(whole.data(), 200, first.at()), name[2] == 'a' && name[3] == 'k' ? 200 : 32);
        EXPECT_EQ(HASH_End(part.data(), 7, second.at()), 7);
        EXPECT_EQ(Bytes(part.begin(), part.begin() + 7), Bytes(whole.begin(), whole.begin() + 7));
        EXPECT_EQ(part[7], 0);
    }
}

TEST(CipherContexts, EqualTheWholeCallsAndUndoThem) {
    const struct {
        const char* name;
        int key, iv;
    } rows[] = {{"aes-128-ecb", 16, 0},  {"AES-128-cbc", 16, 16}, {"aes-192-ctr", 24, 16},
                {"aes-256-cfb", 32, 16}, {"aes-256-ofb", 32, 16}, {"tdea-ctr", 24, 8},
                {"3des-cbc", 24, 8},     {"des-ede3-cfb", 24, 8}};
    for (const auto& row : rows) {
        const Bytes key = some_bytes(row.key, 3), iv = some_bytes(row.iv, 4);
        for (const int size : {0, 16, 100, 960}) {
            for (const int step : {1, 13, 16, 960}) {
                SCOPED_TRACE(std::string(row.name) + " " + std::to_string(size) + " " + std::to_string(step));
                const Bytes data = some_bytes(size, 5);
                int code = 0;
                const Bytes out = ciphered(cipher_context(1, row.name, key, iv, 0), data, step, &code);
                EXPECT_GE(code, 0);
                EXPECT_EQ(ciphered(cipher_context(0, row.name, key, iv, 0), out, step + 3, &code), data);
                if (size != 960)
                    continue;
                Bytes expected(data.size());
                ASSERT_EQ(
                    CIPHER_Bytes(1, expected.data(), data.data(), size, key.data(), iv.data(), row.name, 0),
                    0);
                const Bytes plain =
                    ciphered(cipher_context(1, row.name, key, iv, ZUL_CIPHER_NO_PADDING), data, step, &code);
                EXPECT_EQ(plain, expected);
                if (plain.size() == out.size()) { // no pad: in place too
                    Context context = cipher_context(1, row.name, key, iv, 0);
                    Bytes inPlace = data;
                    int done = 0;
                    in_pieces(data, step, [&](const unsigned char*, int part) {
                        unsigned char* const at = inPlace.data() + done;
                        done += CIPHER_Add(at, part, context.at(), at, part);
                    });
                    EXPECT_EQ(inPlace, expected);
                }
                EXPECT_EQ(Bytes(out.begin(), out.begin() + size), expected);
                EXPECT_EQ(
                    ciphered(cipher_context(0, row.name, key, iv, ZUL_CIPHER_NO_PADDING), plain, step, &code),
                    data);
            }
        }
    }
}

TEST(CipherContexts, RefuseBadEnds) {
    const Bytes key = some_bytes(16, 3), iv = some_bytes(16, 4), data = some_bytes(32, 5);
    int code = 0;
    const auto context = [&](int encrypts, int options) {
        return cipher_context(encrypts, "aes-128-cbc", key, iv, options);
    };
    ciphered(context(1, ZUL_CIPHER_NO_PADDING), some_bytes(17, 6), 5, &code);
    EXPECT_EQ(code, -BAD_LENGTH_ERROR);
    for (const int size : {0, 15, 17}) {
        ciphered(context(0, 0), some_bytes(size, 6), 5, &code);
        EXPECT_EQ(code, -BAD_LENGTH_ERROR) << size;
    }
    // Pads of 0, of more than a block and of unequal bytes.
    for (const int last : {0, 17, 2}) {
        Bytes plain = data;
        plain.back() = static_cast<unsigned char>(last);
        plain[30] = 3;
        const Bytes out = ciphered(context(1, ZUL_CIPHER_NO_PADDING), plain, 32, &code);
        ciphered(context(0, 0), out, 7, &code);
        EXPECT_EQ(code, -DECRYPT_ERROR) << last;
    }
}

TEST(Contexts, ThatAreNotWholeAreRefused) {
    const Bytes key = some_bytes(16, 3);
    Bytes out(64);
    Context hash = hash_context("sha256"), hmac = hmac_context("sha256", key),
            cipher = cipher_context(1, "aes-128-ecb", key, {}, 0);
    const auto codes = [&](void* memory) {
        return Bytes{static_cast<unsigned char>(HASH_Add(memory, "a", 1)),
                     static_cast<unsigned char>(-HASH_End(out.data(), 64, memory)),
                     static_cast<unsigned char>(HMAC_Add(memory, "a", 1)),
                     static_cast<unsigned char>(-HMAC_End(out.data(), 64, memory)),
                     static_cast<unsigned char>(-CIPHER_Add(out.data(), 64, memory, out.data(), 1)),
                     static_cast<unsigned char>(-CIPHER_End(out.data(), 64, memory))};
    };
    const Bytes refused(6, INVALID_DATA_ERROR);
    Bytes blank(4096);
    EXPECT_EQ(codes(nullptr), Bytes(6, BAD_PARAM_ERROR));
    EXPECT_EQ(codes(blank.data()), refused);
    for (Context* const context : {&hash, &hmac, &cipher}) {
        for (int i = 0; i < context->size(); i++) { // changed, and cut
            context->memory()[i] ^= 0x40;
            ASSERT_EQ(codes(context->memory()), refused) << i;
            context->memory()[i] ^= 0x40;
        }
        Bytes cut(context->memory(), context->memory() + context->size() / 2);
        cut.resize(4096);
        EXPECT_EQ(codes(cut.data()), refused);
    }
    // Whole ones go on, each in its own family alone.
    EXPECT_EQ(HMAC_Add(hash.at(), "a", 1), INVALID_DATA_ERROR);
    EXPECT_EQ(HASH_Add(hmac.at(), "a", 1), INVALID_DATA_ERROR);
    EXPECT_EQ(HASH_Add(cipher.at(), "a", 1), INVALID_DATA_ERROR);
    EXPECT_EQ(HASH_End(out.data(), 64, hash.at()), 32);
    EXPECT_EQ(HMAC_End(out.data(), 64, hmac.at()), 32);
    EXPECT_EQ(CIPHER_End(out.data(), 64, cipher.at()), 16);
}

TEST(Contexts, AreNotBegunForTheWrongThing) {
    Bytes memory(4096), key(32), iv(16);
    const auto cipher = [&](const char* name, int keyLen, int ivLen, int options) {
        return CIPHER_Begin(memory.data(), 4096, 1, key.data(), keyLen, iv.data(), ivLen, name, options);
    };
    const auto hmac = [&](const char* name, int keyLen, int options) {
        return HMAC_Begin(memory.data(), 4096, key.data(), keyLen, name, options);
    };
    const struct {
        int line, expected, result;
    } rows[] = {
        {__LINE__, NOT_SUPPORTED_ERROR, HASH_Begin(memory.data(), 4096, "sha3", 0)},
        {__LINE__, NOT_SUPPORTED_ERROR, HASH_Begin(memory.data(), 4096, "sha3_256", 0)},
        {__LINE__, BAD_PARAM_ERROR, HASH_Begin(memory.data(), 4096, nullptr, 0)},
        {__LINE__, BAD_FLAG_ERROR, HASH_Begin(memory.data(), 4096, "sha256", 1)},
        {__LINE__, SHORT_BUF_ERROR, HASH_Begin(memory.data(), INT_MIN, "sha256", 0)},
        {__LINE__, NOT_SUPPORTED_ERROR, hmac("shake128", 16, 0)},
        {__LINE__, NOT_SUPPORTED_ERROR, hmac("md2", 16, 0)},
        {__LINE__, BAD_PARAM_ERROR, hmac("sha256", -1, 0)},
        {__LINE__, BAD_PARAM_ERROR, HMAC_Begin(memory.data(), 4096, nullptr, 1, "sha256", 0)},
        {__LINE__, BAD_FLAG_ERROR, hmac("sha256", 16, 1)},
        {__LINE__, NOT_SUPPORTED_ERROR, cipher("aes-128-gcm", 16, 16, 0)},
        {__LINE__, NOT_SUPPORTED_ERROR, cipher("aes-128", 16, 16, 0)},
        {__LINE__, BAD_KEY_LEN_ERROR, cipher("aes-128-cbc", 24, 16, 0)},
        {__LINE__, BAD_KEY_LEN_ERROR, cipher("aes-128-cbc", 0, 16, 0)},
        {__LINE__, BAD_IV_ERROR, cipher("aes-128-cbc", 16, 12, 0)},
        {__LINE__, BAD_IV_ERROR, cipher("aes-128-ecb", 16, 16, 0)},
        {__LINE__, BAD_PARAM_ERROR, cipher("aes-128-cbc", -16, 16, 0)},
        {__LINE__, BAD_FLAG_ERROR, cipher("aes-128-cbc", 16, 16, 2)},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.result, -row.expected) << "line " << row.line;

    // A failure leaves no context that stood there before, and a query looks at the name.
    const Bytes wiped(static_cast<size_t>(cipher_context(1, "aes-128-ecb", Bytes(16), {}, 0).size()));
    for (const char* const name : {"aes-128-cbc", "aes-128-gcm"}) {
        ASSERT_GT(cipher("aes-128-cbc", 16, 16, 0), 0);
        EXPECT_LT(cipher(name, 16, 15, 0), 0);
        EXPECT_EQ(Bytes(memory.begin(), memory.begin() + length_of(wiped)), wiped);
    }
    ASSERT_GT(HASH_Begin(memory.data(), 4096, "sha256", 0), 0);
    EXPECT_LT(HASH_Begin(memory.data(), 4096, "sha3", 0), 0);
    EXPECT_EQ(HASH_Add(memory.data(), "a", 1), INVALID_DATA_ERROR);
    ASSERT_GT(hmac("sha256", 16, 0), 0);
    EXPECT_LT(hmac("sha256", -1, 0), 0);
    EXPECT_EQ(HMAC_Add(memory.data(), "a", 1), INVALID_DATA_ERROR);
    EXPECT_EQ(CIPHER_Begin(nullptr, 0, 1, nullptr, 0, nullptr, 0, "aes-128-gcm", 0), -NOT_SUPPORTED_ERROR);
    EXPECT_GT(CIPHER_Begin(nullptr, 0, 1, nullptr, 0, nullptr, 0, "aes-128-ctr", 0), 0);

    char text[200];
    const auto isExplained = [&](int result) { return result < 0 && ZUL_LastError(text, 199) > 0; };
    EXPECT_TRUE(isExplained(HASH_Begin(memory.data(), 4096, "sha256", 1)));
    EXPECT_TRUE(isExplained(HASH_Begin(memory.data(), 1, "sha256", 0)));
    EXPECT_TRUE(isExplained(hmac("sha256", -1, 0)));
    EXPECT_TRUE(isExplained(cipher("aes-128-cbc", 16, 16, 2)));
    EXPECT_TRUE(isExplained(CIPHER_End(nullptr, 0, memory.data())));
}

TEST(AeadExports, KeepTheirWord) {
    Bytes key = some_bytes(32, 1), nonce = some_bytes(12, 2), data = some_bytes(50, 3),
          aad = some_bytes(9, 4);
    Bytes out(78), other(78), plain(50);
    const auto encrypt = [&](Bytes& to, int size, const char* name, int nonceLen, int options) {
        return AEAD_Encrypt(to.data(), length_of(to), data.data(), size, key.data(), 32, nonce.data(),
                            nonceLen, aad.data(), 9, name, options);
    };
    const auto decrypt = [&](unsigned char* to, int room, const Bytes& from, int size, const char* name,
                             int nonceLen, int options) {
        return AEAD_Decrypt(to, room, from.data(), size, key.data(), 32, nonce.data(), nonceLen, aad.data(),
                            9, name, options);
    };
    for (const char* const name : {"AES-256-gcm", "chacha20-poly1305", "aes-256-gcm-siv"}) {
        SCOPED_TRACE(name);
        ASSERT_EQ(encrypt(out, 50, name, 0, ZUL_AEAD_RANDOM_NONCE), 78);
        ASSERT_EQ(encrypt(other, 50, name, 0, ZUL_AEAD_RANDOM_NONCE), 78);
        EXPECT_NE(Bytes(out.begin(), out.begin() + 12), Bytes(other.begin(), other.begin() + 12));
        EXPECT_EQ(decrypt(nullptr, 0, out, 78, name, 0, ZUL_AEAD_RANDOM_NONCE), 50);
        EXPECT_EQ(decrypt(plain.data(), 50, out, 78, name, 0, ZUL_AEAD_RANDOM_NONCE), 50);
        EXPECT_EQ(plain, data);
        Bytes inPlace(66);
        ASSERT_EQ(encrypt(inPlace, 50, name, 12, 0), 66);
        EXPECT_EQ(decrypt(inPlace.data(), 50, inPlace, 66, name, 12, 0), 50);
        EXPECT_EQ(Bytes(inPlace.begin(), inPlace.begin() + 50), data);
        for (const size_t changed : {0u, 12u, 61u, 62u, 77u}) { // nonce, content, tag
            other = out;
            other[changed] ^= 0x80;
            plain.assign(50, 0xA5);
            EXPECT_EQ(decrypt(plain.data(), 50, other, 78, name, 0, ZUL_AEAD_RANDOM_NONCE), -DECRYPT_ERROR);
            EXPECT_EQ(plain, Bytes(50)) << changed;
        }
        // An empty message is checked, with and without output.
        ASSERT_EQ(encrypt(out, 0, name, 12, 0), 16);
        EXPECT_EQ(decrypt(nullptr, 0, out, 16, name, 12, 0), 0);
        EXPECT_EQ(decrypt(plain.data(), 50, out, 16, name, 12, 0), 0);
        out[15] ^= 1;
        EXPECT_EQ(decrypt(nullptr, 0, out, 16, name, 12, 0), -DECRYPT_ERROR);
        EXPECT_EQ(decrypt(plain.data(), 50, out, 16, name, 12, 0), -DECRYPT_ERROR);
        const struct {
            int line, expected, result;
        } rows[] = {
            {__LINE__, BAD_LENGTH_ERROR, decrypt(plain.data(), 50, out, 15, name, 12, 0)},
            {__LINE__, BAD_LENGTH_ERROR, decrypt(plain.data(), 50, out, 27, name, 0, ZUL_AEAD_RANDOM_NONCE)},
            {__LINE__, BAD_PARAM_ERROR, decrypt(plain.data(), 50, out, -1, name, 12, 0)},
            {__LINE__, SHORT_BUF_ERROR, decrypt(plain.data(), 49, out, 66, name, 12, 0)},
            {__LINE__, BAD_IV_ERROR, encrypt(out, 50, name, 0, 0)},
            {__LINE__, BAD_IV_ERROR, encrypt(out, 50, name, 12, ZUL_AEAD_RANDOM_NONCE)},
            {__LINE__, BAD_FLAG_ERROR, encrypt(out, 50, name, 12, 2)},
            {__LINE__, BAD_LENGTH_ERROR, encrypt(out, INT_MAX - 15, name, 12, 0)},
            {__LINE__, NOT_SUPPORTED_ERROR, encrypt(out, 50, "aes-256-ccm", 12, 0)},
            {__LINE__, BAD_PARAM_ERROR, encrypt(out, 50, nullptr, 12, 0)},
            {__LINE__, BAD_KEY_LEN_ERROR, encrypt(out, 50, "aes-128-gcm", 12, 0)},
            {__LINE__, BAD_PARAM_ERROR,
             AEAD_Encrypt(out.data(), 78, nullptr, 1, key.data(), 32, nonce.data(), 12, nullptr, 0, name, 0)},
            {__LINE__, BAD_PARAM_ERROR,
             AEAD_Encrypt(out.data(), 78, nullptr, 0, key.data(), 32, nonce.data(), 12, nullptr, 1, name, 0)},
            {__LINE__, BAD_PARAM_ERROR,
             AEAD_Encrypt(out.data(), 78, nullptr, 0, key.data(), 32, nullptr, 12, nullptr, 0, name, 0)},
        };
        for (const auto& row : rows)
            EXPECT_EQ(row.result, -row.expected) << "line " << row.line;
        Bytes tight(65);
        EXPECT_EQ(encrypt(tight, 50, name, 12, 0), -SHORT_BUF_ERROR);
        EXPECT_EQ(tight, Bytes(65));
    }
}
