#pragma once
#include <cstdint>

namespace zul {

constexpr uint32_t kEventAllocation = 0xC000029A;
constexpr uint32_t kEventRandomGenerator = 0xC0001F53;

// fatal_report tells the machine's owner of a failure that ends the process: an event, then a line in the
// error log file, then a message box, the last two unless the machine's options forbid them. type: 1 error,
// 2 warning, anything else information. Its own failures are silent.
void fatal_report(int type, const char* message, uint32_t eventId);

} // namespace zul
