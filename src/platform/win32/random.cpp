#include <windows.h>
#include <algorithm>
#include <ntsecapi.h> // RtlGenRandom, which the system exports as SystemFunction036

#include "platform/platform.h"

namespace zul::platform {

bool system_random(void* out, size_t size) {
    auto* bytes = static_cast<uint8_t*>(out);
    while (size > 0) {
        const auto part = static_cast<ULONG>(std::min<size_t>(size, 1u << 30));
        if (!RtlGenRandom(bytes, part))
            return false;
        bytes += part;
        size -= part;
    }
    return true;
}

} // namespace zul::platform
