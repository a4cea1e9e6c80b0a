#pragma once

namespace zul {

// wipe_file overwrites a file seven times and deletes it. 0 or a positive code: OPEN_ERROR if it cannot be
// opened for writing, WIPE_ERROR if a pass or the deletion fails (the file is then left as it is).
[[nodiscard]] int wipe_file(const char* path);

} // namespace zul
