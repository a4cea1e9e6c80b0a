#include <deque>
#include <map>
#include <sstream>

#include "cert/names/name_match.h"
#include "cert/path/cert_signature.h"
#include "cert/path/crl_signer_paths.h"
#include "cert/path/evidence.h"
#include "cert/path/revocation.h"
#include "frame/err.h"
#include "support/module_calls.h"
#include "support/unit_test.h"
#include "zulcore.h"

using namespace zul;

namespace {

using Objects = std::map<std::string, std::string>; // PEM by name

void add(ObjectList& list, const Objects& objects, const std::string& names) {
    std::istringstream stream(names);
    for (std::string name; stream >> name;)
        ASSERT_EQ(list.add(objects.at(name).c_str()), 0) << err_text();
}

// Chain makes links of the certificates of a list: the first is the anchor, which has issued the others.
class Chain final : public CrlSigners {
  public:
    explicit Chain(const ObjectList& list) {
        for (const ObjectEntry& object : list) {
            Node& node = nodes_.emplace_back();
            EXPECT_EQ(certificate_view_read(object.der, node.view), 0) << err_text();
            EXPECT_EQ(cert_extensions_read(node.view, node.extensions), 0) << err_text();
            EXPECT_EQ(node.key.read(node.view.publicKeyInfo, nullptr), 0) << err_text();
            node.link = {&node.view,        &node.extensions,
                         node.view.subject, node.view.publicKeyInfo,
                         &node.key,         nodes_.size() == 1 ? nullptr : &nodes_[0].link};
        }
    }
    const PathLink& link(size_t n) const { return nodes_[n].link; }
    const PathLink* candidate(DerView name, DerView, const PathLink& anchor, size_t n, PathBudget&) override {
        EXPECT_EQ(&anchor, &nodes_[0].link);
        for (const Node& node : nodes_)
            if (names_match(node.view.subject, name) && n-- == 0)
                return &node.link;
        return nullptr;
    }

  private:
    struct Node {
        CertificateView view;
        CertExtensions extensions;
        SignerKey key;
        PathLink link;
    };
    std::deque<Node> nodes_;
};

std::string reversed(const std::string& words) {
    std::istringstream stream(words);
    std::string all;
    for (std::string word; stream >> word;)
        all = word + " " + all;
    return all;
}

std::string text_of(const RevocationAnswer& answer) {
    if (answer.state == RevocationState::revoked)
        return "revoked " + std::to_string(answer.reason);
    return answer.state == RevocationState::good ? "good" : "unknown " + std::to_string(answer.code);
}

std::string certificates_of(const test::Vector& vector) {
    return vector.text("Anchor") + " " + vector.text("Target") + " " + vector.text("Signers");
}

Objects read_objects(const test::Vectors& vectors) {
    Objects objects;
    for (const test::Vector& vector : vectors)
        if (vector.has("Object"))
            objects[vector.text("Object")] =
                "-----BEGIN X-----\n" + vector.text("Base64") + "\n-----END X-----\n";
    return objects;
}

} // namespace

TEST(Revocation, StatusFromEvidence) {
    const test::Vectors vectors = test::read_vectors("revocation/cases.txt");
    const Objects objects = read_objects(vectors);
    for (const test::Vector& vector : vectors) {
        if (!vector.has("Case"))
            continue;
        SCOPED_TRACE(vector.text("Case"));
        ObjectList certificates;
        add(certificates, objects, certificates_of(vector));
        Chain chain(certificates);
        const std::string names = vector.text("Evidence");
        const auto status_of = [&](const std::string& evidenceNames, PathBudget& budget) {
            ObjectList list;
            add(list, objects, evidenceNames);
            Evidence evidence;
            evidence.read(list);
            err_set_text("before");
            const RevocationAnswer answer =
                check_revocation({evidence, chain, vector.number("Time"), budget}, chain.link(1));
            EXPECT_STREQ(err_text(), "before");
            return text_of(answer);
        };
        PathBudget budget, another;
        EXPECT_EQ(status_of(names, budget), vector.text("Status"));
        EXPECT_EQ(status_of(reversed(names), another), vector.text("Status"));
        // Wherever on the way the budget ends, the status is not good.
        bool isSpent = true;
        for (int64_t left = 0; isSpent; left += left / 16 + 200) {
            PathBudget small;
            ASSERT_TRUE(small.take(PathBudget::kMaxCost - left));
            const std::string status = status_of(names, small);
            isSpent = small.is_spent();
            EXPECT_TRUE(!isSpent || status != "good") << left;
        }
    }
    err_clear();
}

// Looking for the signers of a CRL is paid for by what is digested and by the candidate.
TEST(Revocation, SignersArePaidFor) {
    ObjectList list;
    ASSERT_EQ(list.add(test::data_path("x509/ca.pem").c_str()), 0);
    CertPool pool;
    pool.add(list, 0, false);
    pool.index();
    CertificateView signer;
    ASSERT_EQ(certificate_view_read(list[0].der, signer), 0);
    PathConditions conditions; // at a time before all certificates
    CrlSignerPaths signers(pool, conditions);
    const int64_t cost = PathBudget::kCostOfNameOctet * static_cast<int64_t>(signer.subject.size) + 1000;
    for (const bool isEnough : {false, true}) {
        PathBudget budget;
        ASSERT_TRUE(budget.take(PathBudget::kMaxCost - cost + (isEnough ? 0 : 1)));
        EXPECT_EQ(signers.candidate(signer.subject, {}, {}, 0, budget), nullptr);
        EXPECT_EQ(budget.is_spent(), !isEnough);
    }
}

// Anybody can write CRLs in the name of an issuer. They cost a bounded amount of work, and what was not
// looked at does not count as good.
TEST(Revocation, ForgedListsAreBounded) {
    const test::Vectors vectors = test::read_vectors("revocation/cases.txt");
    const Objects objects = read_objects(vectors);
    for (const test::Vector& vector : vectors) {
        const std::string title = vector.has("Case") ? vector.text("Case") : "";
        if (title != "omitted" && title != "OCSP good")
            continue;
        SCOPED_TRACE(title);
        EXPECT_EQ(vector.text("Status"), "good");
        ObjectList certificates, list;
        add(certificates, objects, certificates_of(vector));
        add(list, objects, vector.text("Evidence"));
        Bytes forged(list[0].der.begin(), list[0].der.end());
        for (int i = 1; i <= 1100; i++) { // the signature ends the encoding
            forged[forged.size() - 30] = static_cast<uint8_t>(i);
            forged[forged.size() - 31] = static_cast<uint8_t>(i >> 8);
            ASSERT_EQ(list.add(test::pem(forged).c_str()), 0);
        }
        Chain chain(certificates);
        Evidence evidence;
        evidence.read(list);
        PathBudget budget;
        const RevocationContext context = {evidence, chain, vector.number("Time"), budget};
        EXPECT_EQ(text_of(check_revocation(context, chain.link(1))), "unknown 11");
        EXPECT_EQ(budget.signatures(), PathBudget::kMaxSignatures);
    }
}
