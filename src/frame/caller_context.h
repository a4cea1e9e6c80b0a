#pragma once
#include <cstring>
#include <type_traits>

#include "frame/err.h"
#include "frame/wipe.h"
#include "zulcore.h"

// Contexts that callers keep in their own memory, at any address: a state without pointers between two marks.
// The second mark is a checksum of the whole. A context that was never begun, or was cut, changed or wiped,
// is refused and not read.
namespace zul {

enum class ContextKind : uint64_t { digest = 0x7A754C31, hmac = 0x7A754C32, cipher = 0x7A754C33 };

// context_check takes whole words.
uint64_t context_check(ContextKind kind, const void* state, size_t size);

template<class State>
class CallerContext {
    static_assert(std::is_trivially_copyable_v<State> && sizeof(State) % sizeof(uint64_t) == 0);

  public:
    static constexpr size_t kBytes = sizeof(State) + 2 * sizeof(uint64_t);

    explicit CallerContext(ContextKind kind) : kind_(kind) { wipe_object(state_); }
    CallerContext(const CallerContext&) = delete;
    CallerContext& operator=(const CallerContext&) = delete;
    ~CallerContext() { wipe_object(state_); }

    State& operator*() { return state_; }
    State* operator->() { return &state_; }

    static bool is_query(const void* memory, int bytes) { return memory == nullptr || bytes == 0; }

    // prepare readies the caller's memory for a context: 0 or SHORT_BUF_ERROR. It wipes an older one, so that
    // nobody goes on with that who overlooks that the new one could not be begun.
    [[nodiscard]] static int prepare(void* memory, int bytes) {
        if (is_query(memory, bytes))
            return 0;
        if (bytes < 0 || static_cast<size_t>(bytes) < kBytes)
            return err_short_room(kBytes);
        wipe(memory);
        return 0;
    }

    // load takes the state from the caller's memory: 0, BAD_PARAM_ERROR or INVALID_DATA_ERROR.
    [[nodiscard]] int load(const void* memory) {
        if (memory == nullptr)
            return err_missing_argument();
        const auto* bytes = static_cast<const uint8_t*>(memory);
        uint64_t marks[2];
        memcpy(&marks[0], bytes, sizeof marks[0]);
        if (marks[0] != static_cast<uint64_t>(kind_))
            return err_unknown_context();
        memcpy(&state_, bytes + sizeof marks[0], sizeof(State));
        memcpy(&marks[1], bytes + sizeof marks[0] + sizeof(State), sizeof marks[1]);
        return marks[1] == context_check(kind_, &state_, sizeof(State)) ? 0 : err_unknown_context();
    }

    void store(void* memory) {
        auto* bytes = static_cast<uint8_t*>(memory);
        const uint64_t marks[2] = {static_cast<uint64_t>(kind_),
                                   context_check(kind_, &state_, sizeof(State))};
        memcpy(bytes, &marks[0], sizeof marks[0]);
        memcpy(bytes + sizeof marks[0], &state_, sizeof(State));
        memcpy(bytes + sizeof marks[0] + sizeof(State), &marks[1], sizeof marks[1]);
    }

    static void wipe(void* memory) { wipe_fixed<kBytes>(memory); }

  private:
    ContextKind kind_;
    State state_; // all zero at the start, so that nothing else of the stack gets into the caller's memory
};

} // namespace zul
