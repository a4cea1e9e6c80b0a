#pragma once
#include "frame/err.h"
#include "platform/cpu.h"

namespace zul {

// rng_stir hands cheap system readings to the random generator, which defines it: 0 the three cheapest,
// 1 the fuller set.
void rng_stir(int option);

// ClearedRegisters clears the registers at its end, where keys and plain text of the call may still be.
// CallFrame has one; an export without a frame declares its own before everything else.
struct ClearedRegisters {
    ~ClearedRegisters() { cpu_clear_registers(); }
};

// CallFrame stands at the top of every export. It empties the thread's error state and stirs entropy. Its two
// members record a failure and return the result in the export's convention.
class CallFrame {
  public:
    explicit CallFrame(int stirOption = 0) {
        err_clear();
        rng_stir(stirOption);
    }
    // length passes on a length or a negated error code.
    int length(int result) {
        if (result < 0)
            err_record(result);
        return result;
    }
    // The second form takes a positive code, or 0 and the length or number.
    int length(int code, int value) { return length(code != 0 ? -code : value); }
    // status passes on 0 or an error code of either sign.
    int status(int result) { return err_record(result); }

  private:
    ClearedRegisters cleared_;
};

} // namespace zul
