#pragma once

namespace zul {

// module_start prepares what every call needs: the lock and the slot of the thread records. Programs that
// link the library's objects, such as unit tests, call it instead of module_load, since they have no sealed
// file. False if the system has no slot left.
[[nodiscard]] bool module_start(void* moduleHandle);

} // namespace zul
