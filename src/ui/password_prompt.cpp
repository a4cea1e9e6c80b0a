#include "ui/password_prompt.h"

#include <algorithm>

#include "frame/text.h"
#include "frame/wipe.h"
#include "platform/platform.h"
#include "ui/prompt_claim.h"

namespace zul {

namespace {

constexpr int kTextSize = 128;
constexpr int kPasswordSize = 512;

// The buffers of the one open prompt.
struct PromptBuffers {
    char caption[kTextSize];
    char label[kTextSize];
    char password[kPasswordSize];
} buffers;

} // namespace

int password_prompt(char* out, int size, const char* caption, const char* label) {
    const PromptClaim claim;
    if (!claim.held())
        return -1;
    wipe_bytes(&buffers, sizeof buffers);
    str_copy(buffers.caption, caption, kTextSize);
    str_copy(buffers.label, label, kTextSize);

    int length = -1;
    if (platform::password_dialog(buffers.caption, buffers.label, buffers.password, kPasswordSize) ==
        platform::PromptEnd::accepted)
        length = std::min(str_copy(out, buffers.password, size), size - 1);
    wipe_bytes(&buffers, sizeof buffers);
    wipe_dead_stack();
    return length;
}

} // namespace zul
