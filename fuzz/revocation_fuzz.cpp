#include <cstdlib>
#include <string>

#include "cert/names/name_match.h"
#include "cert/path/cert_signature.h"
#include "cert/path/evidence.h"
#include "cert/path/revocation.h"
#include "encode/base64.h"

// The input is objects in DER: the anchor, the certificate that is asked for, another that may sign CRLs, and
// evidence. The answer has its parts, is the same the second time, and is never good without work.

using namespace zul;

static void require(bool claim) {
    if (!claim)
        std::abort();
}

namespace {

struct Node {
    CertificateView view;
    CertExtensions extensions;
    SignerKey key;
    PathLink link;

    bool read(DerView der, const Node* issuer) {
        if (certificate_view_read(der, view) != 0 || cert_extensions_read(view, extensions) != 0 ||
            key.read(view.publicKeyInfo, issuer == nullptr ? nullptr : &issuer->key) != 0)
            return false;
        link = {&view,        &extensions,
                view.subject, view.publicKeyInfo,
                &key,         issuer == nullptr ? nullptr : &issuer->link};
        return true;
    }
};

class OneSigner final : public CrlSigners {
  public:
    Node node;
    bool isRead = false;

    const PathLink* candidate(DerView name, DerView, const PathLink&, size_t n, PathBudget&) override {
        return n == 0 && isRead && names_match(name, node.view.subject) ? &node.link : nullptr;
    }
};

RevocationAnswer answer(const ObjectList& list, CrlSigners& signers, const PathLink& link, bool isSpent) {
    Evidence evidence;
    evidence.read(list);
    PathBudget budget;
    if (isSpent)
        require(!budget.take(INT64_MAX));
    constexpr int64_t kTime = 1780272000; // 2026-06-01
    return check_revocation({evidence, signers, kTime, budget}, link);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string text(b64_encoded_length(size) + 1, '\0');
    text.resize(b64_encode(text.data(), text.size(), data, size));
    text = "-----BEGIN X-----\n" + text + "\n-----END X-----\n";

    ObjectList list;
    Node anchor, target;
    OneSigner signers;
    if (list.add(text.c_str()) != 0 || list.size() < 3 || !anchor.read(list[0].der, nullptr) ||
        !target.read(list[1].der, &anchor))
        return 0;
    signers.isRead = signers.node.read(list[2].der, &anchor);
    const RevocationAnswer first = answer(list, signers, target.link, false);
    const RevocationAnswer second = answer(list, signers, target.link, false);
    require(first.state == second.state && first.reason == second.reason && first.code == second.code);
    require((first.state == RevocationState::unknown) == (first.code != 0));
    require((first.code != 0) == (*first.text != '\0') && first.reason <= 10);
    require(answer(list, signers, target.link, true).state == RevocationState::unknown);
    return 0;
}
