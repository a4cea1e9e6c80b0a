#include "cert/path/policy_graph.h"

#include <algorithm>

#include "cert/fields/cert_oids.h"
#include "frame/err.h"
#include "zulcore.h"

namespace zul {

namespace {

constexpr int64_t kCostOfPolicy = 500;

bool is_below(DerView a, DerView b) {
    return a.text() < b.text();
}

[[nodiscard]] int too_much() {
    return err_fail(OUT_OF_RANGE_ERROR, "Too many policies");
}

[[nodiscard]] int bad_extension(const char* name) {
    return err_fail(BAD_FORMAT_ERROR, "Invalid extension %s", name);
}

// take_policy takes a PolicyInformation (RFC 5280, 4.2.1.4).
bool take_policy(DerReader& reader, DerView& policy) {
    DerView content, qualifiers;
    bool found;
    if (!reader.take(kDerSequence, content))
        return false;
    DerReader fields(content);
    return fields.take(kDerOid, policy) && der_is_oid(policy) &&
           fields.take_optional(kDerSequence, qualifiers, found) && fields.at_end();
}

struct Mapping {
    DerView from, to;
};
bool take_mapping(DerReader& reader, Mapping& mapping) {
    DerView content;
    if (!reader.take(kDerSequence, content))
        return false;
    DerReader fields(content);
    return fields.take(kDerOid, mapping.from) && der_is_oid(mapping.from) &&
           fields.take(kDerOid, mapping.to) && der_is_oid(mapping.to) && fields.at_end();
}

// read_policies sorts the policies of a certificate.
[[nodiscard]] int read_policies(Array<DerView>& policies, DerView content, PathBudget& budget) {
    DerReader reader(content);
    DerView policy;
    while (!reader.at_end()) {
        if (!take_policy(reader, policy))
            return bad_extension("certificatePolicies");
        if (!budget.take(kCostOfPolicy))
            return too_much();
        policies.add(policy);
    }
    std::sort(policies.begin(), policies.end(), is_below);
    return std::adjacent_find(policies.begin(), policies.end()) == policies.end()
               ? 0
               : bad_extension("certificatePolicies: a policy stands twice");
}

} // namespace

DerView any_policy() {
    return {kOidAnyPolicy.data(), kOidAnyPolicy.size()};
}

PolicyGraph::PolicyGraph() {
    Depth depth;
    depth.nodes.add({any_policy()});
    depths_.add(std::move(depth));
    finish(last());
}

// finish gives each node that no mapping has given one its own policy as expected_policy_set.
void PolicyGraph::finish(Depth& depth) {
    depth.any = -1;
    for (uint32_t i = 0; i < depth.nodes.size(); i++) {
        const Node& node = depth.nodes[i];
        if (node.isDeleted)
            continue;
        if (is_any_policy(node.policy))
            depth.any = static_cast<int>(i);
        if (!node.isMapped)
            depth.expected.add({node.policy, i});
    }
    std::sort(depth.expected.begin(), depth.expected.end(),
              [](const Expected& a, const Expected& b) { return is_below(a.policy, b.policy); });
}

int PolicyGraph::add_certificate(const CertExtensions& extensions, bool allowsAny, PathBudget& budget) {
    Array<DerView> policies;
    if (const int error = read_policies(policies, extensions.policies, budget))
        return error;
    isNull_ = isNull_ || extensions.policies.data == nullptr;
    if (isNull_)
        return 0;
    const Depth& above = last();
    allowsAny = allowsAny && std::binary_search(policies.begin(), policies.end(), any_policy(), is_below);
    Depth depth;
    // Both lists are sorted: one walk finds the parents of every policy.
    const Expected* expected = above.expected.begin();
    const DerView* policy = policies.begin();
    while (policy != policies.end() || (allowsAny && expected != above.expected.end())) {
        const bool hasPolicy = policy != policies.end(), hasExpected = expected != above.expected.end();
        const bool isAhead = hasExpected && (!hasPolicy || is_below(expected->policy, *policy));
        if (isAhead && !allowsAny) {
            expected++;
            continue;
        }
        const DerView each = isAhead ? expected->policy : *policy;
        const auto place = static_cast<uint32_t>(depth.nodes.size());
        const size_t edges = depth.parents.size();
        if (!isAhead)
            policy++;
        if (is_any_policy(each) && !allowsAny)
            continue;
        for (; expected != above.expected.end() && expected->policy == each; expected++)
            depth.parents.add({expected->node, place});
        if (depth.parents.size() == edges && !is_any_policy(each) && above.any >= 0)
            depth.parents.add({static_cast<uint32_t>(above.any), place});
        if (depth.parents.size() > edges)
            depth.nodes.add({each});
        if (!budget.take(kCostOfPolicy))
            return too_much();
    }
    isNull_ = depth.nodes.empty();
    finish(depth);
    depths_.add(std::move(depth));
    return 0;
}

int PolicyGraph::map(const CertExtensions& extensions, bool allowsMapping, PathBudget& budget) {
    DerReader reader(extensions.policyMappings);
    Array<Mapping> mappings;
    Mapping mapping;
    while (!reader.at_end()) {
        if (!take_mapping(reader, mapping))
            return bad_extension("policyMappings");
        if (is_any_policy(mapping.from) || is_any_policy(mapping.to))
            return err_fail(BAD_FORMAT_ERROR, "anyPolicy is mapped");
        if (!budget.take(kCostOfPolicy))
            return too_much();
        mappings.add(mapping);
    }
    if (isNull_ || mappings.empty())
        return 0;
    std::sort(mappings.begin(), mappings.end(), [](const Mapping& a, const Mapping& b) {
        return a.from == b.from ? is_below(a.to, b.to) : is_below(a.from, b.from);
    });
    Depth& depth = last();
    const size_t count = depth.nodes.size();
    depth.expected.clear();
    uint32_t at = 0; // among the nodes that were there before
    for (const Mapping* each = mappings.begin(); each != mappings.end();) {
        const DerView from = each->from;
        while (at < count && is_below(depth.nodes[at].policy, from))
            at++;
        const bool isThere = at < count && depth.nodes[at].policy == from;
        int place = isThere ? static_cast<int>(at) : -1;
        if (isThere && !allowsMapping)
            depth.nodes[at].isDeleted = true;
        if (!isThere && allowsMapping && depth.any >= 0) {
            place = static_cast<int>(depth.nodes.size());
            depth.nodes.add({from});
            // A node of anyPolicy has one parent, which is anyPolicy too.
            depth.parents.add(
                {static_cast<uint32_t>(depths_[depths_.size() - 2].any), static_cast<uint32_t>(place)});
        }
        const DerView* earlier = nullptr;
        for (; each != mappings.end() && each->from == from; each++) {
            if (place >= 0 && allowsMapping && (earlier == nullptr || !(*earlier == each->to)))
                depth.expected.add({each->to, static_cast<uint32_t>(place)});
            earlier = &each->to;
        }
        if (place >= 0)
            depth.nodes[static_cast<size_t>(place)].isMapped = true;
    }
    isNull_ = std::all_of(depth.nodes.begin(), depth.nodes.end(), [](const Node& n) { return n.isDeleted; });
    finish(depth);
    return 0;
}

void PolicyGraph::authority_set(Array<DerView>& policies, bool& isAny) {
    isAny = false;
    if (isNull_)
        return;
    for (Node& node : last().nodes)
        node.isUsed = !node.isDeleted;
    // What does not lead to the last depth is not valid (6.1.3 (d) (3)).
    for (size_t i = depths_.size(); i-- > 1;) {
        Depth &depth = depths_[i], &above = depths_[i - 1];
        for (const Edge& edge : depth.parents) {
            if (!depth.nodes[edge.child].isUsed || above.nodes[edge.parent].isDeleted)
                continue;
            above.nodes[edge.parent].isUsed = true;
            const DerView policy = depth.nodes[edge.child].policy;
            if (static_cast<int>(edge.parent) == above.any && !is_any_policy(policy))
                policies.add(policy);
        }
    }
    std::sort(policies.begin(), policies.end(), is_below);
    policies.shrink(static_cast<size_t>(std::unique(policies.begin(), policies.end()) - policies.begin()));
    isAny = last().any >= 0;
}

} // namespace zul
