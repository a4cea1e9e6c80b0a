#include <windows.h>
#include <sddl.h>
#include <zulcore.h>

#include "../failures.h"
#include "../operating_system.h"

namespace tool {

// A named pipe, since the library opens it by name.
struct Pipe::State {
    HANDLE handle = INVALID_HANDLE_VALUE;
    std::string name;
    bool isConnected = false;

    bool connect() {
        if (!isConnected)
            isConnected = ConnectNamedPipe(handle, nullptr) != 0 || GetLastError() == ERROR_PIPE_CONNECTED;
        return isConnected;
    }
};

Pipe::Pipe() : state_(std::make_unique<State>()) {
    constexpr DWORD kRoom = 1 << 16;
    char number[64];
    static unsigned count = 0;
    std::snprintf(number, sizeof number, "%lu-%u", GetCurrentProcessId(), ++count);
    state_->name = R"(\\.\pipe\zul-)" + std::string(number);
    // Only the owner may open it, and only once, so that nobody else can read the content.
    SECURITY_ATTRIBUTES security = {sizeof security, nullptr, FALSE};
    if (ConvertStringSecurityDescriptorToSecurityDescriptorA("D:P(A;;GA;;;OW)", SDDL_REVISION_1,
                                                             &security.lpSecurityDescriptor, nullptr) != 0) {
        state_->handle = CreateNamedPipeA(
            state_->name.c_str(), PIPE_ACCESS_OUTBOUND | FILE_FLAG_FIRST_PIPE_INSTANCE,
            PIPE_TYPE_BYTE | PIPE_WAIT | PIPE_REJECT_REMOTE_CLIENTS, 1, kRoom, 0, 0, &security);
        LocalFree(security.lpSecurityDescriptor);
    }
    if (state_->handle == INVALID_HANDLE_VALUE)
        throw Refused::by_system(CREATE_ERROR, "pipe");
}

Pipe::~Pipe() {
    if (state_->handle != INVALID_HANDLE_VALUE)
        CloseHandle(state_->handle);
}

const char* Pipe::name() const {
    return state_->name.c_str();
}

bool Pipe::write(const unsigned char* data, size_t size) {
    while (size > 0) {
        DWORD written = 0;
        const auto part = static_cast<DWORD>(size < (1U << 30) ? size : 1U << 30);
        if (!state_->connect() || WriteFile(state_->handle, data, part, &written, nullptr) == 0)
            return false;
        data += written;
        size -= written;
    }
    return true;
}

void Pipe::close_writer() {
    if (state_->connect())
        FlushFileBuffers(state_->handle); // what was not read yet would be lost
    CloseHandle(state_->handle);
    state_->handle = INVALID_HANDLE_VALUE;
}

void Pipe::close_reader() {
    const HANDLE reader = CreateFileA(name(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    if (reader != INVALID_HANDLE_VALUE)
        CloseHandle(reader);
}

} // namespace tool
