#pragma once
#include <functional>

#include "der/der_tree.h"
#include "support/vectors.h"

namespace test {

// DerDamage damages each element of an encoding in turn: behind its last element stands one more, which no
// standard knows, or its type is another.
class DerDamage {
  public:
    // damaged: the whole; stranger: the encoding of what does not belong there.
    using Check = std::function<void(const Bytes& damaged, const Bytes& stranger)>;

    DerDamage(const Bytes& whole, Check check) : check_(std::move(check)) {
        fuzz::der_tree_read(tree_, {reinterpret_cast<const char*>(whole.data()), whole.size()});
    }
    void each() { visit(tree_); }

  private:
    void visit(fuzz::DerTree& elements) {
        for (fuzz::DerNode& element : elements) {
            if (element.is_raw())
                continue;
            const fuzz::DerNode whole = element;
            const bool isLookedInto = holds_elements(element);
            if (isLookedInto) {
                const std::string stranger = "\xC5\x03\xA1\xB2\xC3";
                element.children.emplace_back().value = stranger;
                check(stranger);
                element = whole;
            }
            element.identifier[0] = static_cast<char>(element.identifier[0] | 0xC0);
            check(fuzz::der_tree_write({element}));
            element = whole;
            if (isLookedInto)
                visit(element.children);
        }
    }
    // Random bytes in a string, a salt or a secret, may pass for some element, but hardly for a SEQUENCE.
    static bool holds_elements(const fuzz::DerNode& element) {
        const bool isConstructed = (element.identifier[0] & 0x20) != 0;
        return element.hasChildren && (isConstructed || element.children.front().is(0x30));
    }
    void check(const std::string& stranger) const {
        const std::string damaged = fuzz::der_tree_write(tree_);
        check_({damaged.begin(), damaged.end()}, {stranger.begin(), stranger.end()});
    }

    Check check_;
    fuzz::DerTree tree_;
};

} // namespace test
