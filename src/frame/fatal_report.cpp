#include "frame/fatal_report.h"

#include <cstdio>

#include "frame/text.h"
#include "platform/platform.h"

namespace zul {

namespace {

constexpr char kSource[] = "zulcore";
constexpr int kMaxPath = 260;

bool option_set(const char* name) {
    uint32_t value = 0;
    return platform::option_number(name, &value) && value != 0;
}

// log_path gives false if the executable's folder does not fit, since a cut path would name another folder. A
// path that becomes too long with the option or the file name is cut.
bool log_path(char* path, int size) {
    if (!platform::option_text("ErrorLogDir", path, static_cast<size_t>(size)))
        path[0] = '\0';
    const int length = str_length(path);
    if (length == 0) {
        char folder[4096];
        platform::executable_directory(folder, sizeof folder);
        if (const int whole = str_copy(path, folder, size); whole == 0 || whole >= size)
            return false;
    } else if (path[length - 1] != platform::path_separator()) {
        const char separator[] = {platform::path_separator(), '\0'};
        str_append(path, separator, size);
    }
    str_append(path, "zulerr.log", size);
    return true;
}

void write_log_line(const char* message, uint32_t eventId) {
    char path[kMaxPath + 1];
    if (!log_path(path, sizeof path))
        return;

    char when[27];
    platform::local_time_text(when);
    char line[1024];
    // The line shows the event identifier as a signed 32-bit number: negative where the severity bits are
    // set. Log readers expect that.
    snprintf(line, sizeof line, "%s%s (%ld) %s\n", when, kSource,
             static_cast<long>(static_cast<int32_t>(eventId)), message);
    platform::append_line(path, line);
}

} // namespace

void fatal_report(int type, const char* message, uint32_t eventId) {
    platform::event_log(kSource, type, eventId, message);
    // The options are read at every report, so a change between two reports takes effect.
    const bool noErrorLog = option_set("NoErrorLog");
    const bool noMessageBox = option_set("NoMessageBox");
    if (!noErrorLog)
        write_log_line(message, eventId);
    if (!noMessageBox)
        platform::message_box(kSource, type, message);
}

} // namespace zul
