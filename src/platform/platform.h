#pragma once
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <ctime>

namespace zul {

// The notifications that the system's loader gives, as load.cpp receives them: defined by the module, which
// knows what a load consists of. module_load is false if the module refuses to load.
bool module_load(void* moduleHandle);
bool module_thread_attach();
void module_thread_detach();
void module_unload(); // the module leaves a process that goes on
void module_exit();   // the process ends; its other threads may be inside the library, or gone with its lock

} // namespace zul

// What the operating system gives. win32/ and posix/ each keep this contract, file for file; nothing above
// this folder includes a system header.
namespace zul::platform {

// --- thread slot (thread_slot.cpp) ---------------------------------------------------------------------

// slot_create allocates the one per-thread slot; atThreadEnd receives the value of every thread that ends
// with one. False if the system has none left.
bool slot_create(void (*atThreadEnd)(void* value));
void slot_destroy();
void* slot_get();
bool slot_set(void* value);

// --- lock (lock.cpp) -----------------------------------------------------------------------------------

// The process's locks. A thread takes each once only, and takes generator before process. Taking one before
// lock_create is an error. In the handlers of a fork, the forking thread has both and passes freely.
enum class Lock {
    generator, // the generator of the threads for whose records memory ran out
    process,   // all else that threads share
};
void lock_create();
void lock_destroy();
void lock_enter(Lock lock);
void lock_leave(Lock lock);

class LockGuard {
  public:
    explicit LockGuard(Lock lock = Lock::process) : lock_(lock) { lock_enter(lock_); }
    LockGuard(const LockGuard&) = delete;
    LockGuard& operator=(const LockGuard&) = delete;
    ~LockGuard() { lock_leave(lock_); }

  private:
    const Lock lock_;
};

// fork_generation changes in the child of a fork, where generator state copied from the parent must not be
// used again. Always 0 where processes are not forked.
uint32_t fork_generation();

// --- files (file.cpp) ----------------------------------------------------------------------------------

// An open file; kNoFile is none. Reads and writes are whole and unbuffered; names are in the system's
// single-byte encoding. A directory is not a file.
using FileHandle = intptr_t;
constexpr FileHandle kNoFile = -1;

enum class OpenMode {
    read,         // "rb"
    readText,     // "rt": CR LF becomes LF as it is read, where file_folds_line_ends
    update,       // "r+b": the file must exist; fails on one that is marked read-only
    create,       // "wb": made or emptied; fails on an existing one that is marked read-only
    createSecret, // as create, and the file is readable and writable by its owner only
};

// file_folds_line_ends tells whether the system itself reads CR LF as LF; otherwise the reader has to.
bool file_folds_line_ends();

// file_open gives kNoFile for a directory too. *length becomes what file_length tells of a file opened to be
// read.
FileHandle file_open(const char* path, OpenMode mode, int64_t* length = nullptr);
// file_standard gives the process's standard input or output, for bytes as they are, as a handle of its own:
// closing it leaves the process's open. kNoFile if it has none.
enum class Standard { input, output };
FileHandle file_standard(Standard which);
bool file_close(FileHandle file); // false if the system reports that something written was lost

// file_read fills the buffer as far as the file goes and gives the bytes read: less than size at the end of
// the file or after a read error, which sets *failed.
size_t file_read(FileHandle file, void* buffer, size_t size, bool* failed = nullptr);
bool file_write(FileHandle file, const void* data, size_t size); // all or false
bool file_rewind(FileHandle file);
bool file_empty(FileHandle file);               // cuts it to no bytes
int64_t file_length(FileHandle file);           // -1 if it has none (a pipe)
bool file_commit(FileHandle file);              // everything written is on the disk
bool file_lock(FileHandle file, size_t length); // the first length bytes; waits for nobody
void file_unlock(FileHandle file, size_t length);
bool file_remove(const char* path);

const char* line_end(); // of text files: CR LF or LF

// file_seek goes to an offset from the beginning; false if the file cannot (a pipe).
bool file_seek(FileHandle file, int64_t offset);

// file_is tells whether path names the same file as the open one, whatever the spelling of its name, or
// whether two handles or two names are of the same file. What is only named is not opened for reading.
bool file_is(FileHandle file, const char* path);
bool file_is(FileHandle file, FileHandle other);
bool file_is(const char* path, const char* other);
// file_is_regular tells whether path names an ordinary file (not a device or a pipe).
bool file_is_regular(const char* path);
// file_is_pipe tells whether path names a pipe, whose opening may wait for its other end.
bool file_is_pipe(const char* path);

// --- replacing files (file_replace.cpp) ----------------------------------------------------------------

// file_create_beside makes an empty file, to be put in the place of the one at path: in the same folder, with
// the same owner, and with the same permissions or, if secret, those of its owner alone. Its name goes to
// newPath, which has room for path and kBesideSuffix more. kNoFile if it cannot be made, or the file at path
// may not be written. *inPlace then tells that the file at path has to be written itself: there is none, it
// is not a regular file, it has several names, or its folder or owner does not allow another file.
constexpr size_t kBesideSuffix = 16;
FileHandle file_create_beside(const char* path, bool secret, char* newPath, bool* inPlace);
// file_replace puts one file in the place of another in one step. If it fails, the new file is as it was.
bool file_replace(const char* newPath, const char* path);

// --- clocks and other readings (readings.cpp) ----------------------------------------------------------

uint64_t system_time(); // 100-nanosecond units since 1601-01-01 UTC
// local_time_normalise reads a broken-down time as local standard time and gives it back in UTC; false, and
// nothing done, if the system cannot.
bool local_time_normalise(tm* time);
uint32_t tick_count();               // milliseconds since start-up, wrapping
uint64_t precise_ticks();            // of the finest clock; its origin and unit are not specified
bool free_clusters(uint32_t* count); // of the current disk

// A system structure as raw bytes, for condensation. The length used, 0 if the reading failed.
constexpr size_t kReadingSize = 256;
size_t memory_status(uint8_t* reading);
size_t power_status(uint8_t* reading);

// activity_report hands text about what the system is doing (its windows; its interrupt counts) to the sink,
// piece by piece. False if there is none.
bool activity_report(void (*sink)(void* context, const void* data, size_t size), void* context);

// --- system randomness (random.cpp) --------------------------------------------------------------------

// system_random fills out from the operating system's generator: its system call, or its device where the
// call is missing. False if neither answers.
[[nodiscard]] bool system_random(void* out, size_t size);

// --- pages (pages.cpp) ---------------------------------------------------------------------------------

// pages_take gives zero-filled memory of the system's own, for blocks of megabytes and more: null if there is
// not enough. pages_give takes it back with the size that it was asked for.
void* pages_take(size_t size);
void pages_give(void* pages, size_t size);

// --- scheduling (scheduling.cpp) ------------------------------------------------------------------------

// The calling thread's priority, where a thread may lower and raise its own.
enum class ThreadPriority : int { lowest = -2, normal = 0 };
void thread_set_priority(ThreadPriority priority);
void thread_yield(); // gives up the rest of the time slice
void thread_sleep(uint32_t milliseconds);

// --- console (console.cpp) -----------------------------------------------------------------------------

// Progress that a user watches. console_open makes a console for a process that has none: true if it did, and
// console_close is then due. Where standard error is the place for progress there is nothing to open.
bool console_open(const char* title);
void console_write(char c); // shown at once
void console_close();

// --- prompts (password_dialog.cpp, entropy_dialog.cpp) --------------------------------------------------

// Dialogs with the user: windows, or the process's terminal. One at a time in a process.
enum class PromptEnd {
    accepted,
    cancelled,
    unavailable, // nobody can be asked, or the dialog was destroyed
};

// password_dialog asks for a text that does not show: at most size-1 characters and a NUL. An empty caption
// or label stands for the dialog's own. What password holds counts only if the end is accepted.
PromptEnd password_dialog(const char* caption, const char* label, char* password, size_t size);

// EntropyEvents receives what the user does; its members give the percentage reached, at most 100.
class EntropyEvents {
  public:
    virtual int key(uint32_t code) = 0;                         // pressed or released
    virtual int mouse(int32_t x, int32_t y, uint32_t tick) = 0; // on the screen; tick as of tick_count

  protected:
    ~EntropyEvents() = default;
};

// entropy_dialog asks the user, below the text of prompt, to type at random (and to move the mouse) until the
// percentage is 100, and then to close it: accepted or unavailable.
PromptEnd entropy_dialog(const char* prompt, EntropyEvents& events);

// end_prompt lets go of the claim to be the only prompt, and then lets the signals that it has held back end
// or stop the process.
void end_prompt(std::atomic<bool>& isTaken);

// --- identity (identity.cpp) ---------------------------------------------------------------------------

uint32_t process_id();
uint32_t thread_id();
// The texts are at most size-1 characters and a NUL; the length written, 0 if the system does not say. A user
// may be named by number: a name service takes files and sockets, which a process may have given up.
size_t user_name(char* out, size_t size);
size_t computer_name(char* out, size_t size);
size_t executable_directory(char* out, size_t size); // with its closing separator
size_t module_path(char* out, size_t size);          // of this library's own file
FileHandle module_file();                            // the same, open for reading, whatever its name
void remember_module(void* moduleHandle);            // called once at load, before these two
const char* platform_word();                         // "Win64" or "Lin64"
char path_separator();

// --- reports (report.cpp) ------------------------------------------------------------------------------

enum class ReportType : int { error = 1, warning = 2, information = 4 };

bool option_number(const char* name, uint32_t* value);      // one option of the machine
bool option_text(const char* name, char* out, size_t size); // unreadable if it is longer than size-1
void event_log(const char* source, int type, uint32_t eventId, const char* message);
void message_box(const char* caption, int type, const char* message);
bool append_line(const char* path, const char* line); // to a text file; made if it does not exist
void local_time_text(char out[27]); // ctime's 26 characters: "Sat Nov 21 04:00:11 2026\n" and its NUL
[[noreturn]] void end_process(int status);

} // namespace zul::platform
