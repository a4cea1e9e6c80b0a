#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Elements of BER as a tree that can be edited and written again. Unlike the library's readers it takes
// nearly anything, keeps what it cannot read as raw bytes, and looks into strings that hold an encoding.
namespace fuzz {

// How the length of an element is written. The first is DER.
enum class LengthForm : uint8_t { shortest, long4, indefinite };

struct DerNode {
    std::string identifier; // empty: raw bytes, which are in value
    LengthForm form = LengthForm::shortest;
    std::string value; // of a primitive element; in front of children: the unused bits of a BIT STRING
    std::vector<DerNode> children;
    bool hasChildren = false;

    bool is(uint8_t octet) const {
        return identifier.size() == 1 && identifier[0] == static_cast<char>(octet);
    }
    bool is_raw() const { return identifier.empty(); }
};

using DerTree = std::vector<DerNode>;

// der_tree_read gives the elements of an encoding one after the other; false if they are too many.
bool der_tree_read(DerTree& tree, std::string_view encoding);
std::string der_tree_write(const DerTree& tree);

} // namespace fuzz
