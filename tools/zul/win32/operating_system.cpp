#include "../operating_system.h"

#include <windows.h>
#include <cstdlib>
#include <cstring>
#include <cwctype>
#include <fcntl.h>
#include <io.h>
#include <vector>
#include <winternl.h>
#include <zulcore.h>

#include "../commands.h"
#include "../exit_status.h"
#include "../failures.h"
#include "../machine.h"

// The manifest makes UTF-8 the code page of narrow names. A system older than Windows 10, version 1903,
// ignores it: there a name with characters that the system's page lacks is refused, where the C runtime would
// replace them by look-alikes.

// The C runtime expands * and ? in arguments that were not quoted.
extern "C" {
int _dowildcard = -1;
}

namespace tool {

namespace {

// narrow_text converts a text if nothing is lost.
bool narrow_text(const std::wstring& wide, unsigned page, std::string& text) {
    text.clear();
    if (wide.empty())
        return true;
    const int length = static_cast<int>(wide.size());
    const bool isUtf8 = page == CP_UTF8;
    const DWORD flags = isUtf8 ? WC_ERR_INVALID_CHARS : WC_NO_BEST_FIT_CHARS;
    BOOL isLossy = FALSE;
    BOOL* lossy = isUtf8 ? nullptr : &isLossy;
    const int room = WideCharToMultiByte(page, flags, wide.data(), length, nullptr, 0, nullptr, lossy);
    text.resize(room > 0 ? static_cast<size_t>(room) : 0);
    return room > 0 && isLossy == FALSE &&
           WideCharToMultiByte(page, flags, wide.data(), length, text.data(), room, nullptr, nullptr) == room;
}

unsigned narrow_page() {
    return GetACP() == CP_UTF8 ? CP_UTF8 : CP_ACP;
}

// text_value tells where in an argument a name's text or a description begins, if there is one. That text is
// UTF-8 on every system.
bool text_value(const std::wstring& before, const std::wstring& argument, size_t& begin) {
    begin = 0;
    if (before == L"-s")
        return true;
    for (const std::wstring option : {L"--subject", L"--name", L"--describe", L"--dns", L"--email"}) {
        if (before == option)
            return true;
        if (argument.starts_with(option + L"=")) {
            begin = option.size() + 1;
            return true;
        }
    }
    begin = 2;
    return argument.size() > 2 && argument.starts_with(L"-s");
}

std::string narrow_argument(const std::wstring& before, const std::wstring& argument, int number) {
    size_t begin = 0;
    std::string text, option;
    if (text_value(before, argument, begin) && narrow_text(argument.substr(begin), CP_UTF8, text) &&
        narrow_text(argument.substr(0, begin), CP_UTF8, option))
        return option + text;
    if (!narrow_text(argument, narrow_page(), text))
        throw UsageError("argument " + std::to_string(number) +
                         " holds characters that this system's code page lacks");
    return text;
}

HANDLE handle_of(std::FILE* file) {
    return reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(file)));
}

constexpr char kOptionsKey[] = "Software\\Vantorel\\Zulkit\\Options";

// Messages show names of files in the page that the names have.
UINT pageBefore = 0;
void restore_page() {
    SetConsoleOutputCP(pageBefore);
}

// Both streams show one console, which has one mode for what it shows.
HANDLE consoleBefore = INVALID_HANDLE_VALUE;
DWORD modeBefore = 0;
void restore_mode() {
    SetConsoleMode(consoleBefore, modeBefore);
}

} // namespace

void remove_on_signal(const std::string&, const std::string&) {}
void keep_on_signal(const std::string&, const std::string&) {}

void prepare_streams() {
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    std::setvbuf(stdin, nullptr, _IONBF, 0);
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    pageBefore = GetConsoleOutputCP();
    if (pageBefore != 0 && pageBefore != GetACP() && SetConsoleOutputCP(GetACP()) != 0)
        std::atexit(restore_page);
}

bool output_is_terminal() {
    return _isatty(_fileno(stdout)) != 0;
}

bool errors_are_terminal() {
    return _isatty(_fileno(stderr)) != 0;
}

bool enable_colours(std::FILE* stream) {
    DWORD mode = 0;
    const HANDLE handle = handle_of(stream);
    if (_isatty(_fileno(stream)) == 0 || is_dumb_terminal() || GetConsoleMode(handle, &mode) == 0)
        return false;
    if ((mode & ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0)
        return true;
    if (SetConsoleMode(handle, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) == 0)
        return false;
    if (consoleBefore == INVALID_HANDLE_VALUE) { // the console belongs to the programs that come after
        consoleBefore = handle;
        modeBefore = mode;
        std::atexit(restore_mode);
    }
    return true;
}

bool is_dumb_terminal() {
    const char* name = std::getenv("TERM"); // only programs from elsewhere set it
    return name != nullptr && std::strcmp(name, "dumb") == 0;
}

int terminal_columns() {
    CONSOLE_SCREEN_BUFFER_INFO screen{};
    if (GetConsoleScreenBufferInfo(handle_of(stderr), &screen) == 0)
        return 0;
    return screen.srWindow.Right - screen.srWindow.Left + 1;
}

int64_t bytes_left(std::FILE* file) {
    LARGE_INTEGER size{};
    // Not SetFilePointerEx: it may set the position that it has read, and undo a read of another thread.
    FILE_POSITION_INFORMATION position{};
    IO_STATUS_BLOCK status{};
    const HANDLE handle = handle_of(file);
    if (GetFileType(handle) != FILE_TYPE_DISK || GetFileSizeEx(handle, &size) == 0 ||
        NtQueryInformationFile(handle, &status, &position, sizeof position, FilePositionInformation) != 0)
        return -1;
    return size.QuadPart - position.CurrentByteOffset.QuadPart;
}

bool make_standard_input(std::FILE* file) {
    const int input = _fileno(stdin);
    // The runtime tells the system of it in console programs alone, and the library asks the system.
    return input >= 0 && _fileno(file) != input && _dup2(_fileno(file), input) == 0 &&
           SetStdHandle(STD_INPUT_HANDLE, handle_of(stdin)) != 0;
}

bool are_one_file(std::FILE* one, std::FILE* other) {
    BY_HANDLE_FILE_INFORMATION first{}, second{};
    return GetFileType(handle_of(one)) == FILE_TYPE_DISK &&
           GetFileInformationByHandle(handle_of(one), &first) != 0 &&
           GetFileInformationByHandle(handle_of(other), &second) != 0 &&
           first.dwVolumeSerialNumber == second.dwVolumeSerialNumber &&
           first.nFileIndexHigh == second.nFileIndexHigh && first.nFileIndexLow == second.nFileIndexLow;
}

std::filesystem::path path_of(const std::string& name) {
    std::wstring wide(name.size(), L'\0');
    wide.resize(static_cast<size_t>(MultiByteToWideChar(CP_ACP, 0, name.data(), static_cast<int>(name.size()),
                                                        wide.data(), static_cast<int>(wide.size()))));
    return wide;
}

std::filesystem::path::string_type comparable(const std::filesystem::path& path) {
    std::wstring text = path.native();
    for (wchar_t& c : text)
        c = static_cast<wchar_t>(std::towlower(c));
    return text;
}

bool bring_to_disk(std::FILE* file) {
    return _commit(_fileno(file)) == 0;
}

bool lock_file(std::FILE* file) {
    OVERLAPPED place{};
    return LockFileEx(handle_of(file), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0,
                      &place) != 0;
}

std::FILE* create_for_owner(const std::string& name) {
    return std::fopen(name.c_str(), "wb");
}

bool create_folder_for_owner(const std::string& name) {
    std::error_code ignored;
    return std::filesystem::create_directory(path_of(name), ignored);
}

// The runtime does not tell junctions and symbolic links from folders.
bool list_folder(const std::string& folder, std::vector<FolderEntry>& entries) {
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileExW((path_of(folder) / L"*").c_str(), FindExInfoBasic, &found,
                                           FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (search == INVALID_HANDLE_VALUE)
        return false;
    do {
        const std::wstring wide = found.cFileName;
        if (wide == L"." || wide == L"..")
            continue;
        const bool isLink = (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
                            IsReparseTagNameSurrogate(found.dwReserved0);
        FolderEntry entry{FolderEntry::Kind::file, ""};
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
            entry.kind = isLink ? FolderEntry::Kind::linkToFolder : FolderEntry::Kind::folder;
        else if ((found.dwFileAttributes & FILE_ATTRIBUTE_DEVICE) != 0)
            entry.kind = FolderEntry::Kind::other;
        if (!narrow_text(wide, narrow_page(), entry.name))
            entry.name.clear();
        entries.push_back(entry);
    } while (FindNextFileW(search, &found) != 0);
    const bool isWhole = GetLastError() == ERROR_NO_MORE_FILES;
    FindClose(search);
    return isWhole;
}

std::string temporary_folder() {
    wchar_t wide[MAX_PATH + 2] = L"", small[MAX_PATH + 2] = L"";
    std::string text;
    if (GetTempPathW(MAX_PATH + 1, wide) > 0 && narrow_text(wide, narrow_page(), text))
        return text;
    if (GetShortPathNameW(wide, small, MAX_PATH + 1) > 0 && narrow_text(small, narrow_page(), text))
        return text;
    throw Refused::by_system(CREATE_ERROR, "folder for temporary files",
                             "TMP names one with characters that this system's code page lacks.");
}

std::vector<Named> library_options() {
    std::vector<Named> options;
    for (const char* name : {"NoMessageBox", "NoErrorLog"}) {
        DWORD value = 0, size = sizeof value;
        if (RegGetValueA(HKEY_LOCAL_MACHINE, kOptionsKey, name, RRF_RT_REG_DWORD, nullptr, &value, &size) ==
            ERROR_SUCCESS)
            options.emplace_back(name, std::to_string(value));
    }
    char folder[MAX_PATH + 1] = "";
    DWORD size = sizeof folder;
    if (RegGetValueA(HKEY_LOCAL_MACHINE, kOptionsKey, "ErrorLogDir", RRF_RT_REG_SZ, nullptr, folder, &size) ==
        ERROR_SUCCESS)
        options.emplace_back("ErrorLogDir", folder);
    return options;
}

std::string memory_protection() {
    return "nothing is locked";
}

std::string options_place() {
    return std::string("HKEY_LOCAL_MACHINE\\") + kOptionsKey;
}

const char* temporary_variable() {
    return "TMP";
}

} // namespace tool

extern "C" int wmain(int argc, wchar_t** argv) {
    std::vector<std::string> texts;
    texts.reserve(static_cast<size_t>(argc));
    try {
        for (int i = 0; i < argc; ++i)
            texts.push_back(i == 0 ? "zul" : tool::narrow_argument(argv[i - 1], argv[i], i));
    } catch (const tool::UsageError& error) {
        tool::print_error(error.what());
        return tool::kUsage;
    }
    std::vector<char*> narrow;
    narrow.reserve(texts.size() + 1);
    for (std::string& text : texts)
        narrow.push_back(text.data());
    narrow.push_back(nullptr);
    return tool::run_tool(argc, narrow.data());
}
