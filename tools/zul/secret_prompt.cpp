#ifdef _WIN32
#include <windows.h>
#else
#include <csignal>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>
#endif

#include <iterator>

#include "zul_tool.h"

namespace tool {

namespace {

// Terminal is the one that the process belongs to. While it exists keys arrive one by one and unseen, the one
// that would interrupt among them, so that the user never finds it left silent.
#ifdef _WIN32
class Terminal {
  public:
    Terminal() : keys_(open("CONIN$")), screen_(open("CONOUT$")), codePage_(GetConsoleCP()) {
        usable_ = screen_ != INVALID_HANDLE_VALUE && GetConsoleMode(keys_, &mode_) != 0 &&
                  SetConsoleMode(keys_, 0) != 0;
        if (usable_)
            SetConsoleCP(GetACP()); // the bytes that the same words have on the command line
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;
    ~Terminal() {
        if (usable_) {
            SetConsoleCP(codePage_);
            SetConsoleMode(keys_, mode_);
        }
        CloseHandle(keys_);
        CloseHandle(screen_);
    }

    bool is_usable() const { return usable_; }
    void show(std::string_view text) const {
        DWORD written = 0;
        WriteFile(screen_, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    }
    int next_key() const {
        unsigned char key = 0;
        DWORD count = 0;
        return ReadConsoleA(keys_, &key, 1, &count, nullptr) != 0 && count == 1 ? key : -1;
    }

  private:
    static HANDLE open(const char* name) {
        return CreateFileA(name, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                           OPEN_EXISTING, 0, nullptr);
    }

    HANDLE keys_, screen_;
    UINT codePage_;
    DWORD mode_ = 0;
    bool usable_;
};
#else
// What a signal that ends the process has to put back first.
int silentDevice = -1;
termios loudMode;

extern "C" void make_loud_and_end(int signal) {
    tcsetattr(silentDevice, TCSAFLUSH, &loudMode);
    raise(signal); // with its default action now, once this returns
}

class Terminal {
  public:
    Terminal() : device_(open("/dev/tty", O_RDWR | O_CLOEXEC)) {
        usable_ = device_ >= 0 && tcgetattr(device_, &mode_) == 0;
        if (!usable_)
            return;
        termios quiet = mode_;
        quiet.c_lflag &= ~static_cast<tcflag_t>(ECHO | ICANON | ISIG);
        quiet.c_cc[VMIN] = 1;
        quiet.c_cc[VTIME] = 0;
        silentDevice = device_;
        loudMode = mode_;
        for (size_t i = 0; i < kSignals; ++i) {
            struct sigaction ending {};
            ending.sa_handler = make_loud_and_end;
            ending.sa_flags = static_cast<int>(SA_RESETHAND);
            sigaction(kEnding[i], &ending, &before_[i]);
        }
        usable_ = tcsetattr(device_, TCSAFLUSH, &quiet) == 0;
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;
    ~Terminal() {
        if (usable_)
            tcsetattr(device_, TCSAFLUSH, &mode_);
        for (size_t i = 0; i < kSignals && silentDevice >= 0; ++i)
            sigaction(kEnding[i], &before_[i], nullptr);
        silentDevice = -1;
        if (device_ >= 0)
            close(device_);
    }

    bool is_usable() const { return usable_; }
    void show(std::string_view text) const {
        while (!text.empty()) {
            const ssize_t written = write(device_, text.data(), text.size());
            if (written <= 0)
                return;
            text.remove_prefix(static_cast<size_t>(written));
        }
    }
    int next_key() const {
        unsigned char key = 0;
        return read(device_, &key, 1) == 1 ? key : -1;
    }

  private:
    static constexpr int kEnding[] = {SIGHUP, SIGINT, SIGQUIT, SIGTERM};
    static constexpr size_t kSignals = std::size(kEnding);

    int device_;
    termios mode_{};
    struct sigaction before_[kSignals];
    bool usable_;
};
#endif

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
