#pragma once
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <termios.h>

namespace zul::platform {

constexpr int kSignals[] = {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGALRM, SIGPIPE, SIGCONT, SIGTSTP};
constexpr size_t kSignalCount = sizeof kSignals / sizeof kSignals[0];

// Terminal is the process's controlling terminal while the user is being asked, whatever standard input is.
//
// Between enter and leave the terminal's mode is changed, and the signals whose default would end or stop the
// process are caught and held back, until pause or end_prompt sends them again: by then the terminal mode
// has been restored. Signals that the application handles or ignores are its own: a handler runs at once, and
// has to return. A thread is not cancelled while it has one.
class Terminal {
  public:
    enum class Reading { lines, bytes };
    enum class Input { byte, end, signalled, failed };

    Terminal();
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;
    ~Terminal();

    bool is_open() const { return fd_ >= 0; }

    // enter waits for the foreground, discards what was typed before, switches the echo off and has input
    // arrive in lines or byte by byte.
    bool enter(Reading reading);
    // leave undoes enter. Input that nobody has read is discarded unless it is to be kept.
    void leave(bool keepInput);
    // pause stops the process if that is all that the signals ask for. True if the user is to be asked anew:
    // it has been stopped, here or by a signal that cannot be caught, and is going on.
    bool pause();

    // read waits for one byte; signalled: leave is due.
    Input read(uint8_t* byte);
    // drain reads and drops what is still being typed, until nothing comes for a tenth of a second.
    void drain();
    // write stops at what cannot be written; write_text shows a text of others: control characters but line
    // ends become "?".
    void write(const char* text, size_t size);
    void write(const char* text);
    void write_text(const char* text);

  private:
    void catch_signals();
    void restore_signals();
    bool echoes() const;
    bool is_ours() const;
    bool set_mode(const termios& mode) const;

    int fd_, cancelState_ = 0;
    bool entered_ = false;
    termios before_{};
    bool isCaught_[kSignalCount]{};
    struct sigaction handlers_[kSignalCount] {};
};

} // namespace zul::platform
