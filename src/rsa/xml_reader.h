#pragma once
#include <array>
#include <cstddef>
#include <string_view>

namespace zul {

// XmlReader steps through an XML 1.0 document in memory, without changing or copying it. It checks that tags
// match and that there is one root. It skips declarations, comments and processing instructions and ignores
// prefixes of names. It refuses a document type, so only the predefined entities exist.
class XmlReader {
  public:
    enum class Event {
        start, // of an element; also of an empty one, whose end follows
        end,
        text,      // a piece of an element's text; a text may come in several
        finished,  // the whole document was well-formed
        malformed, // it is not; also for elements nested deeper than kMaxDepth
    };
    static constexpr size_t kMaxDepth = 32;

    explicit XmlReader(std::string_view document);
    Event next(); // after finished or malformed the same again

    size_t depth() const { return depth_; }         // of open elements: 1 after the start of the root
    std::string_view name() const { return name_; } // of the element started or ended, without its prefix
    std::string_view text() const { return text_; } // valid until the next step
    std::string_view attribute(std::string_view wanted) const; // of the element started: empty if it has none

  private:
    Event read();
    Event read_markup();
    Event read_start_tag();
    Event read_end_tag();
    Event read_text();
    bool read_reference();
    bool read_cdata();
    bool skip_attributes();
    std::string_view read_name();
    bool skip_past(std::string_view mark);
    bool skip_space();
    bool take(std::string_view token);
    void close();

    std::string_view rest_; // what is still to be read
    std::array<std::string_view, kMaxDepth> open_;
    size_t depth_ = 0;
    bool hadRoot_ = false;
    bool isEmpty_ = false; // the end of an empty element is due
    bool isOver_ = false;
    Event last_ = Event::malformed;
    std::string_view name_, attributes_, text_;
    char character_[4] = {}; // what a reference stood for
};

} // namespace zul
