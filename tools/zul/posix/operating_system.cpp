#include "../operating_system.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <strings.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zulcore.h>

#include "../commands.h"
#include "../failures.h"
#include "../machine.h"

namespace tool {

namespace {

struct Doomed {
    volatile std::sig_atomic_t isThere;
    char folder[4096], file[4096];
};
Doomed doomed[8];

extern "C" void remove_and_end(int signal) {
    for (Doomed& each : doomed)
        if (each.isThere != 0) {
            const int emptied =
                open(each.file, O_WRONLY | O_TRUNC | O_NONBLOCK | O_CLOEXEC); // of other names too
            if (emptied >= 0)
                close(emptied);
            struct stat about {};
            if (lstat(each.file, &about) == 0 && S_ISREG(about.st_mode)) // a link, as /dev/stdout, stays
                unlink(each.file);
            rmdir(each.folder);
        }
    raise(signal); // with its default action now, once this returns
}

void take_signals() {
    for (const int signal : {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGPIPE}) {
        struct sigaction before {
        }, ending{};
        ending.sa_handler = remove_and_end;
        ending.sa_flags = static_cast<int>(SA_RESETHAND);
        if (sigaction(signal, nullptr, &before) == 0 && before.sa_handler == SIG_DFL)
            sigaction(signal, &ending, nullptr);
    }
}

} // namespace

void remove_on_signal(const std::string& folder, const std::string& file) {
    auto* free =
        std::find_if(std::begin(doomed), std::end(doomed), [](Doomed& each) { return !each.isThere; });
    if (free == std::end(doomed) || file.size() >= sizeof free->file)
        return;
    take_signals();
    std::strcpy(free->folder, folder.c_str());
    std::strcpy(free->file, file.c_str());
    free->isThere = 1;
}

void keep_on_signal(const std::string& folder, const std::string& file) {
    for (Doomed& each : doomed)
        if (each.isThere != 0 && folder == each.folder && file == each.file)
            each.isThere = 0;
}

void prepare_streams() {
    std::setvbuf(stdin, nullptr, _IONBF, 0);
    std::setvbuf(stdout, nullptr, _IONBF, 0);
}

bool output_is_terminal() {
    return isatty(STDOUT_FILENO) != 0;
}

bool errors_are_terminal() {
    return isatty(STDERR_FILENO) != 0;
}

bool enable_colours(std::FILE* stream) {
    const char* name = std::getenv("TERM");
    return isatty(fileno(stream)) != 0 && name != nullptr && *name != '\0' && !is_dumb_terminal();
}

bool is_dumb_terminal() {
    const char* name = std::getenv("TERM");
    return name != nullptr && std::strcmp(name, "dumb") == 0;
}

int terminal_columns() {
    winsize size{};
    return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

int64_t bytes_left(std::FILE* file) {
    struct stat about {};
    if (fstat(fileno(file), &about) != 0 || !S_ISREG(about.st_mode))
        return -1;
    const off_t position = lseek(fileno(file), 0, SEEK_CUR);
    return position < 0 ? -1 : int64_t{about.st_size} - int64_t{position};
}

bool make_standard_input(std::FILE* file) {
    // Where the process began without standard input, the file itself may have got its number.
    return fileno(file) != STDIN_FILENO && dup2(fileno(file), STDIN_FILENO) == STDIN_FILENO;
}

bool are_one_file(std::FILE* one, std::FILE* other) {
    struct stat first {
    }, second{};
    return fstat(fileno(one), &first) == 0 && fstat(fileno(other), &second) == 0 && S_ISREG(first.st_mode) &&
           first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

std::filesystem::path path_of(const std::string& name) {
    return name;
}

std::filesystem::path::string_type comparable(const std::filesystem::path& path) {
    return path.native();
}

bool bring_to_disk(std::FILE* file) {
    return fsync(fileno(file)) == 0;
}

bool lock_file(std::FILE* file) {
    return flock(fileno(file), LOCK_EX | LOCK_NB) == 0;
}

std::FILE* create_for_owner(const std::string& name) {
    const int file = open(name.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, S_IRUSR | S_IWUSR);
    return file < 0 ? nullptr : fdopen(file, "wb");
}

bool create_folder_for_owner(const std::string& name) {
    return mkdir(name.c_str(), 0700) == 0;
}

bool list_folder(const std::string& folder, std::vector<FolderEntry>& entries) {
    using std::filesystem::file_type;
    std::error_code error;
    for (std::filesystem::directory_iterator each(folder, error), end; !error && each != end;
         each.increment(error)) {
        std::error_code ignored, reason;
        const bool isLink = each->symlink_status(ignored).type() == file_type::symlink;
        const file_type type = each->status(reason).type();
        FolderEntry::Kind kind = FolderEntry::Kind::other;
        if (type == file_type::regular)
            kind = FolderEntry::Kind::file;
        else if (type == file_type::directory)
            kind = isLink ? FolderEntry::Kind::linkToFolder : FolderEntry::Kind::folder;
        else if (type == file_type::none && reason != std::errc::too_many_symbolic_link_levels)
            kind = FolderEntry::Kind::unreadable;
        entries.push_back({kind, each->path().filename().string()});
    }
    return !error;
}

std::string temporary_folder() {
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::temp_directory_path(error);
    if (error)
        throw Refused::by_system(CREATE_ERROR, "folder for temporary files",
                                 "What is made goes there first; TMPDIR does not name a folder.");
    return folder.string() + "/";
}

std::vector<Named> library_options() {
    std::ifstream file(options_place());
    std::vector<Named> options;
    const auto trimmed = [](const std::string& text) {
        const size_t begin = text.find_first_not_of(" \t\r"), end = text.find_last_not_of(" \t\r");
        return begin == text.npos ? "" : text.substr(begin, end - begin + 1);
    };
    for (std::string line; std::getline(file, line);) {
        const size_t equals = line.find('=');
        if (equals == line.npos)
            continue;
        const std::string name = trimmed(line.substr(0, equals));
        for (const char* known : {"NoMessageBox", "NoErrorLog", "ErrorLogDir"}) {
            const bool isSet = std::any_of(options.begin(), options.end(),
                                           [&](const Named& each) { return each.first == known; });
            if (strcasecmp(name.c_str(), known) == 0 && !isSet) // the first one counts
                options.emplace_back(known, trimmed(line.substr(equals + 1)));
        }
    }
    return options;
}

std::string memory_protection() {
    return "the work memory of scrypt and Argon2id is left out of core dumps; nothing is locked";
}

std::string options_place() {
    return "/etc/zulkit/options";
}

const char* temporary_variable() {
    return "TMPDIR";
}

} // namespace tool

int main(int argc, char** argv) {
    return tool::run_tool(argc, argv);
}
