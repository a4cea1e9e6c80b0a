#pragma once
#include "cert/fields/cert_extensions.h"
#include "cert/input/object_list.h"
#include "cert/names/name_match.h"
#include "cert/path/cert_signature.h"
#include "frame/array.h"

// The certificates of which paths are made.
namespace zul {

// take_error_text moves the thread's error text into a buffer.
void take_error_text(SecretBuffer& text);

// CertRecord is a certificate with what has been found out about it.
class CertRecord {
  public:
    CertificateView view;
    CertExtensions extensions;
    NameDigest subject, issuer;
    NameDigest digest; // of its encoding
    bool isAnchor = false;
    // What forbids its use in any path (0, BAD_FORMAT_ERROR): a malformed name or extension.
    int fault = 0;
    SecretBuffer faultText;

    // read: 0, or BAD_FORMAT_ERROR with a text for what is no certificate at all.
    [[nodiscard]] int read(DerView encoding);

    bool is_self_issued() const { return subject == issuer; }
    bool is_valid_at(int64_t time) const { return view.notBefore <= time && time <= view.notAfter; }

    // own_key gives the key, which is read at the first call; null if it cannot be read, or inherits the
    // parameters of its issuer's. key_code then tells why (0: it inherits them), with key_text.
    const SignerKey* own_key();
    bool is_key_tried() const { return isKeyTried_; }
    int key_code() const { return keyCode_; }
    const SecretBuffer& key_text() const { return keyText_; }

    // check_signature verifies the signature with a key, once for each key: 0 or the code of
    // SignerKey::check_object with its text.
    [[nodiscard]] int check_signature(const SignerKey& key, DerView publicKeyInfo, PathBudget& budget);

  private:
    struct Tried {
        DerView publicKeyInfo, parameters;
        int code;
        SecretBuffer text;
    };

    bool isKeyTried_ = false;
    int keyCode_ = 0;
    SecretBuffer keyText_;
    SignerKey key_;
    Array<Tried> tried_;
};

// CertRange is the certificates of one subject.
struct CertRange {
    CertRecord *const *first = nullptr, *const *last = nullptr;

    CertRecord* const* begin() const { return first; }
    CertRecord* const* end() const { return last; }
};

// CertPool holds certificates by subject. All are added before it is indexed; from then on records stay where
// they are.
class CertPool {
  public:
    // add takes the certificates of a list, which outlives the pool, from an object on. Others are left out,
    // and what cannot be read is counted.
    void add(const ObjectList& list, size_t from, bool areAnchors);
    // index leaves out those that are there already; the same certificate as an anchor stays.
    void index();

    CertRange of_subject(const NameDigest& subject) const;
    bool has_anchor(const NameDigest& subject) const;
    size_t anchors() const { return anchors_; }
    size_t unreadable() const { return unreadable_; }

  private:
    Array<CertRecord> records_;
    Array<CertRecord*> bySubject_; // of one subject anchors stand first
    size_t anchors_ = 0, unreadable_ = 0;
};

} // namespace zul
