#include <windows.h>
#include <algorithm>
#include <ntsecapi.h> // RtlGenRandom, which the system exports as SystemFunction036

#include "platform/platform.h"
#include "platform/random_hooks.h"

namespace zul::platform {

bool random_from(RandomSource source, void* out, size_t size) {
    if (source != RandomSource::systemCall)
        return false;
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
