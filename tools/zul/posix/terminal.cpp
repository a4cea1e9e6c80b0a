#include <csignal>
#include <fcntl.h>
#include <iterator>
#include <termios.h>
#include <unistd.h>

#include "../operating_system.h"

namespace tool {

namespace {

constexpr int kEnding[] = {SIGHUP, SIGINT, SIGQUIT, SIGTERM};

// What to restore before a signal ends the process.
int silentDevice = -1;
termios loudMode;

extern "C" void make_loud_and_end(int signal) {
    tcsetattr(silentDevice, TCSAFLUSH, &loudMode);
    raise(signal); // with its default action now, once this returns
}

} // namespace

struct Terminal::State {
    int device;
    bool isUsable;
    termios mode{};
    struct sigaction before[std::size(kEnding)];
};

Terminal::Terminal() : state_(std::make_unique<State>()) {
    state_->device = open("/dev/tty", O_RDWR | O_CLOEXEC);
    state_->isUsable = state_->device >= 0 && tcgetattr(state_->device, &state_->mode) == 0;
    if (!state_->isUsable)
        return;
    termios quiet = state_->mode;
    quiet.c_lflag &= ~static_cast<tcflag_t>(ECHO | ICANON | ISIG);
    quiet.c_cc[VMIN] = 1;
    quiet.c_cc[VTIME] = 0;
    silentDevice = state_->device;
    loudMode = state_->mode;
    for (size_t i = 0; i < std::size(kEnding); ++i) {
        struct sigaction ending {};
        ending.sa_handler = make_loud_and_end;
        ending.sa_flags = static_cast<int>(SA_RESETHAND);
        sigaction(kEnding[i], &ending, &state_->before[i]);
    }
    state_->isUsable = tcsetattr(state_->device, TCSAFLUSH, &quiet) == 0;
}

Terminal::~Terminal() {
    if (state_->isUsable)
        tcsetattr(state_->device, TCSAFLUSH, &state_->mode);
    for (size_t i = 0; i < std::size(kEnding) && silentDevice >= 0; ++i)
        sigaction(kEnding[i], &state_->before[i], nullptr);
    silentDevice = -1;
    if (state_->device >= 0)
        close(state_->device);
}

bool Terminal::is_usable() const {
    return state_->isUsable;
}

void Terminal::show(std::string_view text) const {
    while (!text.empty()) {
        const ssize_t written = write(state_->device, text.data(), text.size());
        if (written <= 0)
            return;
        text.remove_prefix(static_cast<size_t>(written));
    }
}

int Terminal::next_key() const {
    unsigned char key = 0;
    return read(state_->device, &key, 1) == 1 ? key : -1;
}

} // namespace tool
