#pragma once
#include <cstdio>
#include <string>
#include <string_view>

// What a text looks like in a terminal: colours, and the line that shows how far some work is.
namespace tool {

enum class Style { error, warning, heading, good, bad };

// styled gives a text in colours if the stream is a terminal that has them. NO_COLOR forbids them,
// CLICOLOR_FORCE demands them.
std::string styled(Style style, std::string_view text, std::FILE* stream);
// styled_anywhere is for a text that may go to standard output or standard error: both have to show colours.
std::string styled_anywhere(Style style, std::string_view text);
// styled_help makes the headings of a help bold.
std::string styled_help(const std::string& text);

// StatusLine is a line on standard error that is written again and again, and wiped at the end. There is one
// at a time: a second one shows nothing, as all do where standard error is no terminal, or one that cannot go
// back.
class StatusLine {
  public:
    StatusLine();
    StatusLine(const StatusLine&) = delete;
    StatusLine& operator=(const StatusLine&) = delete;
    ~StatusLine();

    static bool is_possible();
    bool is_usable() const { return isUsable_; }
    size_t room() const; // the characters that fit
    void show(std::string text);

  private:
    bool isUsable_;
    size_t width_ = 0; // of what is shown
};

} // namespace tool
