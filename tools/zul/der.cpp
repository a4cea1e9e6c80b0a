#include "der.h"

#include "failures.h"

namespace tool {

namespace {

constexpr size_t kMaxDepth = 200; // as the library's own reader
constexpr unsigned char kConstructed = 0x20, kLongTag = 0x1F, kMore = 0x80;

} // namespace

void DerWalk::damaged(const std::string& what) const {
    throw Refused::by_system(BAD_FORMAT_ERROR, name_, "At byte " + std::to_string(at_) + ": " + what + ".");
}

void DerWalk::close_finished() {
    while (!open_.empty() && !open_.back().isIndefinite && at_ == open_.back().end)
        open_.pop_back();
}

// read_identifier gives the place behind the identifier octets.
size_t DerWalk::read_identifier(size_t at) {
    if ((bytes_[at++] & kLongTag) != kLongTag)
        return at;
    while (at < end() && (bytes_[at] & kMore) != 0)
        at++;
    return at + 1;
}

bool DerWalk::next(DerElement& element) {
    close_finished();
    if (open_.empty() && at_ == bytes_.size())
        return false;
    const size_t end = this->end();
    if (at_ == end)
        damaged("an element of indefinite length has no end");
    const unsigned char first = bytes_[at_];
    size_t at = read_identifier(at_);
    if (at >= end)
        damaged("a header is cut off");
    size_t length = bytes_[at++];
    element = {open_.size(), bytes_.data() + at_, 0, 0, (first & kConstructed) != 0, length == kMore};
    if (length > kMore) {
        const size_t octets = length - kMore;
        if (octets > 4)
            damaged("a length of " + std::to_string(octets) + " bytes");
        if (octets > end - at)
            damaged("a header is cut off");
        length = 0;
        for (size_t i = 0; i < octets; ++i)
            length = length << 8 | bytes_[at++];
    } else if (length == kMore) {
        if (!element.isConstructed)
            damaged("a primitive element of indefinite length");
        length = 0;
    }
    if (length > end - at)
        damaged("a content of " + std::to_string(length) + " bytes, of which " + std::to_string(end - at) +
                " are there");
    element.headerSize = at - at_;
    element.length = length;
    if (first == 0) { // end of contents
        if (open_.empty() || !open_.back().isIndefinite || length != 0)
            damaged("an end without its beginning");
        open_.pop_back();
    } else if (element.isConstructed) {
        if (open_.size() == kMaxDepth)
            damaged("more than " + std::to_string(kMaxDepth) + " levels");
        open_.push_back({element.isIndefinite ? end : at + length, element.isIndefinite});
        length = 0;
    }
    at_ = at + length;
    return true;
}

std::vector<DerPart> der_parts(const SecretBytes& bytes, const std::string& name, size_t deepest) {
    const auto* text = reinterpret_cast<const char*>(bytes.data());
    std::vector<DerPart> parts;
    std::vector<size_t> open; // those whose end is still to come
    const auto close = [&](size_t level, size_t end) {
        for (; !open.empty() && parts[open.back()].level >= level; open.pop_back()) {
            DerPart& part = parts[open.back()];
            part.all = {part.all.data(), static_cast<size_t>(text + end - part.all.data())};
            part.content = part.all.substr(static_cast<size_t>(part.content.data() - part.all.data()));
        }
    };
    DerElement element;
    for (DerWalk walk(bytes, name); walk.next(element);) {
        if (element.level > deepest)
            continue;
        const auto at = static_cast<size_t>(element.header - bytes.data());
        close(element.level, at);
        if (element.header[0] == 0)
            continue; // the end of an indefinite length
        open.push_back(parts.size());
        parts.push_back( // NOLINTNEXTLINE(bugprone-string-constructor): close gives both their sizes
            {element.level, element.header[0], {text + at, 0}, {text + at + element.headerSize, 0}});
    }
    close(0, bytes.size());
    return parts;
}

} // namespace tool
