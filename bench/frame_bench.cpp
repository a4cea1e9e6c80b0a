#include <openssl/err.h>

#include "bench_pair.h"
#include "zulcore.h"

// What a call costs before it does anything: the frame empties the error state and stirs the generator.
BENCH_ROWS {
    const auto shortestCall = [] {
        int size = WIPE_Data(nullptr, 0);
        static_cast<void>(size);
    };
    bench_register(
        {"ZUL_ErrorCode (their ERR_peek_error)", 0, [] { ZUL_ErrorCode(); }, [] { ERR_peek_error(); }});
    bench_register({"a refused call (their ERR_clear_error)", 0, shortestCall, [] { ERR_clear_error(); }});
    bench_register_threads("ZUL_ErrorCode, 2 threads against 1", [] { ZUL_ErrorCode(); });
    bench_register_threads("a refused call, 2 threads against 1", shortestCall);
}
