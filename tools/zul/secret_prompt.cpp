#include <string_view>

#include "failures.h"
#include "key_option.h"
#include "operating_system.h"

namespace tool {

namespace {

constexpr int kInterrupt = 3, kEndOfInput = 4, kBackspace = 8, kEraseLine = 21, kDelete = 127;

// drop_character takes the last character away, all of its bytes if it is one of UTF-8.
void drop_character(SecretBytes& line) {
    bool more = !line.empty();
    while (more) {
        more = (line.back() & 0xC0) == 0x80 && line.size() > 1;
        line.pop_back();
    }
}

SecretBytes ask(const Terminal& terminal, std::string_view question) {
    SecretBytes line;
    line.reserve(256);
    terminal.show(question);
    for (;;) {
        const int key = terminal.next_key();
        if (key == '\r' || key == '\n') {
            terminal.show("\n");
            return line;
        }
        if (key < 0 || key == kInterrupt || key == kEndOfInput) {
            terminal.show("\n");
            throw Refused::by_system(NO_DATA_ERROR, "password", "None was given.");
        }
        if (key == kBackspace || key == kDelete)
            drop_character(line);
        else if (key == kEraseLine)
            line.clear();
        else
            line.push_back(static_cast<unsigned char>(key));
    }
}

} // namespace

SecretBytes ask_secretly(const std::string& question, bool twice) {
    const Terminal terminal;
    if (!terminal.is_usable())
        throw Refused::by_system(
            NO_DATA_ERROR, "password",
            "There is no terminal to ask at; name a file that holds it, or - for standard "
            "input.");
    SecretBytes answer = ask(terminal, question + ": ");
    if (twice && ask(terminal, "Once more: ") != answer)
        throw Refused::by_system(NO_MATCH_ERROR, "password", "The two answers differ.");
    return answer;
}

} // namespace tool
