#include "cert/fields/oid_names.h"

#include <algorithm>
#include <iterator>

#include "cert/fields/oid_names_table.h"

namespace zul {

namespace {

constexpr size_t kMaxOctets = 15;

struct OidKey {
    uint8_t octets[kMaxOctets] = {};
    uint8_t size = 0;
};

// encode gives the content octets of a dotted form (X.690, 8.19) at compile time.
constexpr OidKey encode(const char* dotted) {
    OidKey key;
    uint64_t root = 0;
    for (int place = 0; *dotted != '\0'; place++) {
        uint64_t arc = 0;
        for (; *dotted != '\0' && *dotted != '.'; dotted++)
            arc = arc * 10 + static_cast<uint64_t>(*dotted - '0');
        if (*dotted == '.')
            dotted++;
        if (place == 0) {
            root = arc;
            continue;
        }
        if (place == 1)
            arc += 40 * root;
        int groups = 1;
        while (groups < 9 && arc >> (7 * groups) != 0)
            groups++;
        while (groups-- > 0)
            key.octets[key.size++] =
                static_cast<uint8_t>((arc >> (7 * groups) & 0x7F) | (groups > 0 ? 0x80 : 0));
    }
    return key;
}

struct NamedOid {
    OidKey key;
    const char* name = nullptr;
};

constexpr bool is_before(const uint8_t* a, size_t aSize, const uint8_t* b, size_t bSize) {
    return aSize != bSize ? aSize < bSize : std::lexicographical_compare(a, a + aSize, b, b + bSize);
}

template<size_t count>
struct SortedNames {
    NamedOid rows[count] = {};
    // source: dotted forms and names, in any order.
    constexpr explicit SortedNames(const OidNameRow (&source)[count]) {
        for (size_t i = 0; i < count; i++)
            rows[i] = {encode(source[i].dotted), source[i].name};
        std::sort(rows, rows + count, [](const NamedOid& a, const NamedOid& b) {
            return is_before(a.key.octets, a.key.size, b.key.octets, b.key.size);
        });
    }
    constexpr bool has_twins() const {
        for (size_t i = 1; i < count; i++)
            if (!is_before(rows[i - 1].key.octets, rows[i - 1].key.size, rows[i].key.octets,
                           rows[i].key.size))
                return true;
        return false;
    }
    std::string_view find(DerView oid) const {
        const NamedOid* row = std::lower_bound(rows, rows + count, oid, [](const NamedOid& a, DerView b) {
            return is_before(a.key.octets, a.key.size, b.data, b.size);
        });
        return row != rows + count && DerView(row->key.octets, row->key.size) == oid ? row->name
                                                                                     : std::string_view();
    }
};

constexpr SortedNames kNames(kOidNameRows);
constexpr SortedNames kKeywords(kAttributeKeywordRows);
static_assert(!kNames.has_twins() && !kKeywords.has_twins());

// A number of at most 19 groups of seven bits in decimal.
class DecimalArc {
  public:
    void append_bits(uint8_t octet) {
        uint64_t carry = octet & 0x7F;
        for (uint32_t& digit : digits_) {
            carry += uint64_t{digit} * 128;
            digit = static_cast<uint32_t>(carry % kBase);
            carry /= kBase;
        }
    }
    bool is_at_least_80() const { return digits_[0] >= 80 || digits_[1] != 0 || rest_is_set(); }
    void subtract(uint32_t number) { // not more than it is
        for (uint32_t& digit : digits_) {
            if (digit >= number) {
                digit -= number;
                return;
            }
            digit += kBase - number;
            number = 1;
        }
    }
    uint32_t low() const { return digits_[0]; }
    void put(TextBuffer& out) const {
        size_t top = std::size(digits_) - 1;
        while (top > 0 && digits_[top] == 0)
            top--;
        out.put_number(digits_[top]);
        while (top-- > 0) {
            char text[9];
            uint32_t rest = digits_[top];
            for (size_t i = sizeof text; i-- > 0; rest /= 10)
                text[i] = static_cast<char>('0' + rest % 10);
            out.put({text, sizeof text});
        }
    }

  private:
    bool rest_is_set() const { return (digits_[2] | digits_[3] | digits_[4]) != 0; }
    static constexpr uint32_t kBase = 1000000000;
    uint32_t digits_[5] = {};
};

} // namespace

std::string_view oid_name(DerView oid) {
    return kNames.find(oid);
}

std::string_view attribute_keyword(DerView oid) {
    return kKeywords.find(oid);
}

void put_oid_dotted(TextBuffer& out, DerView oid) {
    constexpr size_t kMaxGroups = 19;
    const size_t start = out.size();
    DecimalArc arc;
    size_t groups = 0;
    bool isFirst = true, isGood = der_is_oid(oid);
    for (size_t i = 0; isGood && i < oid.size; i++) {
        isGood = ++groups <= kMaxGroups;
        arc.append_bits(oid[i]);
        if (oid[i] >= 0x80)
            continue;
        if (isFirst) {
            const uint32_t root = arc.is_at_least_80() ? 2 : arc.low() / 40;
            out.put_number(root);
            arc.subtract(40 * root);
        }
        out.put('.');
        arc.put(out);
        arc = DecimalArc();
        groups = 0;
        isFirst = false;
    }
    if (isGood)
        return;
    out.shrink(start);
    out.put('#');
    out.put_hex(oid.data, oid.size);
}

void put_oid(TextBuffer& out, DerView oid) {
    const std::string_view name = oid_name(oid);
    if (name.empty())
        put_oid_dotted(out, oid);
    else
        out.put(name);
}

} // namespace zul
