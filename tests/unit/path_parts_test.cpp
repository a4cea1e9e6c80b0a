#include "cert/path/crl_scope.h"
#include "cert/path/name_constraints.h"
#include "cert/path/path_conditions.h"
#include "cert/path/policy_graph.h"
#include "frame/err.h"
#include "support/der_view.h"
#include "zulcore.h"

using namespace zul;
using test::element, test::operator+, test::view;

namespace {

Bytes oid(uint8_t last) {
    return element(0x06, Bytes{0x2A, 0x03, last}); // 1.2.3.last
}
void append(Bytes& all, const Bytes& more) {
    all.insert(all.end(), more.begin(), more.end());
}

} // namespace

// GeneralSubtrees of the excluded kind, and a subjectAltName: what cannot be compared is refused where it
// matters, what is malformed always.
TEST(NameConstraints, RefuseWhatTheyCannotCompare) {
    const struct {
        const char *excluded, *names;
        int code;
    } rows[] = {
        {"3003820161", "820162", 0},
        {"3003820161", "820161", ISSUER_ERROR},
        {"3006820161800101", "820162", NOT_SUPPORTED_ERROR}, // minimum 1
        {"3006820161810101", "820162", NOT_SUPPORTED_ERROR}, // maximum
        {"300588032a0304", "820162", 0},                     // registeredID; no such name
        {"300588032a0304", "88032a0305", NOT_SUPPORTED_ERROR},
        {"3002a300", "820162", 0}, // x400Address
        {"300a87080a000000ff000000", "87040a010101", ISSUER_ERROR},
        {"300a87080a000000ff000000", "87040b010101", 0},
        {"300a87080a000000ff000000", "87050a01010100", NOT_SUPPORTED_ERROR}, // five bytes
        {"300a87080a000000ff00ff00", "820162", BAD_FORMAT_ERROR},            // a mask with a gap
        {"300687040a000000", "820162", BAD_FORMAT_ERROR},                    // without a mask
        {"30058203612062", "820162", BAD_FORMAT_ERROR},                      // a blank in a host
        {"300481026140", "820162", BAD_FORMAT_ERROR},                        // "a@"
        {"3003820161", "8203612e62", 0},                                     // a.b
        {"3003820162", "8203612e62", ISSUER_ERROR},                          // a.b
        {"300482022e62", "8203612e62", ISSUER_ERROR},                        // a.b is below b
        {"300482022e62", "82032a2e62", ISSUER_ERROR},                        // *.b
        {"300482022e62", "820162", 0},                                       // b itself is not
        {"3003820162", "82022e62", NOT_SUPPORTED_ERROR},                     // an empty label
        {"3003820162", "820262ff", BAD_FORMAT_ERROR},
        {"3003820162", "82026200", NOT_SUPPORTED_ERROR}, // a zero byte
        {"3003820162", "8202622e", ISSUER_ERROR},        // "b."
        {"30028200", "820161", ISSUER_ERROR},            // all host names
        {"", "820161", BAD_FORMAT_ERROR},
        {"30038201", "820161", BAD_FORMAT_ERROR},
    };
    for (const auto& row : rows) {
        const Bytes excluded = test::from_hex(row.excluded), names = test::from_hex(row.names),
                    subject = {0x30, 0x00};
        CertExtensions issuer, extensions;
        CertificateView certificate;
        certificate.subject = view(subject);
        issuer.excluded = {row.excluded, excluded.size()}; // not null
        if (!excluded.empty())
            issuer.excluded = view(excluded);
        extensions.subjectAltName = view(names);
        PathBudget budget;
        NameConstraints constraints;
        CertificateNames all;
        int code = constraints.read(issuer, budget);
        if (code == 0)
            code = all.read(certificate, extensions, budget);
        if (code == 0)
            code = constraints.check(all, budget);
        EXPECT_EQ(code, row.code) << row.excluded << " " << row.names << ": " << err_text();
        err_clear();
    }
}

// Every policy is mapped to every other, again and again: a tree would have 30^20 leaves.
TEST(PolicyGraph, GrowsWithItsInput) {
    constexpr uint8_t kPolicies = 30;
    Bytes policies, mappings;
    for (uint8_t i = 0; i < kPolicies; i++) {
        append(policies, element(0x30, oid(i)));
        for (uint8_t j = 0; j < kPolicies; j++) {
            Bytes pair = oid(i);
            append(pair, oid(j));
            append(mappings, element(0x30, pair));
        }
    }
    CertExtensions extensions;
    extensions.policies = view(policies);
    extensions.policyMappings = view(mappings);
    PathBudget budget;
    PolicyGraph graph;
    for (int depth = 0; depth < 20; depth++) {
        ASSERT_EQ(graph.add_certificate(extensions, true, budget), 0);
        ASSERT_EQ(graph.map(extensions, true, budget), 0);
    }
    Array<DerView> valid;
    bool isAny;
    graph.authority_set(valid, isAny);
    EXPECT_EQ(valid.size(), kPolicies);
    EXPECT_FALSE(isAny);

    // The same policy twice, and a malformed one.
    append(policies, element(0x30, oid(1)));
    extensions.policies = view(policies);
    EXPECT_EQ(PolicyGraph().add_certificate(extensions, true, budget), BAD_FORMAT_ERROR);
    policies.pop_back();
    extensions.policies = view(policies);
    EXPECT_EQ(PolicyGraph().add_certificate(extensions, true, budget), BAD_FORMAT_ERROR);
    err_clear();
}

// The names of a certificate's CRLs are paid for by what is digested, then by the pairs that are compared.
TEST(CrlScope, IsPaidFor) {
    Bytes names, emptyPoints;
    for (int i = 0; i < 200; i++) {
        append(names, {0x82, 0x01, 'a'});
        append(emptyPoints, {0x30, 0x00, 0x30, 0x00});
    }
    const Bytes issuer = element(0x30, names);
    Bytes altName = test::from_hex("0603551d12");
    append(altName, element(0x04, issuer));
    const struct {
        Bytes extensions, points;
    } rows[] = {{element(0x30, altName), {}},
                {{}, emptyPoints},
                {{}, element(0x30, element(0xA2, names))}, // cRLIssuer
                {{}, element(0x30, element(0xA0, element(0xA1, names)))},
                {{}, element(0x30, element(0xA0, element(0xA0, names)))}};
    const int64_t digests = 400 * 300, octets = static_cast<int64_t>(issuer.size());
    CrlScope scope;
    for (const auto& row : rows) {
        CertificateView certificate;
        certificate.issuer = view(issuer);
        certificate.extensions = view(row.extensions);
        CertExtensions extensions;
        extensions.crlDistributionPoints = view(row.points);
        PathBudget budget, small;
        ASSERT_TRUE(small.take(PathBudget::kMaxCost - digests - PathBudget::kCostOfNameOctet * octets + 1));
        EXPECT_FALSE(CrlScope().read(certificate, extensions, small)) << &row - rows;
        scope = CrlScope();
        EXPECT_TRUE(scope.read(certificate, extensions, budget)) << &row - rows;
    }
    CrlRecord crl;
    crl.issuer = scope.certificate_issuer();
    crl.extensions.issuingPoint.name.fullName = view(names);
    PathBudget budget, small;
    ASSERT_TRUE(small.take(PathBudget::kMaxCost - 200 * 200 * 12));
    EXPECT_EQ(scope.reasons(crl, small), 0U);
    EXPECT_EQ(scope.reasons(crl, budget), kAllReasons);
}

// RFC 3161, 2.3.
TEST(PathPurpose, TimestampStandsAloneAndCritical) {
    const struct {
        const char* purposes;
        bool isCritical;
        int code;
    } rows[] = {{"06082b06010505070308", true, 0},
                {"06082b06010505070308", false, NO_MATCH_ERROR},
                {"06082b0601050507030806082b06010505070301", true, NO_MATCH_ERROR}};
    for (const auto& row : rows) {
        const Bytes purposes = test::from_hex(row.purposes);
        CertExtensions extensions;
        extensions.extKeyUsage = view(purposes);
        extensions.extKeyUsageIsCritical = row.isCritical;
        EXPECT_EQ(check_leaf_purpose(extensions, PathPurpose::timestamp), row.code) << row.purposes;
    }
    err_clear();
}
