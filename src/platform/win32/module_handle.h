#pragma once
#include <windows.h>

namespace zul::platform {

// module_handle is the library's own, as remember_module received it: where its resources are.
HMODULE module_handle();

} // namespace zul::platform
