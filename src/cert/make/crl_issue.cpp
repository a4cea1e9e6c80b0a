#include "cert/make/crl_issue.h"

#include <cstring>

#include "asn1/asn_build.h"
#include "asn1/asn_encode.h"
#include "asn1/asn_file.h"
#include "cert/make/crl_earlier.h"
#include "cert/make/crl_entry_list.h"
#include "cert/make/crl_extension_list.h"
#include "frame/err.h"
#include "frame/text.h"
#include "platform/platform.h"
#include "x509/fields/x509_time.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr TimeSpan kUsualSpan{int64_t{30} * 86400, 0};

[[nodiscard]] int bad(const char* why) {
    return err_fail(BAD_PARAM_ERROR, "%s", why);
}

// CrlMaker holds what the steps of making a list leave to the next ones.
class CrlMaker {
  public:
    [[nodiscard]] int read(const char* issuerCert, const char* issuerKey, const char* earlierCrl,
                           const char* description);
    [[nodiscard]] int settle();
    [[nodiscard]] int list_entries(const char* revoked);
    [[nodiscard]] int sign(AsnList& crl);

  private:
    [[nodiscard]] int check_issuer() const;
    [[nodiscard]] int settle_times();
    [[nodiscard]] int settle_numbers();
    [[nodiscard]] int settle_scope();

    CrlPlan plan_;
    IssuerCertificate issuer_;
    ObjectSigner signer_;
    EarlierCrl earlier_;
    EarlierList kind_ = EarlierList::none;
    CrlSettled settled_;
    RevokedScope scope_;
    SecretBuffer issuerNames_, revoked_;
    tm thisUpdate_{}, nextUpdate_{};
};

int CrlMaker::check_issuer() const {
    // The issuer of an indirect list need not be a certification authority.
    if (!issuer_.extensions().allows(kUsageCrlSign))
        return err_fail(ISSUER_ERROR, "The issuer's key usage lacks cRLSign");
    DerView names;
    return der_single(issuer_.view().subject, kDerSequence, names) && !names.empty()
               ? 0
               : err_fail(ISSUER_ERROR, "The issuer's certificate has no subject");
}

int CrlMaker::read(const char* issuerCert, const char* issuerKey, const char* earlierCrl,
                   const char* description) {
    if (const int error = crl_plan_read(plan_, description))
        return error;
    if (const int error = issuer_.open(issuerCert))
        return error;
    if (const int error = check_issuer())
        return error;
    if (const int error = signer_.open(issuerKey))
        return error;
    if (const int error = issuer_.check_signer(signer_))
        return error;
    if (const int error = signer_.choose(plan_.signature.text()))
        return error;
    const bool hasEarlier = !is_missing(earlierCrl);
    if (plan_.isDelta && !hasEarlier)
        return bad("A delta list without an earlier one needs deltaFrom");
    if (plan_.deltaFrom && hasEarlier)
        return bad("deltaFrom is for a list without an earlier one");
    if (!hasEarlier)
        return plan_.dropBefore ? bad("dropBefore is for a list with an earlier one") : 0;
    if (const int error = earlier_.open(earlierCrl, issuer_))
        return error;
    if (earlier_.extensions().isDelta && !plan_.isDelta)
        return bad("The earlier list is a delta list, and so has to be the new one");
    kind_ = earlier_.extensions().isDelta ? EarlierList::delta
            : plan_.isDelta               ? EarlierList::base
                                          : EarlierList::grows;
    return 0;
}

int CrlMaker::settle() {
    if (const int error = settle_times())
        return error;
    if (const int error = settle_numbers())
        return error;
    return settle_scope();
}

int CrlMaker::settle_times() {
    thisUpdate_ = plan_.thisUpdate ? *plan_.thisUpdate : utc_now();
    scope_.thisUpdate = time_seconds(thisUpdate_);
    nextUpdate_ = plan_.nextUpdate ? *plan_.nextUpdate : thisUpdate_;
    if (!plan_.nextUpdate)
        if (const int error = time_add(nextUpdate_, plan_.span ? *plan_.span : kUsualSpan))
            return error;
    if (time_seconds(nextUpdate_) <= scope_.thisUpdate)
        return bad("nextUpdate is not after thisUpdate");
    if (kind_ != EarlierList::none && scope_.thisUpdate < earlier_.view().thisUpdate)
        return bad("thisUpdate is before that of the earlier list");
    return 0;
}

int CrlMaker::settle_numbers() {
    // The system's clock counts units of 100 ns since 1601; the number is milliseconds since 1970.
    constexpr uint64_t kTicksOfMillisecond = 10'000, kMillisecondsTo1970 = 11'644'473'600'000;
    const CrlExtensions& before = earlier_.extensions();
    CrlNumber last;
    bool hasLast = false;
    if (kind_ != EarlierList::none && !before.number.empty()) {
        hasLast = last.read_content(before.number);
        if (!hasLast)
            return err_fail(BAD_FORMAT_ERROR, "The earlier list's number has more than 20 octets");
    }
    settled_.number = last;
    if (plan_.number)
        settled_.number = *plan_.number;
    else if (!hasLast)
        settled_.number = CrlNumber(platform::system_time() / kTicksOfMillisecond - kMillisecondsTo1970);
    else if (!settled_.number.increment())
        return bad("No number follows that of the earlier list");
    if (hasLast && !(last < settled_.number))
        return bad("The number is not above that of the earlier list");

    settled_.deltaBase = plan_.deltaFrom;
    if (kind_ == EarlierList::base) {
        if (!hasLast)
            return err_fail(NO_DATA_ERROR, "The earlier list has no number, which a delta list refers to");
        settled_.deltaBase = last;
    } else if (kind_ == EarlierList::delta && !settled_.deltaBase.emplace().read_content(before.deltaBase)) {
        return err_fail(BAD_FORMAT_ERROR, "The earlier list's base has more than 20 octets");
    }
    return !settled_.deltaBase || *settled_.deltaBase < settled_.number
               ? 0
               : bad("The number is not above that of the delta list's base");
}

int CrlMaker::settle_scope() {
    if (plan_.has_scope())
        settled_.issuingPoint = issuing_point_encode(plan_);
    DerView point(settled_.issuingPoint.data(), settled_.issuingPoint.size());
    if (kind_ != EarlierList::none) {
        // Its entries are those of its own scope.
        const DerView before = earlier_.issuing_point();
        if (plan_.has_scope() && !(before == point))
            return bad("The issuingDistributionPoint is another than that of the earlier list");
        if (!before.empty() && !plan_.has_scope())
            settled_.issuingPoint.append(before.data, before.size);
        point = {settled_.issuingPoint.data(), settled_.issuingPoint.size()};
    }
    if (!point.empty() && !issuing_point_read(point, scope_.point))
        return err_fail(BAD_FORMAT_ERROR, "Invalid issuingDistributionPoint");
    settled_.authorityKeyIdentifier = issuer_.key_identifier();
    scope_.issuerName = issuer_.view().subject;
    issuerNames_ = asn_Encode(asn_NewExplicit(4, issuer_.name()));
    scope_.issuerNames = {issuerNames_.data(), issuerNames_.size()};
    return 0;
}

int CrlMaker::list_entries(const char* revoked) {
    RevokedList list;
    if (const int error = revoked_text_read(list, revoked, scope_))
        return error;
    EntryListRules rules;
    rules.earlier = kind_;
    rules.kept = earlier_.view().revoked;
    rules.isDelta = settled_.deltaBase.has_value();
    if (plan_.dropBefore)
        rules.dropBefore = time_seconds(*plan_.dropBefore);
    return crl_entry_list(revoked_, list, scope_, rules);
}

int CrlMaker::sign(AsnList& crl) {
    AsnList entries; // left out where there are none (RFC 5280, 5.1.2.6)
    if (!revoked_.empty()) {
        asn_Node* node = asn_make_node(kAsnConstructed, kAsnSequence, revoked_.size());
        memcpy(node->data, revoked_.data(), revoked_.size());
        node->length = static_cast<uint32_t>(revoked_.size());
        entries = AsnList(node);
        revoked_ = SecretBuffer();
    }
    return signer_.sign(crl, asn_NewSequence(asn_LinkList(
                                 asn_NewInteger(1), signer_.identifier(), issuer_.name(),
                                 asn_NewTime(thisUpdate_), asn_NewTime(nextUpdate_), std::move(entries),
                                 asn_NewExplicit(0, crl_extension_list(plan_, settled_)))));
}

} // namespace

int crl_issue(const char* crlFile, const char* issuerCert, const char* issuerKey, const char* earlierCrl,
              const char* revoked, const char* description, int options) {
    if ((options & ~ZUL_CERT_DER) != 0)
        return err_unknown_option();
    CrlMaker maker;
    if (const int error = maker.read(issuerCert, issuerKey, earlierCrl, description))
        return error;
    if (const int error = maker.settle())
        return error;
    if (const int error = maker.list_entries(revoked))
        return error;
    AsnList crl;
    if (const int error = maker.sign(crl))
        return error;
    const char* const label = (options & ZUL_CERT_DER) != 0 ? nullptr : "X509 CRL";
    int error = CREATE_ERROR;
    if (!is_same_file(issuerCert, crlFile))
        error =
            asn_write_file(crlFile, crl.head(), label, kPemLineLen, {.replaces = true, .input = issuerKey});
    return error == CREATE_ERROR ? err_fail(error, "Cannot create file '%s'", shown_name(crlFile)) : error;
}

} // namespace zul
