#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "secret_bytes.h"

namespace tool {

struct DerElement {
    size_t level;
    const unsigned char* header;
    size_t headerSize;
    size_t length; // of the content, which follows the header; 0 with isIndefinite
    bool isConstructed, isIndefinite;
};

// DerWalk goes through the elements of an encoding (X.690, definite and indefinite lengths) in their order,
// inner ones after the outer one's header.
class DerWalk {
  public:
    // bytes stay the caller's; name is for messages.
    DerWalk(const SecretBytes& bytes, const std::string& name) : bytes_(bytes), name_(name) {}
    // next is false at the end; Refused where the encoding is damaged.
    bool next(DerElement& element);

  private:
    struct Frame {
        size_t end; // of what the content can take up, its end unless isIndefinite
        bool isIndefinite;
    };

    size_t end() const { return open_.empty() ? bytes_.size() : open_.back().end; }
    void close_finished();
    size_t read_identifier(size_t at);
    [[noreturn]] void damaged(const std::string& what) const;

    const SecretBytes& bytes_;
    std::string name_;
    size_t at_ = 0;
    std::vector<Frame> open_;
};

// DerPart is an element with all that is in it.
struct DerPart {
    size_t level;
    unsigned char tag; // the first octet
    std::string_view all, content;
};
// der_parts gives the elements down to a level, in their order.
std::vector<DerPart> der_parts(const SecretBytes& bytes, const std::string& name, size_t deepest);

} // namespace tool
