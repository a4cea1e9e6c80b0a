#include "der_tree.h"

namespace fuzz {
namespace {

constexpr size_t kMostNodes = 20000, kMostDepth = 60;

struct Header {
    size_t identifier = 0, size = 0, length = 0; // octets of the identifier and of the header; of the content
    LengthForm form = LengthForm::shortest;
};

bool read_header(Header& header, std::string_view bytes) {
    if (bytes.size() < 2)
        return false;
    size_t at = 1;
    if ((bytes[0] & 0x1F) == 0x1F)
        do {
            if (at + 1 >= bytes.size() || at > 5)
                return false;
        } while ((bytes[at++] & 0x80) != 0);
    header.identifier = at;
    const auto first = static_cast<uint8_t>(bytes[at++]);
    header.length = first;
    if (first == 0x80) {
        header.form = LengthForm::indefinite;
        header.length = bytes.size() - at;
    } else if (first > 0x80) {
        const size_t octets = first & 0x7F;
        if (octets > 4 || at + octets > bytes.size())
            return false;
        header.length = 0;
        for (size_t i = 0; i < octets; i++)
            header.length = header.length << 8 | static_cast<uint8_t>(bytes[at++]);
        const bool isShortest = header.length >= 0x80 && header.length >> (8 * (octets - 1)) != 0;
        header.form = isShortest ? LengthForm::shortest : LengthForm::long4;
    }
    header.size = at;
    return header.length <= bytes.size() - at;
}

class Reader {
  public:
    // read takes elements up to the end, or, within an indefinite length, up to the two zeros.
    bool read(DerTree& tree, std::string_view& rest, bool isOpen, size_t depth) {
        while (!rest.empty()) {
            if (isOpen && rest.substr(0, 2) == std::string_view("\0\0", 2)) {
                rest.remove_prefix(2);
                return true;
            }
            Header header;
            if (++nodes_ > kMostNodes)
                return false;
            DerNode& node = tree.emplace_back();
            if (depth > kMostDepth || !read_header(header, rest)) {
                node.value = rest;
                rest = {};
                hasRaw_ = true;
                return true;
            }
            node.identifier = rest.substr(0, header.identifier);
            node.form = header.form;
            std::string_view content = rest.substr(header.size, header.length);
            const bool isConstructed = (rest[0] & 0x20) != 0;
            if (header.form == LengthForm::indefinite) {
                if (!read(node.children, content, true, depth + 1))
                    return false;
                node.hasChildren = true;
                rest = content;
                continue;
            }
            rest.remove_prefix(header.size + header.length);
            if (isConstructed) {
                node.hasChildren = true;
                if (!read(node.children, content, false, depth + 1))
                    return false;
            } else {
                look_inside(node, content, depth);
            }
        }
        return true;
    }

  private:
    // Extensions, keys and the content of messages are encodings in strings.
    void look_inside(DerNode& node, std::string_view content, size_t depth) {
        const bool isBits = node.is(0x03) && !content.empty() && content[0] == 0;
        if ((isBits || node.is(0x04)) && content.size() > size_t{isBits} + 2) {
            Reader inner;
            inner.nodes_ = nodes_;
            std::string_view rest = content.substr(size_t{isBits});
            DerTree children;
            if (inner.read(children, rest, false, depth + 1) && !inner.hasRaw_) {
                nodes_ = inner.nodes_;
                node.children = std::move(children);
                node.hasChildren = true;
                node.value = content.substr(0, size_t{isBits});
                return;
            }
        }
        node.value = content;
    }

    size_t nodes_ = 0;
    bool hasRaw_ = false;
};

void write(std::string& out, const DerNode& node) {
    if (node.is_raw()) {
        out += node.value;
        return;
    }
    const std::string content = node.value + der_tree_write(node.children);
    out += node.identifier;
    const size_t size = content.size();
    if (node.form == LengthForm::indefinite) {
        out += '\x80';
    } else if (node.form == LengthForm::long4) {
        out += '\x84';
        for (int shift = 24; shift >= 0; shift -= 8)
            out += static_cast<char>(size >> shift);
    } else if (size < 0x80) {
        out += static_cast<char>(size);
    } else {
        const int octets = size < 0x100 ? 1 : size < 0x10000 ? 2 : 3;
        out += static_cast<char>(0x80 | octets);
        for (int shift = 8 * (octets - 1); shift >= 0; shift -= 8)
            out += static_cast<char>(size >> shift);
    }
    out += content;
    if (node.form == LengthForm::indefinite)
        out.append(2, '\0');
}

} // namespace

bool der_tree_read(DerTree& tree, std::string_view encoding) {
    return Reader().read(tree, encoding, false, 0);
}

std::string der_tree_write(const DerTree& tree) {
    std::string out;
    for (const DerNode& node : tree)
        write(out, node);
    return out;
}

} // namespace fuzz
