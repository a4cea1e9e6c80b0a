#pragma once
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

// What the standard library does not have. posix/ and win32/ implement it, file for file. The rest of the
// tool does not depend on the system.
namespace tool {

// prepare_streams makes standard input and output binary, so that bytes and line ends are the same
// everywhere.
void prepare_streams();
bool output_is_terminal();
bool errors_are_terminal(); // standard error
// enable_colours tells whether a stream is a terminal that shows colours, and has it show them.
bool enable_colours(std::FILE* stream);
bool is_dumb_terminal(); // one whose lines cannot be written again
int terminal_columns();  // of standard error; 0 if not known

// bytes_left gives the number of bytes from the position of an unbuffered stream to the end of its file,
// negative if it is no regular file. Another thread may read meanwhile.
int64_t bytes_left(std::FILE* file);
// make_standard_input makes the file of another stream the standard input of the process, with the position
// that they share from then on. The other stream may be closed. False if that fails.
bool make_standard_input(std::FILE* file);
// are_one_file is true for two streams on the same regular file.
bool are_one_file(std::FILE* one, std::FILE* other);

// remove_on_signal makes a signal that ends the tool remove a file, and its folder unless that is "";
// keep_on_signal undoes that. Windows has no such signals.
void remove_on_signal(const std::string& folder, const std::string& file);
void keep_on_signal(const std::string& folder, const std::string& file);

// path_of gives the path of a name as the library takes it.
std::filesystem::path path_of(const std::string& name);
// comparable gives a path as a text that is equal for two spellings of the same path.
std::filesystem::path::string_type comparable(const std::filesystem::path& path);
// bring_to_disk waits until what was written to an unbuffered file is on the disk.
bool bring_to_disk(std::FILE* file);
// lock_file keeps other processes from the lock of an open file, until it is closed or the process ends.
// False if another one has it.
bool lock_file(std::FILE* file);
// create_for_owner creates a file, or empties it, for writing. A new one is for its owner alone from the
// start (on Windows it gets what its folder gives). Null if that fails.
std::FILE* create_for_owner(const std::string& name);
// create_folder_for_owner makes a folder in the same way. False if that fails, or something has the name.
bool create_folder_for_owner(const std::string& name);

// FolderEntry is something in a folder, unreadable if the system does not tell what. Its name is empty if the
// tool could not open it by any name.
struct FolderEntry {
    enum class Kind { file, folder, linkToFolder, other, unreadable };
    Kind kind;
    std::string name;
};
// list_folder adds what a folder holds. False if it cannot be read to its end.
bool list_folder(const std::string& folder, std::vector<FolderEntry>& entries);

// temporary_folder gives a name that ends with a separator; temporary_variable names the environment variable
// that chooses the folder.
std::string temporary_folder();
const char* temporary_variable();

// Terminal is the controlling terminal of the process. While the object exists keys arrive one by one and
// without echo, the interrupt key too, so that an interrupt never leaves the terminal without echo.
class Terminal {
  public:
    Terminal();
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;
    ~Terminal();

    bool is_usable() const;
    void show(std::string_view text) const;
    int next_key() const; // a byte, or negative at the end

  private:
    struct State;
    std::unique_ptr<State> state_;
};

} // namespace tool
