#pragma once
#include "asn1/asn_node.h"
#include "cert/fields/certificate_view.h"
#include "cert/input/object_list.h"
#include "key/key.h"

namespace zul {

// SubjectInput is what a certificate is issued for: a certificate request or a key.
class SubjectInput {
  public:
    // open reads an argument: a request whose signature it verifies, or else a key as key_input takes it. 0
    // or a code with a text: that of key_input, BAD_FORMAT_ERROR (a malformed request), SIGNATURE_ERROR,
    // NOT_SUPPORTED_ERROR, BAD_KEY_ERROR (a key that is not valid).
    [[nodiscard]] int open(const char* keyOrRequest);

    const Key& key() const { return key_; }
    const RequestView* request() const { return isRequest_ ? &request_ : nullptr; }
    AsnList public_key_info() const; // that of a request as it stands there

  private:
    [[nodiscard]] int open_request();

    ObjectList list_;
    RequestView request_;
    bool isRequest_ = false;
    Key key_;
};

} // namespace zul
