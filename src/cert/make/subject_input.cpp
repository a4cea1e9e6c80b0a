#include "cert/make/subject_input.h"

#include <cstring>

#include "cert/make/issuer_certificate.h"
#include "frame/err.h"
#include "key/key_check.h"
#include "key/key_der.h"
#include "key/key_input.h"
#include "key/signature.h"
#include "key/signature_identifier_read.h"
#include "platform/platform.h"
#include "zulcore.h"

namespace zul {

int SubjectInput::open_request() {
    if (const int error = request_view_read(list_[0].der, request_))
        return error;
    if (const int error = public_key_of(key_, request_.publicKeyInfo))
        return error;
    SignatureAlgorithm algorithm;
    const AlgorithmView& identifier = request_.signatureAlgorithm;
    if (const int error = signature_identifier_read(algorithm, identifier.oid, identifier.parameters))
        return error;
    if (!signature_fits(algorithm, key_) || request_.unusedBits != 0)
        return err_fail(SIGNATURE_ERROR, "The signature's algorithm does not go with the key");
    SignatureBytes input(request_.toBeSigned.data, request_.toBeSigned.size);
    return signature_check(request_.signature.data, request_.signature.size, key_, algorithm, input, 0);
}

int SubjectInput::open(const char* keyOrRequest) {
    const int unlisted = list_.add_argument(keyOrRequest, strlen(keyOrRequest));
    isRequest_ = unlisted == 0 && list_[0].kind == ObjectKind::request;
    // A file that could not be read may be a request, of which a second attempt would take the bare key.
    const bool isUnread =
        unlisted == READ_ERROR || (unlisted == OPEN_ERROR && platform::file_is_regular(keyOrRequest));
    if (!isRequest_ && !isUnread)
        err_clear(); // what the list says of a key
    const int error = isUnread ? unlisted : isRequest_ ? open_request() : key_input(key_, keyOrRequest);
    if (error != 0)
        err_add_text(isRequest_ ? "in the request" : "in the subject's key");
    return error == 0 ? key_check_exponent(key_) : error;
}

AsnList SubjectInput::public_key_info() const {
    return isRequest_ ? elements_of(request_.publicKeyInfo) : key_public_info(key_);
}

} // namespace zul
