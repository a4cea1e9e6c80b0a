#include "platform/file_hooks.h"

namespace zul::platform {

static std::atomic<decltype(FileHooks::fault)> faultHook{nullptr};

FileFault file_fault(FileOperation operation, FileHandle file, const char* path) {
    const auto fault = faultHook.load(std::memory_order_relaxed);
    return fault == nullptr ? FileFault::none : fault(operation, file, path);
}

void file_set_hooks(FileHooks hooks) {
    faultHook.store(hooks.fault, std::memory_order_relaxed);
}

} // namespace zul::platform
