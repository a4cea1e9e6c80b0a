#include "platform/posix/dialog_host.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <pthread.h>
#include <unistd.h>

namespace zul::platform {

// The signals that have arrived, a bit each; any thread may be the one that receives them.
static std::atomic<uint32_t> arrived{0};
static_assert(std::atomic<uint32_t>::is_always_lock_free);

static constexpr uint32_t bit(int number) {
    return uint32_t{1} << number;
}

// Set when the process was stopped without our seeing SIGCONT (the application handles it).
static constexpr uint32_t kModeLost = bit(0);

static void note_signal(int number) {
    if (number == SIGCONT)
        arrived &= ~bit(SIGTSTP); // as the system forgets a stop that has not come about
    arrived |= bit(number);
}

// send_again lets a signal stop or end the process. To this thread, for which it is then over as soon as the
// function returns, also if the thread blocks the signal.
static void send_again(int number) {
    sigset_t mask, own;
    sigemptyset(&own);
    sigaddset(&own, number);
    pthread_sigmask(SIG_UNBLOCK, &own, &mask);
    raise(number);
    pthread_sigmask(SIG_SETMASK, &mask, nullptr);
}

static void send_again_all(uint32_t signals) {
    for (const int number : kSignals) {
        if ((signals & bit(number)) != 0)
            send_again(number);
    }
}

void end_prompt(std::atomic<bool>& isTaken) {
    const uint32_t signals = arrived.exchange(0);
    isTaken = false;
    send_again_all(signals);
}

// Without blocking: a signal discards what has been typed, and one that arrived between a poll and its read
// would leave that read waiting.
Terminal::Terminal() {
    pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &cancelState_);
    do
        fd_ = open("/dev/tty", O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
    while (fd_ < 0 && errno == EINTR);
}

Terminal::~Terminal() {
    if (entered_)
        leave(false);
    if (fd_ >= 0)
        close(fd_);
    pthread_setcancelstate(cancelState_, nullptr);
}

// A signal that the application ignores or handles stays so: its timers and broken pipes are no end of the
// prompt. SIGTTIN and SIGTTOU are not among the signals: they stop a process whose terminal is another's
// already.
void Terminal::catch_signals() {
    struct sigaction action {};
    action.sa_handler = note_signal;
    action.sa_flags = SA_ONSTACK | SA_RESTART; // some threads have no room on their own, or expect no EINTR
    sigfillset(&action.sa_mask);
    for (size_t i = 0; i < kSignalCount; i++) {
        isCaught_[i] = sigaction(kSignals[i], nullptr, &handlers_[i]) == 0 &&
                       (handlers_[i].sa_flags & SA_SIGINFO) == 0 && handlers_[i].sa_handler == SIG_DFL &&
                       sigaction(kSignals[i], &action, nullptr) == 0;
    }
}

void Terminal::restore_signals() {
    for (size_t i = 0; i < kSignalCount; i++) {
        struct sigaction now {};
        if (isCaught_[i] && sigaction(kSignals[i], nullptr, &now) == 0 && now.sa_handler == note_signal)
            sigaction(kSignals[i], &handlers_[i], nullptr);
    }
}

// What has been written is not waited for: it would wait for ever while the user holds the output back.
bool Terminal::set_mode(const termios& mode) const {
    int result;
    do
        result = tcsetattr(fd_, TCSANOW, &mode);
    while (result != 0 && errno == EINTR);
    return result == 0;
}

bool Terminal::echoes() const {
    termios mode{};
    return tcgetattr(fd_, &mode) == 0 && (mode.c_lflag & ECHO) != 0;
}

bool Terminal::is_ours() const {
    return tcgetpgrp(fd_) == getpgrp();
}

bool Terminal::enter(Reading reading) {
    // A process in the background is stopped here, before it reads another process's mode, which would be
    // put back later. One that does not let itself be stopped has nobody to ask.
    int flushed;
    do {
        struct sigaction stop {};
        sigaction(SIGTTOU, nullptr, &stop);
        if (stop.sa_handler != SIG_DFL && !is_ours())
            return false;
        flushed = tcflush(fd_, TCIFLUSH);
    } while (flushed != 0 && errno == EINTR);
    if (flushed != 0 || !is_ours() || tcgetattr(fd_, &before_) != 0)
        return false;

    termios mode = before_;
    mode.c_iflag = (mode.c_iflag | ICRNL) & ~static_cast<tcflag_t>(INLCR | IGNCR);
    mode.c_oflag |= OPOST | ONLCR;
    mode.c_lflag = (mode.c_lflag | ICANON | ISIG) & ~static_cast<tcflag_t>(ECHO | ECHONL);
    if (reading == Reading::bytes) {
        mode.c_lflag &= ~static_cast<tcflag_t>(ICANON);
        mode.c_cc[VMIN] = 1;
        mode.c_cc[VTIME] = 0;
    }
    catch_signals();
    entered_ = true;
    return set_mode(mode) && !echoes();
}

void Terminal::leave(bool keepInput) {
    if (is_ours()) { // unless somebody has stopped the process and gone on with the terminal
        // Half a password that stayed in the terminal's line would be the shell's next input.
        if (!keepInput || arrived != 0)
            tcflush(fd_, TCIFLUSH);
        set_mode(before_);
    }
    restore_signals();
    entered_ = false;
}

bool Terminal::pause() {
    const uint32_t signals = arrived;
    if (signals == 0 || (signals & ~(bit(SIGTSTP) | bit(SIGCONT) | kModeLost)) != 0)
        return false;
    send_again_all(arrived.exchange(0));
    return true;
}

static constexpr int kPiece = 100; // milliseconds

// wait_for waits for the terminal to be ready, for at most kPiece: a signal that another thread receives does
// not interrupt the wait. False if it cannot be waited for.
static bool wait_for(int fd, short what) {
    pollfd ready{fd, what, 0};
    return poll(&ready, 1, kPiece) >= 0 || errno == EINTR;
}

static bool is_to_be_repeated(ssize_t result) {
    return result < 0 && (errno == EINTR || errno == EAGAIN);
}

Terminal::Input Terminal::read(uint8_t* byte) {
    while (arrived == 0) {
        if (!wait_for(fd_, POLLIN))
            return Input::failed;
        if (arrived != 0)
            break;      // before the read: it would stop a process that has lost the terminal
        if (echoes()) { // the process was stopped, and the shell has put the terminal right
            arrived |= kModeLost;
            break;
        }
        const ssize_t got = ::read(fd_, byte, 1);
        if (is_to_be_repeated(got))
            continue;
        if (got < 0)
            return Input::failed;
        return got == 0 ? Input::end : Input::byte;
    }
    return Input::signalled;
}

void Terminal::drain() {
    uint8_t byte;
    pollfd ready{fd_, POLLIN, 0};
    while (arrived == 0 && poll(&ready, 1, kPiece) > 0 && read(&byte) == Input::byte)
        continue;
}

void Terminal::write(const char* text, size_t size) {
    while (size > 0 && is_ours()) {
        const ssize_t put = ::write(fd_, text, size);
        if (is_to_be_repeated(put) && arrived == 0 && wait_for(fd_, POLLOUT))
            continue;
        if (put <= 0)
            return;
        text += put;
        size -= static_cast<size_t>(put);
    }
}

void Terminal::write(const char* text) {
    write(text, strlen(text));
}

// sequence_length is that of the UTF-8 sequence at text, of two bytes or more; 0 if there is none, or one of
// the control characters above 127.
static size_t sequence_length(const uint8_t* text) {
    if (text[0] < 0xC2 || text[0] > 0xF4)
        return 0;
    const size_t length = text[0] >= 0xF0 ? 4 : text[0] >= 0xE0 ? 3 : 2;
    const uint8_t lowest = text[0] == 0xC2 || text[0] == 0xE0 ? 0xA0 : text[0] == 0xF0 ? 0x90 : 0x80;
    for (size_t i = 1; i < length; i++) {
        if (text[i] < (i == 1 ? lowest : 0x80) || text[i] > 0xBF)
            return 0;
    }
    return length;
}

void Terminal::write_text(const char* text) {
    const auto* bytes = reinterpret_cast<const uint8_t*>(text);
    while (*bytes != 0) {
        if (bytes[0] == '\r' && bytes[1] == '\n')
            bytes++;
        const size_t size = std::max<size_t>(sequence_length(bytes), 1);
        const bool isControl = (*bytes < 0x20 && *bytes != '\n') || (*bytes >= 0x7F && *bytes < 0xA0);
        write(*bytes == '\t' ? " " : isControl ? "?" : reinterpret_cast<const char*>(bytes), size);
        bytes += size;
    }
}

} // namespace zul::platform
