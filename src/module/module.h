#pragma once

namespace zul {

// module_start prepares what every call needs: the lock and the slot of the thread records. It is the part of
// a load that programs do without a module, tests of its insides for one, where nothing is sealed. False if
// the system has no slot left.
[[nodiscard]] bool module_start(void* moduleHandle);

} // namespace zul
