#include <cstring>

#include "platform/platform.h"
#include "platform/posix/dialog_host.h"

namespace zul::platform {

namespace {

// read_line reads up to the end of the line and keeps what fits. No line at all is the end of the input.
Terminal::Input read_line(Terminal& terminal, char* line, size_t size) {
    size_t used = 0;
    bool isEmpty = true;
    uint8_t byte = 0;
    Terminal::Input input;
    while ((input = terminal.read(&byte)) == Terminal::Input::byte && byte != '\n') {
        isEmpty = false;
        if (used < size - 1)
            line[used++] = static_cast<char>(byte);
    }
    line[used] = '\0';
    explicit_bzero(&byte, sizeof byte);
    return input == Terminal::Input::end && !isEmpty ? Terminal::Input::byte : input;
}

} // namespace

PromptEnd password_dialog(const char* caption, const char* label, char* password, size_t size) {
    Terminal terminal;
    bool again = terminal.is_open();
    if (!again)
        return PromptEnd::unavailable;

    auto input = Terminal::Input::failed;
    while (again) {
        if (!terminal.enter(Terminal::Reading::lines))
            return PromptEnd::unavailable;
        if (caption[0] != '\0') {
            terminal.write_text(caption);
            terminal.write("\n");
        }
        terminal.write_text(label[0] != '\0' ? label : "Enter password:");
        terminal.write(" ");
        input = read_line(terminal, password, size);
        if (input != Terminal::Input::byte)
            explicit_bzero(password, size);
        terminal.write("\n");
        terminal.leave(true);
        again = input == Terminal::Input::signalled && terminal.pause();
    }
    return input == Terminal::Input::byte ? PromptEnd::accepted : PromptEnd::cancelled;
}

} // namespace zul::platform
