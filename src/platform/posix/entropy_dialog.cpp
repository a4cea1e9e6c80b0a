#include <cstdio>

#include "platform/platform.h"
#include "platform/posix/dialog_host.h"

namespace zul::platform {

static constexpr char kMessage[] = "Please type random characters on your keyboard until 100% is reached.\n";

// collect shows the percentage as it grows; the input is that of the last byte.
static Terminal::Input collect(Terminal& terminal, EntropyEvents& events, int* percentage) {
    uint8_t byte = 0;
    auto input = Terminal::Input::byte;
    while (*percentage < 100 && (input = terminal.read(&byte)) == Terminal::Input::byte) {
        *percentage = events.key(byte);
        char progress[16];
        snprintf(progress, sizeof progress, "\r%d%%", *percentage);
        terminal.write(progress);
    }
    return input;
}

// confirm has the user press Return, and drops what else is typed: a user who is still typing at random would
// type the rest into the shell.
static bool confirm(Terminal& terminal, EntropyEvents& events) {
    terminal.write("\n\aPress Return to go on.");
    uint8_t byte = 0;
    while (byte != '\n') {
        if (terminal.read(&byte) != Terminal::Input::byte)
            return false;
        events.key(byte);
    }
    terminal.drain();
    return true;
}

PromptEnd entropy_dialog(const char* prompt, EntropyEvents& events) {
    Terminal terminal;
    bool again = terminal.is_open(), isConfirmed = false;
    int percentage = 0;
    while (again) {
        if (!terminal.enter(Terminal::Reading::bytes))
            return PromptEnd::unavailable;
        if (prompt[0] != '\0') {
            terminal.write_text(prompt);
            terminal.write("\n");
        }
        terminal.write(kMessage);
        isConfirmed =
            collect(terminal, events, &percentage) == Terminal::Input::byte && confirm(terminal, events);
        terminal.write("\n");
        terminal.leave(false);
        again = !isConfirmed && terminal.pause();
    }
    return isConfirmed ? PromptEnd::accepted : PromptEnd::unavailable;
}

} // namespace zul::platform
