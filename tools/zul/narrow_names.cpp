#include "zul_tool.h"

#ifdef _WIN32
#include <windows.h>
#include <shellapi.h>
#endif

// Names of files and arguments on Windows: the library takes narrow ones, in the system's code page, which
// the C runtime makes of wide ones with a look-alike for what the page lacks.
namespace tool {

#ifdef _WIN32

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

// subject_value tells where in an argument a name's text begins, if there is one.
bool subject_value(const std::wstring& before, const std::wstring& argument, size_t& begin) {
    constexpr std::wstring_view kLong = L"--subject=";
    begin = 0;
    if (before == L"-s" || before == L"--subject")
        return true;
    begin = argument.starts_with(kLong) ? kLong.size() : 2;
    return argument.starts_with(kLong) || (argument.size() > 2 && argument.starts_with(L"-s"));
}

} // namespace

std::filesystem::path path_of(const std::string& name) {
    std::wstring wide(name.size(), L'\0');
    wide.resize(static_cast<size_t>(MultiByteToWideChar(CP_ACP, 0, name.data(), static_cast<int>(name.size()),
                                                        wide.data(), static_cast<int>(wide.size()))));
    return wide;
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

std::vector<std::string> exact_arguments(int argc, char** argv) {
    std::vector<std::string> arguments(argv, argv + argc);
    int count = 0;
    wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count);
    if (wide == nullptr)
        return arguments;
    const std::vector<std::wstring> exact(wide, wide + count);
    LocalFree(wide);
    for (size_t i = 1; i < exact.size(); ++i) {
        size_t begin = 0;
        std::string text;
        if (exact.size() == arguments.size() && subject_value(exact[i - 1], exact[i], begin) &&
            narrow_text(exact[i].substr(begin), CP_UTF8, text)) {
            arguments[i] = (begin == 2 ? "-s" : begin > 2 ? "--subject=" : "") + text;
        } else if (!narrow_text(exact[i], narrow_page(), text) && !exact[i].empty()) {
            throw UsageError("argument " + std::to_string(i) +
                             " holds characters that this system's code page lacks");
        }
    }
    return arguments;
}

#else

std::filesystem::path path_of(const std::string& name) {
    return name;
}

std::string temporary_folder() {
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::temp_directory_path(error);
    if (error)
        throw Refused::by_system(CREATE_ERROR, "folder for temporary files",
                                 "What is made goes there first; TMPDIR does not name a folder.");
    return folder.string() + "/";
}

std::vector<std::string> exact_arguments(int argc, char** argv) {
    return {argv, argv + argc};
}

#endif

} // namespace tool
