#ifndef _WIN32
#include "injection/child.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/calls/world.h"

// Thousands of reports: none goes to the system's log, and the log file is in a folder that goes away.
extern "C" void syslog(int, const char*, ...) {}
extern "C" void __syslog_chk(int, int, const char*, ...) {} // NOLINT: what a checked call becomes

extern "C" ssize_t readlink(const char* path, char* out, size_t size) {
    if (strcmp(path, "/proc/self/exe") != 0)
        return readlinkat(-100, path, out, size); // AT_FDCWD
    const std::string place = calls::world().inputs.file("program");
    const size_t length = place.size() < size ? place.size() : size;
    memcpy(out, place.data(), length);
    return static_cast<ssize_t>(length);
}

// Nobody is asked, so nobody has to let go of the keys first.
extern "C" int nanosleep(const timespec*, timespec*) {
    return 0;
}

namespace injection {

static constexpr int kFailedChecks = 98;

static int failed_parts() {
    return testing::UnitTest::GetInstance()->current_test_info()->result()->total_part_count();
}

Child::Child(Handlers handlers) : parts_(failed_parts()) {
    fflush(nullptr);
    if (pipe(pipe_) != 0)
        _exit(99);
    process_ = handlers == Handlers::called ? fork() : _Fork();
    if (process_ == 0) {
        dup2(pipe_[1], STDERR_FILENO);
        dup2(pipe_[1], STDOUT_FILENO);
        close(pipe_[0]);
    }
    close(pipe_[1]);
}

void Child::finish(int status) const {
    fflush(nullptr);
    _exit(failed_parts() == parts_ ? status : kFailedChecks);
}

void Child::wait() {
    char part[4096];
    for (ssize_t got; (got = read(pipe_[0], part, sizeof part)) > 0;)
        said_.append(part, static_cast<size_t>(got));
    close(pipe_[0]);
    waitpid(process_, &status_, 0);
}

bool Child::ended_with(int status) const {
    return WIFEXITED(status_) && WEXITSTATUS(status_) == status;
}

bool Child::ended_with_report(const char* part) const {
    return ended_with(1) && said_.find("| (X) ") != std::string::npos &&
           said_.find(part) != std::string::npos && said_.find("Sanitizer") == std::string::npos &&
           said_.find("runtime error") == std::string::npos;
}

} // namespace injection
#endif
