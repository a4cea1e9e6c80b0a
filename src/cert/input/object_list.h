#pragma once
#include "asn1/der_reader.h"
#include "frame/array.h"

// Objects of lists: certificates, requests, CRLs and OCSP responses in files and texts.
namespace zul {

enum class ObjectKind : uint8_t { certificate, request, crl, ocspResponse, other };

// object_kind tells by the structure what an encoding is, without reading all of it.
ObjectKind object_kind(DerView encoding);

struct ObjectEntry {
    DerView der; // one element
    ObjectKind kind = ObjectKind::other;
};

// ObjectList owns the encodings of the objects that it has read.
class ObjectList {
  public:
    static constexpr size_t kMaxBytes = 64 << 20;  // of all encodings together
    static constexpr size_t kMaxObjects = 1 << 18; // what is kept of each takes up to a kilobyte

    // add reads a list of arguments joined by ";". Each is
    // - text with PEM blocks, of which each is an object (a block "PKCS7" is the certificates and CRLs in it;
    //   blocks of keys and parameters are left out);
    // - base64 of more than 256 characters;
    // - the name of a file of such text, of DER objects one after the other, or of a SignedData.
    // Null adds nothing. 0, or with a text OPEN_ERROR, READ_ERROR, INVALID_DATA_ERROR (neither),
    // NO_DATA_ERROR (no object in it), OUT_OF_RANGE_ERROR (more than kMaxBytes or kMaxObjects).
    [[nodiscard]] int add(const char* list);
    // leave_out_unreadable lets add go on where a block, or what follows in a file, is no DER, as long as its
    // argument has an object: unreadable counts such places.
    void leave_out_unreadable() { leavesOut_ = true; }
    size_t unreadable() const { return unreadable_; }
    // add_argument is add for one argument, whose name may hold ";".
    [[nodiscard]] int add_argument(const char* argument, size_t length);

    size_t size() const { return entries_.size(); }
    const ObjectEntry& operator[](size_t i) const { return entries_[i]; }
    const ObjectEntry* begin() const { return entries_.begin(); }
    const ObjectEntry* end() const { return entries_.end(); }

  private:
    [[nodiscard]] int add_content(SecretBuffer content, const char* name);
    [[nodiscard]] int add_pem(std::string_view text, const char* name);
    [[nodiscard]] int add_der(SecretBuffer der, const char* name, bool isPkcs7);
    [[nodiscard]] bool add_signed_data(DerView der);
    void add_objects(DerView set);

    Array<SecretBuffer> memory_;
    Array<ObjectEntry> entries_;
    size_t bytes_ = 0, unreadable_ = 0;
    bool leavesOut_ = false;
};

} // namespace zul
