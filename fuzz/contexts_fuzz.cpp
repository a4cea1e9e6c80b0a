#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "zulcore.h"

// The input is a list of orders about one context of each kind. What a context gives in the end is what the
// same data gives all at once, wherever the context was moved; a changed one is refused.

using Bytes = std::vector<unsigned char>;

static void require(bool claim) {
    if (!claim)
        std::abort();
}

namespace {

constexpr const char* kDigests[] = {"sha1",     "sha256",   "sha512",     "md5", "sha3-256",
                                    "shake128", "shake256", "sha512-256", "md2", "sha224"};
constexpr struct {
    const char* name;
    int key, iv;
} kCiphers[] = {{"aes-128-cbc", 16, 16}, {"aes-256-ctr", 32, 16}, {"aes-192-cfb", 24, 16},
                {"aes-128-ofb", 16, 16}, {"aes-256-ecb", 32, 0},  {"tdea-cbc", 24, 8},
                {"tdea-cfb", 24, 8}};
constexpr unsigned char kKey[200] = {1, 2, 3, 4, 5, 6, 7, 8, 9};

int length(const Bytes& bytes) {
    return static_cast<int>(bytes.size());
}

// The functions of one kind of context with what they were begun with.
struct Kind {
    virtual ~Kind() = default;
    virtual int begin(void* memory, int size) = 0;
    virtual int add(void* memory, const Bytes& data, Bytes& out) = 0;
    virtual int end(void* memory, Bytes& out) = 0;
};

struct Hash : Kind {
    explicit Hash(unsigned choice) : name(kDigests[choice % std::size(kDigests)]), room(1 + choice % 90) {}
    int begin(void* memory, int size) override { return HASH_Begin(memory, size, name, 0); }
    int add(void* memory, const Bytes& data, Bytes&) override {
        return HASH_Add(memory, data.data(), length(data));
    }
    int end(void* memory, Bytes& out) override {
        out.resize(room);
        return HASH_End(out.data(), static_cast<int>(room), memory);
    }
    const char* name;
    size_t room;
};

struct Mac : Hash {
    explicit Mac(unsigned choice) : Hash(choice), keySize(static_cast<int>(choice % 200)) {}
    int begin(void* memory, int size) override { return HMAC_Begin(memory, size, kKey, keySize, name, 0); }
    int add(void* memory, const Bytes& data, Bytes&) override {
        return HMAC_Add(memory, data.data(), length(data));
    }
    int end(void* memory, Bytes& out) override {
        out.resize(room);
        return HMAC_End(out.data(), static_cast<int>(room), memory);
    }
    int keySize;
};

struct Cipher : Kind {
    explicit Cipher(unsigned choice) : bits(choice) {}
    int begin(void* memory, int size) override {
        const auto& cipher = kCiphers[bits % std::size(kCiphers)];
        return CIPHER_Begin(memory, size, (bits & 16) != 0, kKey, cipher.key, kKey, cipher.iv, cipher.name,
                            (bits & 32) != 0 ? ZUL_CIPHER_NO_PADDING : 0);
    }
    int add(void* memory, const Bytes& data, Bytes& out) override {
        const int needed = CIPHER_Add(nullptr, 0, memory, data.data(), length(data));
        if (needed < 0)
            return -needed;
        const size_t before = out.size();
        Bytes piece(static_cast<size_t>(needed) + 1); // no null for an empty one
        require(CIPHER_Add(piece.data(), needed, memory, data.data(), length(data)) == needed);
        out.insert(out.end(), piece.begin(), piece.end() - 1);
        require(out.size() == before + static_cast<size_t>(needed));
        return 0;
    }
    int end(void* memory, Bytes& out) override {
        Bytes piece(16);
        const int size = CIPHER_End(piece.data(), 16, memory);
        if (size > 0)
            out.insert(out.end(), piece.begin(), piece.begin() + size);
        return size;
    }
    unsigned bits;
};

// A context in progress, at an address that every order changes.
class Running {
  public:
    explicit Running(Kind& kind) : kind_(kind) {
        const int size = kind.begin(nullptr, 0);
        if (size <= 0)
            return;
        size_ = static_cast<size_t>(size);
        memory_.assign(size_ + 8, 0xEE);
        isBegun_ = kind.begin(at(), size) == size;
    }
    bool is_begun() const { return isBegun_; }

    void add(const Bytes& data) {
        move();
        require(kind_.add(at(), data, output_) == 0);
        all_.insert(all_.end(), data.begin(), data.end());
    }

    void refuse_changed(size_t place, unsigned char change) {
        unsigned char& byte = at()[place % size_];
        byte ^= change;
        Bytes nothing;
        require(kind_.add(at(), Bytes(5), nothing) == INVALID_DATA_ERROR);
        require(kind_.end(at(), nothing) == -INVALID_DATA_ERROR);
        byte ^= change;
    }

    void end() {
        move();
        const int ended = kind_.end(at(), output_);
        require(Bytes(at(), at() + size_) == Bytes(size_)); // wiped
        Bytes ignored;
        require(kind_.end(at(), ignored) == -INVALID_DATA_ERROR);
        Running whole(kind_, all_);
        const int expected = kind_.end(whole.at(), whole.output_);
        require(ended == expected && (ended < 0 || output_ == whole.output_));
    }

  private:
    Running(Kind& kind, const Bytes& all) : Running(kind) {
        require(isBegun_ && kind_.add(at(), all, output_) == 0);
    }
    unsigned char* at() { return memory_.data() + offset_; }
    void move() {
        Bytes other(memory_.size(), 0xEE);
        const size_t to = (offset_ + 3) % 8;
        memcpy(other.data() + to, at(), size_);
        memory_.swap(other);
        offset_ = to;
    }

    Kind& kind_;
    Bytes memory_, all_, output_;
    size_t size_ = 0, offset_ = 0;
    bool isBegun_ = false;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 3)
        return 0;
    Hash hash(data[0]);
    Mac mac(data[1]);
    Cipher cipher(data[2]);
    Running contexts[] = {Running(hash), Running(mac), Running(cipher)};
    for (size_t at = 3; at + 2 <= size; at += 2) {
        Running& context = contexts[data[at] % 3];
        if (!context.is_begun())
            continue;
        const unsigned order = data[at] / 3 % 8, number = data[at + 1];
        if (order == 0)
            context.refuse_changed(number * size_t{7} + at, static_cast<unsigned char>(1 + at % 255));
        else
            context.add(Bytes(number * (order == 7 ? 9 : 1), static_cast<unsigned char>(at)));
    }
    for (Running& context : contexts) {
        if (context.is_begun())
            context.end();
    }
    return 0;
}
