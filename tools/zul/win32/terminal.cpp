#include <windows.h>

#include "../operating_system.h"

namespace tool {

struct Terminal::State {
    HANDLE keys, screen;
    DWORD mode = 0;
    bool isUsable;
    mutable std::string pending; // bytes of a character that were not given out yet, the last first
    mutable wchar_t high = 0;    // the first half of a surrogate pair

    static HANDLE open(const wchar_t* name) {
        return CreateFileW(name, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                           OPEN_EXISTING, 0, nullptr);
    }
};

Terminal::Terminal() : state_(std::make_unique<State>()) {
    state_->keys = State::open(L"CONIN$");
    state_->screen = State::open(L"CONOUT$");
    state_->isUsable = state_->screen != INVALID_HANDLE_VALUE &&
                       GetConsoleMode(state_->keys, &state_->mode) != 0 &&
                       SetConsoleMode(state_->keys, 0) != 0;
}

Terminal::~Terminal() {
    SecureZeroMemory(state_->pending.data(), state_->pending.size());
    if (state_->isUsable)
        SetConsoleMode(state_->keys, state_->mode);
    CloseHandle(state_->keys);
    CloseHandle(state_->screen);
}

bool Terminal::is_usable() const {
    return state_->isUsable;
}

void Terminal::show(std::string_view text) const {
    DWORD written = 0;
    WriteFile(state_->screen, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
}

// A character is given as the bytes that it has on the command line. It is read as UTF-16, since the narrow
// functions of the console lose all UTF-8 that is not ASCII.
int Terminal::next_key() const {
    while (state_->pending.empty()) {
        wchar_t key[2] = {};
        DWORD count = 0;
        wchar_t unit = 0;
        if (ReadConsoleW(state_->keys, &unit, 1, &count, nullptr) == 0 || count != 1)
            return -1;
        if (IS_HIGH_SURROGATE(unit)) {
            state_->high = unit;
            continue;
        }
        const bool isPair = IS_LOW_SURROGATE(unit) && state_->high != 0;
        key[0] = isPair ? state_->high : unit;
        key[1] = unit;
        state_->high = 0;
        char bytes[8];
        for (int i =
                 WideCharToMultiByte(CP_ACP, 0, key, isPair ? 2 : 1, bytes, sizeof bytes, nullptr, nullptr);
             i > 0; --i)
            state_->pending.push_back(bytes[i - 1]);
    }
    const int first = static_cast<unsigned char>(state_->pending.back());
    state_->pending.back() = 0;
    state_->pending.pop_back();
    return first;
}

} // namespace tool
