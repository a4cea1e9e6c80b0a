#pragma once
#include <cstring>
#include <type_traits>

#include "frame/wipe.h"
#include "zulcore.h"

// Contexts that callers keep in their own memory, at any address: a state without pointers between two marks.
// The second mark is a checksum of the whole. A context that was never begun, or was cut, changed or wiped,
// is refused and not read.
namespace zul {

enum class ContextKind : uint64_t { digest = 0x7A754C31, hmac = 0x7A754C32, cipher = 0x7A754C33 };

uint64_t context_check(ContextKind kind, const void* state, size_t size);

template<class State>
class CallerContext {
    static_assert(std::is_trivially_copyable_v<State>);

  public:
    static constexpr size_t kBytes = sizeof(State) + 2 * sizeof(uint64_t);

    explicit CallerContext(ContextKind kind) : kind_(kind) {}

    State& operator*() { return *state_; }
    State* operator->() { return &*state_; }

    // load takes the state from the caller's memory: 0, BAD_PARAM_ERROR or INVALID_DATA_ERROR.
    [[nodiscard]] int load(const void* memory) {
        if (memory == nullptr)
            return BAD_PARAM_ERROR;
        const auto* bytes = static_cast<const uint8_t*>(memory);
        uint64_t marks[2];
        memcpy(&marks[0], bytes, sizeof marks[0]);
        if (marks[0] != static_cast<uint64_t>(kind_))
            return INVALID_DATA_ERROR;
        memcpy(&*state_, bytes + sizeof marks[0], sizeof(State));
        memcpy(&marks[1], bytes + sizeof marks[0] + sizeof(State), sizeof marks[1]);
        return marks[1] == context_check(kind_, &*state_, sizeof(State)) ? 0 : INVALID_DATA_ERROR;
    }

    void store(void* memory) {
        auto* bytes = static_cast<uint8_t*>(memory);
        const uint64_t marks[2] = {static_cast<uint64_t>(kind_),
                                   context_check(kind_, &*state_, sizeof(State))};
        memcpy(bytes, &marks[0], sizeof marks[0]);
        memcpy(bytes + sizeof marks[0], &*state_, sizeof(State));
        memcpy(bytes + sizeof marks[0] + sizeof(State), &marks[1], sizeof marks[1]);
    }

    static void wipe(void* memory) { wipe_bytes(memory, kBytes); }

  private:
    ContextKind kind_;
    Wiped<State> state_;
};

} // namespace zul
