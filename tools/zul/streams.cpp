#include <algorithm>
#include <cwctype>
#include <filesystem>
#include <system_error>
#include <utility>

#include "zul_tool.h"

// With secret_prompt.cpp the places that know the system: what the standard library has no words for.
#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#else
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>
#endif

namespace tool {

#ifdef _WIN32
void remove_on_signal(const std::string&, const std::string&) {}
void keep_on_signal(const std::string&) {}
#else
namespace {

struct Doomed {
    volatile std::sig_atomic_t isThere;
    char folder[4096], file[4096];
};
Doomed doomed[8];

extern "C" void remove_and_end(int signal) {
    for (Doomed& each : doomed)
        if (each.isThere != 0) {
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

void keep_on_signal(const std::string& folder) {
    for (Doomed& each : doomed)
        if (each.isThere != 0 && folder == each.folder)
            each.isThere = 0;
}
#endif

void prepare_streams() {
#ifdef _WIN32
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
#endif
    std::setvbuf(stdin, nullptr, _IONBF, 0);
    std::setvbuf(stdout, nullptr, _IONBF, 0);
}

bool output_is_terminal() {
#ifdef _WIN32
    return _isatty(_fileno(stdout)) != 0;
#else
    return isatty(STDOUT_FILENO) != 0;
#endif
}

std::string shown_name(const std::string& file) {
    if (is_standard_stream(file))
        return "standard input";
    std::string text;
    for (const char c : file) {
        if (static_cast<unsigned char>(c) >= 0x20 && c != 0x7F)
            text += c;
        else
            text += "?";
    }
    return text;
}

bool is_same_file(const std::string& one, const std::string& other) {
    std::error_code ignored;
    if (std::filesystem::equivalent(path_of(one), path_of(other), ignored))
        return true;
    // Files that do not exist yet will be the same if their paths are.
    const auto path = [&ignored](const std::string& name) {
        std::filesystem::path::string_type text =
            std::filesystem::weakly_canonical(std::filesystem::absolute(path_of(name), ignored), ignored)
                .native();
#ifdef _WIN32
        std::transform(text.begin(), text.end(), text.begin(),
                       [](wchar_t c) { return static_cast<wchar_t>(std::towlower(c)); });
#endif
        return text;
    };
    return path(one) == path(other);
}

void refuse_same_file(const std::string& in, const std::string& out, const std::string& hint) {
    if (!is_standard_stream(in) && !is_standard_stream(out) && is_same_file(in, out))
        throw Refused::by_system(BAD_PARAM_ERROR, in, hint);
}

Input::Input(const std::string& name) : name_(shown_name(name)), file_(stdin) {
    if (is_standard_stream(name))
        return;
    std::error_code ignored;
    file_ = std::filesystem::is_directory(path_of(name), ignored) ? nullptr : std::fopen(name.c_str(), "rb");
    if (file_ == nullptr)
        throw Refused::by_system(OPEN_ERROR, name);
    std::setvbuf(file_, nullptr, _IONBF, 0);
}

Input::~Input() {
    if (file_ != stdin)
        std::fclose(file_);
}

size_t Input::read(unsigned char* out, size_t size) {
    const size_t count = std::fread(out, 1, size, file_);
    if (count < size && std::ferror(file_))
        throw Refused::by_system(READ_ERROR, name_);
    return count;
}

SecretBytes Input::read_all() {
    SecretBytes content(kChunk);
    size_t filled = 0;
    for (;;) {
        const size_t wanted = content.size() - filled;
        const size_t count = read(content.data() + filled, wanted);
        filled += count;
        if (count < wanted)
            break;
        if (filled == kMaxLength)
            throw Refused::by_system(OUT_OF_RANGE_ERROR, name_, "This takes less than 2 GiB of data.");
        content.resize(std::min(content.size() * 2, kMaxLength));
    }
    content.resize(filled);
    return content;
}

// A file for its owner alone is so from the moment that it is made.
static std::FILE* create(const std::string& name, bool forOwnerAlone) {
#ifndef _WIN32
    if (forOwnerAlone) {
        const int file = open(name.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, S_IRUSR | S_IWUSR);
        return file < 0 ? nullptr : fdopen(file, "wb");
    }
#endif
    static_cast<void>(forOwnerAlone);
    return std::fopen(name.c_str(), "wb");
}

Output::Output(const std::string& name, bool forOwnerAlone) : name_(name), file_(stdout) {
    if (is_standard_stream(name)) {
        name_ = "standard output";
        return;
    }
    file_ = create(name, forOwnerAlone);
    if (file_ == nullptr)
        throw Refused::by_system(CREATE_ERROR, name);
    std::setvbuf(file_, nullptr, _IONBF, 0);
}

Output::~Output() {
    if (file_ == nullptr || file_ == stdout)
        return;
    std::fclose(file_);
    std::error_code ignored;
    if (std::filesystem::is_regular_file(path_of(name_), ignored)) // never a device
        std::filesystem::remove(path_of(name_), ignored);
}

void Output::write(const void* data, size_t size) {
    if (size > 0 && std::fwrite(data, 1, size, file_) != size)
        throw Refused::by_system(WRITE_ERROR, name_);
}

void Output::finish() {
    std::FILE* file = file_ == stdout ? stdout : std::exchange(file_, nullptr);
    const bool lost = file == stdout ? std::fflush(file) != 0 : std::fclose(file) != 0;
    if (lost)
        throw Refused::by_system(WRITE_ERROR, name_);
}

} // namespace tool
