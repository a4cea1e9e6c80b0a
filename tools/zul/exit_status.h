#pragma once

// The exit status of the tool, all of them. docs/exit-status.md says which command gives which.
namespace tool {

constexpr int kDone = 0;    // done; or yes
constexpr int kRefused = 1; // the library or the system refused it; or no
constexpr int kUsage = 2;   // wrong arguments: nothing was done

} // namespace tool
