#pragma once
#include <optional>

#include "ec/ed25519.h"
#include "frame/memory.h"
#include "hash/digest.h"
#include "hash/sha256.h"
#include "zulcore.h"

// What is signed: bytes, a file, or a digest.
namespace zul {

class SignatureInput : public Ed25519Message {
  public:
    // digest writes the digest of an algorithm: 0 or a positive code with a text.
    [[nodiscard]] virtual int digest(uint8_t* out, int algorithm) = 0;
    // whole_error is a code with a text if there is no whole message to feed, else 0.
    [[nodiscard]] virtual int whole_error() { return 0; }
    // feed_error is the code of a feed that failed, whose text is there already.
    [[nodiscard]] virtual int feed_error() const { return READ_ERROR; }

  protected:
    ~SignatureInput() = default;
};

class SignatureBytes final : public SignatureInput {
  public:
    SignatureBytes(const uint8_t* data, size_t size) : data_(data), size_(size) {}
    [[nodiscard]] int digest(uint8_t* out, int algorithm) override;
    bool feed(Sha512Context& digest) override;

  private:
    const uint8_t* data_;
    size_t size_;
};

class SignatureDigest final : public SignatureInput {
  public:
    SignatureDigest(const uint8_t* data, size_t size) : data_(data), size_(size) {}
    [[nodiscard]] int digest(uint8_t* out, int algorithm) override;
    bool feed(Sha512Context&) override { return false; }
    [[nodiscard]] int whole_error() override;

  private:
    const uint8_t* data_;
    size_t size_;
};

// A file is read in pieces. One that is fed a second time has to be the same as before: two signatures with
// one secret number would tell the key.
class SignatureFile final : public SignatureInput {
  public:
    explicit SignatureFile(const char* path) : path_(path) {}
    [[nodiscard]] int digest(uint8_t* out, int algorithm) override;
    bool feed(Sha512Context& digest) override;
    [[nodiscard]] int feed_error() const override { return feedError_; }

  private:
    template<class Take>
    [[nodiscard]] int read(Take take);

    const char* path_;
    int feedError_ = READ_ERROR;
    bool wasFed_ = false;
    uint8_t fed_[kSha256Size]{};
};

} // namespace zul
