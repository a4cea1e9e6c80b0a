#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#include <zulcore.h>

#include "../failures.h"
#include "../operating_system.h"

namespace tool {

struct Pipe::State {
    int ends[2] = {-1, -1}; // to read, to write
    std::string name;

    void close_end(int which) {
        if (ends[which] >= 0)
            close(ends[which]);
        ends[which] = -1;
    }
};

Pipe::Pipe() : state_(std::make_unique<State>()) {
    if (pipe2(state_->ends, O_CLOEXEC) != 0)
        throw Refused::by_system(CREATE_ERROR, "pipe");
    state_->name = "/dev/fd/" + std::to_string(state_->ends[0]);
}

Pipe::~Pipe() {
    close_reader();
    close_writer();
}

const char* Pipe::name() const {
    return state_->name.c_str();
}

bool Pipe::write(const unsigned char* data, size_t size) {
    // SIGPIPE goes to this thread alone, and its mask ends with the thread.
    sigset_t brokenPipe;
    sigemptyset(&brokenPipe);
    sigaddset(&brokenPipe, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &brokenPipe, nullptr);
    while (size > 0) {
        const ssize_t written = ::write(state_->ends[1], data, size);
        if (written < 0 && errno != EINTR)
            return false;
        if (written > 0) {
            data += written;
            size -= static_cast<size_t>(written);
        }
    }
    return true;
}

void Pipe::close_writer() {
    state_->close_end(1);
}

void Pipe::close_reader() {
    state_->close_end(0);
}

} // namespace tool
