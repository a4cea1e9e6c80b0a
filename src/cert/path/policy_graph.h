#pragma once
#include "cert/fields/cert_extensions.h"
#include "cert/path/path_budget.h"
#include "frame/array.h"

// The valid policies of a path as a graph (RFC 9618, which replaces the tree of RFC 5280, 6.1): of each depth
// one node per policy. A tree can grow exponentially with the path, this grows with its certificates.
// Qualifiers are not looked at.
namespace zul {

class PolicyGraph {
  public:
    PolicyGraph(); // a single node of anyPolicy, at depth 0

    bool is_null() const { return isNull_; }

    // add_certificate adds a depth for certificatePolicies (6.1.3 (d), (e)); allowsAny tells whether
    // anyPolicy in it counts. Without the extension the graph becomes null. 0, or with a text
    // BAD_FORMAT_ERROR (malformed, or a policy twice) or OUT_OF_RANGE_ERROR (the budget is spent).
    [[nodiscard]] int add_certificate(const CertExtensions& extensions, bool allowsAny, PathBudget& budget);

    // map applies policyMappings to the last depth (6.1.4 (a), (b)); without allowsMapping the policies that
    // are mapped are deleted. 0, or with a text BAD_FORMAT_ERROR (also if anyPolicy is mapped) or
    // OUT_OF_RANGE_ERROR.
    [[nodiscard]] int map(const CertExtensions& extensions, bool allowsMapping, PathBudget& budget);

    // authority_set gives the policies, as content octets of object identifiers, that hold for the whole path
    // (6.1.5 (g)), in the anchor's terms; isAny tells that anyPolicy is among them.
    void authority_set(Array<DerView>& policies, bool& isAny);

  private:
    struct Node {
        DerView policy;
        bool isDeleted = false, isMapped = false, isUsed = false;
    };
    struct Edge {
        uint32_t parent, child; // places in two depths that follow each other
    };
    struct Expected { // a member of the expected_policy_set of a node
        DerView policy;
        uint32_t node;
    };
    struct Depth {
        Array<Node> nodes;   // sorted by policy
        Array<Edge> parents; // of the nodes of this depth
        Array<Expected> expected;
        int any = -1; // the place of anyPolicy
    };

    Depth& last() { return depths_.back(); }
    void finish(Depth& depth);

    Array<Depth> depths_;
    bool isNull_ = false;
};

// any_policy is the object identifier anyPolicy.
DerView any_policy();
inline bool is_any_policy(DerView policy) {
    return policy == any_policy();
}

} // namespace zul
