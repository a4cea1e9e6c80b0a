#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <strings.h>
#include <sys/syslog.h>
#include <time.h>
#include <unistd.h>

#include "platform/platform.h"

namespace zul::platform {

static constexpr char kOptionsFile[] = "/etc/zulkit/options";

// trim cuts white space off both ends of a text, in place.
static char* trim(char* text) {
    while (isspace(static_cast<unsigned char>(*text)))
        text++;
    size_t length = strlen(text);
    while (length > 0 && isspace(static_cast<unsigned char>(text[length - 1])))
        text[--length] = '\0';
    return text;
}

bool option_text(const char* name, char* out, size_t size) {
    FILE* file = fopen(kOptionsFile, "re");
    if (file == nullptr)
        return false;
    bool found = false;
    char line[1024];
    bool isBegin = true; // of a line; the rest of a line that is too long is not one
    while (fgets(line, sizeof line, file) != nullptr) {
        const bool wasBegin = isBegin;
        isBegin = strchr(line, '\n') != nullptr;
        if (!wasBegin)
            continue;
        char* equals = strchr(line, '=');
        if (equals == nullptr)
            continue;
        *equals = '\0';
        if (strcasecmp(trim(line), name) != 0)
            continue;
        const char* value = trim(equals + 1);
        found = strlen(value) < size; // a cut path would name another place
        if (found)
            snprintf(out, size, "%s", value);
        break;
    }
    static_cast<void>(fclose(file));
    return found;
}

bool option_number(const char* name, uint32_t* value) {
    char text[32];
    if (!option_text(name, text, sizeof text))
        return false;
    char* end = nullptr;
    errno = 0;
    const unsigned long number = strtoul(text, &end, 0);
    if (end == text || *end != '\0' || errno != 0 || number > UINT32_MAX)
        return false;
    *value = static_cast<uint32_t>(number);
    return true;
}

void event_log(const char* source, int type, uint32_t eventId, const char* message) {
    int priority = LOG_INFO;
    if (type == static_cast<int>(ReportType::error))
        priority = LOG_ERR;
    else if (type == static_cast<int>(ReportType::warning))
        priority = LOG_WARNING;
    // Without openlog: the identity under which the process logs is the application's own.
    syslog(priority | LOG_USER, "%s: event 0x%08X: %s", source, static_cast<unsigned>(eventId), message);
}

static void rule(size_t width) {
    fputc('+', stderr);
    for (size_t i = 0; i < width; i++)
        fputc('-', stderr);
    fputs("+\n", stderr);
}

void message_box(const char* caption, int type, const char* message) {
    const char* icon = type == static_cast<int>(ReportType::error) ? "X" : "i";
    const size_t width = strlen(message) + 6;
    rule(width);
    const int captionRoom = static_cast<int>(width) - 2;
    fprintf(stderr, "| %-*.*s |\n", captionRoom, captionRoom, caption);
    rule(width);
    fprintf(stderr, "| (%s) %s |\n", icon, message);
    rule(width);
}

bool append_line(const char* path, const char* line) {
    FILE* file = fopen(path, "a+e");
    if (file == nullptr)
        return false;
    const bool written = fputs(line, file) >= 0;
    return (fclose(file) == 0) && written;
}

void local_time_text(char out[27]) {
    const time_t now = time(nullptr);
    tm parts{};
    char text[64] = "";
    if (localtime_r(&now, &parts) == nullptr || asctime_r(&parts, text) == nullptr)
        text[0] = '\0';
    snprintf(out, 27, "%.26s", text);
}

void end_process(int status) {
    _exit(status);
}

} // namespace zul::platform
