#include "der_mutate.h"

#include <algorithm>
#include <cstring>
#include <random>

#include "asn1/oid_table.h"
#include "der_tree.h"

// libFuzzer's mutations for targets whose input is DER: it edits elements, not bytes, and lengths stay right,
// so that what comes of it is read beyond the first header. Linked to a target, it takes the place of the
// built-in mutations, which it still makes now and then.

extern "C" size_t LLVMFuzzerMutate(uint8_t* data, size_t size, size_t maxSize);

namespace fuzz {
namespace {

using std::string_view_literals::operator""sv;

std::string octets_of(const char* hexPairs) {
    std::string out;
    for (const char* at = hexPairs; *at != '\0'; at += at[2] == ' ' ? 3 : 2)
        out += static_cast<char>(std::strtol(std::string(at, 2).c_str(), nullptr, 16));
    return out;
}

const std::vector<std::string>& known_oids() {
    static const std::vector<std::string> made = [] {
        std::vector<std::string> all;
        for (const zul::OidRow& row : zul::kOidTable)
            all.push_back(octets_of(row.octets));
        // Extensions of certificates and CRLs, access methods and purposes, which the table lacks.
        for (int arc = 9; arc <= 54; arc++)
            all.push_back(std::string("\x55\x1D", 2) + static_cast<char>(arc));
        for (const char* under : {"\x01", "\x03", "\x30"})
            for (char arc = 1; arc <= 24; arc++)
                all.push_back("\x2B\x06\x01\x05\x05\x07" + std::string(under) + arc);
        return all;
    }();
    return made;
}

constexpr std::string_view kIntegers[] = {""sv,
                                          "\x00"sv,
                                          "\x01"sv,
                                          "\x02"sv,
                                          "\x03"sv,
                                          "\x7F"sv,
                                          "\x80"sv,
                                          "\xFF"sv,
                                          "\x00\x80"sv,
                                          "\x00\x01"sv,
                                          "\xFF\xFF"sv,
                                          "\x7F\xFF"sv,
                                          "\x00\xFF\xFF"sv,
                                          "\x01\x00\x01"sv,
                                          "\x7F\xFF\xFF\xFF"sv,
                                          "\x00\x80\x00\x00\x00"sv,
                                          "\x00\xFF\xFF\xFF\xFF"sv,
                                          "\x01\x00\x00\x00\x00"sv,
                                          "\x80\x00\x00\x00"sv,
                                          "\x7F\xFF\xFF\xFF\xFF\xFF\xFF\xFF"sv,
                                          "\x00\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"sv};
constexpr std::string_view kTimes[] = {"491231235959Z"sv,     "500101000000Z"sv,   "000229000000Z"sv,
                                       "250230000000Z"sv,     "2501010000Z"sv,     "250101000000+0100"sv,
                                       "99991231235959Z"sv,   "19700101000000Z"sv, "00000101000000Z"sv,
                                       "20250101000000.5Z"sv, "20380119031408Z"sv, "20500101000000Z"sv,
                                       "19491231235959Z"sv,   "250101246060Z"sv,   "20240229235960Z"sv};
constexpr std::string_view kTexts[] = {""sv,
                                       "\0"sv,
                                       "*.example.com"sv,
                                       "xn--nxasmq6b"sv,
                                       "a\0b"sv,
                                       "\xC3\xA9"sv,
                                       "\xED\xA0\x80"sv,
                                       "\xF4\x8F\xBF\xBF"sv,
                                       "\xD8\x00\xDC\x00"sv,
                                       "\x00\x11\xFF\xFF"sv,
                                       "http://[::1]/%00"sv,
                                       "a@b"sv,
                                       ".example.com"sv,
                                       "\xE2\x80\xAE"sv,
                                       "\n"sv};
constexpr uint8_t kIdentifiers[] = {0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x0A, 0x0C, 0x13, 0x14,
                                    0x16, 0x17, 0x18, 0x1C, 0x1E, 0x24, 0x30, 0x31, 0x80, 0x81,
                                    0x82, 0x84, 0x86, 0x87, 0xA0, 0xA1, 0xA2, 0xA3, 0xA4, 0xA5};

class Mutator {
  public:
    explicit Mutator(unsigned seed) : random_(seed) {}

    void edit(DerTree& tree, const DerTree& donor) {
        for (size_t n = 1 + below(below(8) == 0 ? 8 : 2); n > 0; n--) {
            places_.clear();
            collect(tree);
            if (places_.empty())
                return;
            edit_one(places_[below(places_.size())], tree, donor);
        }
    }

    size_t below(size_t n) { return n == 0 ? 0 : random_() % n; }

  private:
    struct Place {
        DerTree* siblings;
        size_t index;
        DerNode& node() const { return (*siblings)[index]; }
    };

    void collect(DerTree& tree) {
        for (size_t i = 0; i < tree.size(); i++) {
            places_.push_back({&tree, i});
            collect(tree[i].children);
        }
    }

    template<class Row>
    const Row& any(const Row* rows, size_t n) {
        return rows[below(n)];
    }

    void edit_one(const Place place, DerTree& tree, const DerTree& donor) {
        DerTree& siblings = *place.siblings;
        const auto at = siblings.begin() + static_cast<std::ptrdiff_t>(place.index);
        switch (below(20)) {
        case 0:
            siblings.erase(at);
            break;
        case 1: {
            const DerNode copy = *at;
            siblings.insert(at, below(8) == 0 ? 1 + below(20) : 1, copy);
            break;
        }
        case 2:
            std::swap(*at, siblings[below(siblings.size())]);
            break;
        case 3: { // another subtree of the same input
            const DerNode copy = places_[below(places_.size())].node();
            replace_or_insert(siblings, place.index, copy);
            break;
        }
        case 4:
        case 5:
            splice(siblings, place.index, donor.empty() ? tree : donor);
            break;
        case 6:
            at->identifier = std::string(1, static_cast<char>(any(kIdentifiers, std::size(kIdentifiers))));
            break;
        case 7:
            if (!at->is_raw())
                at->identifier[0] = static_cast<char>(at->identifier[0] ^ 1 << below(8));
            break;
        case 8:
            at->form = static_cast<LengthForm>(below(3));
            break;
        case 9:
            wrap(*at);
            break;
        case 10:
            if (!at->children.empty()) {
                const DerNode inner = at->children[below(at->children.size())];
                *at = inner;
            }
            break;
        case 11:
            segment(*at);
            break;
        case 12: {
            DerNode made;
            made.identifier = std::string(1, static_cast<char>(any(kIdentifiers, std::size(kIdentifiers))));
            set_value(made);
            siblings.insert(at, made);
            break;
        }
        default:
            set_value(*at);
        }
    }

    void replace_or_insert(DerTree& siblings, size_t index, const DerNode& node) {
        if (below(2) == 0)
            siblings[index] = node;
        else if (siblings.size() < 1000)
            siblings.insert(siblings.begin() + static_cast<std::ptrdiff_t>(index), node);
    }

    void splice(DerTree& siblings, size_t index, const DerTree& donor) {
        const DerTree* list = &donor;
        const DerNode* found = nullptr;
        while (!list->empty()) {
            found = &(*list)[below(list->size())];
            if (below(3) == 0)
                break;
            list = &found->children;
        }
        if (found != nullptr) {
            const DerNode copy = *found;
            replace_or_insert(siblings, index, copy);
        }
    }

    void wrap(DerNode& node) {
        DerNode outer;
        constexpr uint8_t kAround[] = {0x30, 0x31, 0xA0, 0xA1, 0xA3, 0x04, 0x03, 0x24};
        outer.identifier = std::string(1, static_cast<char>(any(kAround, std::size(kAround))));
        outer.hasChildren = true;
        if (outer.is(0x03))
            outer.value = std::string(1, '\0');
        outer.children.push_back(std::move(node));
        node = std::move(outer);
    }

    // segment makes a string constructed, in pieces, as BER may have it.
    void segment(DerNode& node) {
        if (node.is_raw() || (node.identifier[0] & 0x20) != 0)
            return;
        const std::string whole = node.value + der_tree_write(node.children);
        const size_t step = 1 + below(whole.size() + 1);
        const std::string inner = node.is(0x03) ? "\x03" : "\x04";
        node.children.clear();
        for (size_t at = 0; at < whole.size() && node.children.size() < 64; at += step) {
            DerNode& piece = node.children.emplace_back();
            piece.identifier = inner;
            piece.value = whole.substr(at, step);
        }
        node.identifier[0] = static_cast<char>(node.identifier[0] | 0x20);
        node.value.clear();
        node.hasChildren = true;
        node.form = below(2) == 0 ? LengthForm::indefinite : LengthForm::shortest;
    }

    void mutate_bytes(std::string& bytes) {
        const size_t size = bytes.size(), room = size + 16;
        bytes.resize(room);
        bytes.resize(LLVMFuzzerMutate(reinterpret_cast<uint8_t*>(bytes.data()), size, room));
    }

    // set_value changes the content as the type suggests.
    void set_value(DerNode& node) {
        if (node.hasChildren && !node.children.empty())
            return set_value(node.children[below(node.children.size())]);
        if (below(3) == 0)
            return mutate_bytes(node.value);
        switch (node.is_raw() ? 0 : static_cast<uint8_t>(node.identifier[0])) {
        case 0x01:
            node.value = std::string(1, static_cast<char>(below(3) == 0 ? 1 : below(2) == 0 ? 0xFF : 0));
            break;
        case 0x02:
        case 0x0A:
            if (below(6) == 0)
                node.value.assign(1 + below(600), '\x7F');
            else
                node.value = any(kIntegers, std::size(kIntegers));
            break;
        case 0x03:
            if (!node.value.empty() && below(2) == 0)
                node.value[0] = static_cast<char>(below(10));
            else
                mutate_bytes(node.value);
            break;
        case 0x06:
            node.value = any(known_oids().data(), known_oids().size());
            break;
        case 0x17:
        case 0x18:
            node.value = any(kTimes, std::size(kTimes));
            break;
        case 0x0C:
        case 0x13:
        case 0x14:
        case 0x16:
        case 0x1C:
        case 0x1E:
        case 0x81:
        case 0x82:
        case 0x86:
            node.value = any(kTexts, std::size(kTexts));
            break;
        default:
            mutate_bytes(node.value);
        }
    }

    std::minstd_rand random_;
    std::vector<Place> places_;
};

// Inputs seen lately, whose subtrees others take over.
constexpr size_t kDonors = 64, kLargestDonor = 20000;
std::vector<DerTree> donors;
size_t nextDonor = 0;

void remember(const DerTree& tree) {
    if (donors.size() < kDonors)
        donors.push_back(tree);
    else
        donors[nextDonor++ % kDonors] = tree;
}

bool is_text(std::string_view input) {
    return std::all_of(input.begin(), input.end(),
                       [](char c) { return (c >= ' ' && c <= '~') || c == '\n'; });
}

} // namespace

bool der_mutate(std::string& input, size_t most, unsigned seed) {
    Mutator mutator(seed);
    DerTree tree;
    if (input.empty() || is_text(input) || mutator.below(20) == 0 || !der_tree_read(tree, input))
        return false;
    if (mutator.below(8) == 0 && input.size() < kLargestDonor)
        remember(tree);
    mutator.edit(tree, donors.empty() ? DerTree() : donors[mutator.below(donors.size())]);
    input = der_tree_write(tree);
    return input.size() <= most;
}

bool der_cross_over(std::string& input, std::string_view other, size_t most, unsigned seed) {
    Mutator mutator(seed);
    DerTree tree, donor;
    if (is_text(input) || is_text(other) || !der_tree_read(tree, input) || !der_tree_read(donor, other))
        return false;
    mutator.edit(tree, donor);
    input = der_tree_write(tree);
    return input.size() <= most;
}

} // namespace fuzz
