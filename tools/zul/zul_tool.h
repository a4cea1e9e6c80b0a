#pragma once
#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <limits>
#include <new>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>
#include <zulcore.h>

namespace CLI {
class App;
}

// What the commands of the tool share. Every command turns its arguments into one or a few calls of the
// library; it throws UsageError for an argument that cannot be right and Refused for what the library or the
// system refuses.
namespace tool {

// --- failures (failures.cpp) -----------------------------------------------------------------------------

// UsageError ends the tool with status 2; its text says what would be right.
class UsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// Refused ends the tool with status 1; its text holds the error code, the text of the code and what the
// library adds. It takes these at once, since wiping a buffer on the way out empties the error state.
class Refused : public std::runtime_error {
  public:
    // A result of the library, of either sign. hint is a sentence for the reader, or empty.
    static Refused by_library(int result, const std::string& subject, const std::string& hint = {});
    // The tool's own reading or writing failed; code is the one that the library has for it.
    static Refused by_system(int code, const std::string& subject, const std::string& hint = {});

    int code() const { return code_; }

  private:
    Refused(int code, const std::string& text) : std::runtime_error(text), code_(code) {}
    int code_;
};

// SilentFailure ends the tool with status 1 after the command has itself reported what failed.
struct SilentFailure {};

// accept_length passes on a length and throws Refused for a negated code.
int accept_length(int result, const std::string& subject, const std::string& hint = {});
// accept_status throws Refused for anything but 0.
void accept_status(int result, const std::string& subject, const std::string& hint = {});

// last_error gives what the library's last call had to say.
std::string last_error();
void print_error(const char* text); // "zul: text" on standard error
std::string in_quotes(std::string_view text);
// error_text gives the library's text of a code, empty if there is no such code.
std::string error_text(int code);

// --- memory ----------------------------------------------------------------------------------------------

constexpr size_t kMaxLength = static_cast<size_t>(std::numeric_limits<int>::max());

// WipingAllocator overwrites memory before it is freed, also the old block of a vector that grows.
template<class T>
struct WipingAllocator {
    using value_type = T;
    T* allocate(size_t count) { return static_cast<T*>(::operator new(count * sizeof(T))); }
    void deallocate(T* block, size_t count) {
        auto* bytes = reinterpret_cast<unsigned char*>(block);
        for (size_t left = count * sizeof(T); left > 0;) {
            const size_t step = left < kMaxLength ? left : kMaxLength;
            WIPE_Data(bytes, static_cast<int>(step));
            bytes += step;
            left -= step;
        }
        ::operator delete(block);
    }
    bool operator==(const WipingAllocator&) const { return true; }
};

// SecretBytes holds a key, a message or a text on its way to or from the library.
using SecretBytes = std::vector<unsigned char, WipingAllocator<unsigned char>>;

inline int int_length(const SecretBytes& bytes) {
    return static_cast<int>(bytes.size());
}

// --- files and standard streams (streams.cpp) ------------------------------------------------------------

constexpr size_t kChunk = 96 * 1024; // whole base64 groups and whole pages

// prepare_streams makes standard input and output binary, so that bytes and line ends are the same
// everywhere.
void prepare_streams();
bool output_is_terminal();
// remove_on_signal has a signal that ends the tool remove a file and its folder, keep_on_signal takes that
// back (where there are such signals).
void remove_on_signal(const std::string& folder, const std::string& file);
void keep_on_signal(const std::string& folder);
// ask_secretly asks at the terminal, whatever the standard streams are, and reads a line without showing it.
// Asked twice, the answers must agree. Refused if there is no terminal, the user gives up or they differ.
SecretBytes ask_secretly(const std::string& question, bool twice); // (secret_prompt.cpp)
// path_of gives the path of a narrow name as the library takes it.
std::filesystem::path path_of(const std::string& name);
// temporary_folder gives a narrow name that ends with a separator; the variable is what says where it is.
std::string temporary_folder();
#ifdef _WIN32
constexpr const char* kTemporaryVariable = "TMP";
#else
constexpr const char* kTemporaryVariable = "TMPDIR";
#endif
inline bool is_standard_stream(const std::string& name) {
    return name == "-";
}
// shown_name is what messages call an input, without characters that could steer a terminal or begin a line.
std::string shown_name(const std::string& file);
// is_same_file compares what two names mean, whether the files exist already or not.
bool is_same_file(const std::string& one, const std::string& other);
void refuse_same_file(const std::string& in, const std::string& out,
                      const std::string& hint = "IN and OUT are the same file.");

// Input reads a file, or standard input if its name is "-". Unbuffered: no copy of a key stays in the
// runtime.
class Input {
  public:
    explicit Input(const std::string& name);
    Input(const Input&) = delete;
    Input& operator=(const Input&) = delete;
    ~Input();

    size_t read(unsigned char* out, size_t size); // less than size only at the end
    // read_all gives the whole content, at most kMaxLength bytes; its data() is never null.
    SecretBytes read_all();

  private:
    std::string name_;
    std::FILE* file_;
};

// Output writes a file, or standard output if its name is "-". A file that is not finished is removed.
class Output {
  public:
    // forOwnerAlone keeps other users of the machine from reading a new file.
    explicit Output(const std::string& name, bool forOwnerAlone = false);
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;
    ~Output();

    void write(const void* data, size_t size);
    void write(std::string_view text) { write(text.data(), text.size()); }
    void write(const SecretBytes& bytes) { write(bytes.data(), bytes.size()); }
    void finish();

  private:
    std::string name_;
    std::FILE* file_;
};

// --- keys (keys.cpp) -------------------------------------------------------------------------------------

// exact_arguments gives the arguments without anything that the system changed in them: the text of a name
// (--subject) as UTF-8. UsageError for what cannot be told exactly. (narrow_names.cpp)
std::vector<std::string> exact_arguments(int argc, char** argv);
// take_arguments gives the arguments in CLI11's order (last first); UsageError for an empty one, which a
// command would take for one that was not given. The values of --key, --kek, --data,
// --password and --new-password are kept aside in wiped memory, overwritten in argv (so they leave the
// process list where the system shows that memory) and replaced by a mark; hidden_argument gives the value of
// a mark.
std::vector<std::string> take_arguments(int argc, char** argv);
const SecretBytes& hidden_argument(const std::string& mark);

// decode_hex reads hex digits, with blanks and colons between them allowed. source names the text in the
// message of the UsageError thrown for anything else: the text itself is never shown. The result's data() is
// never null.
SecretBytes decode_hex(const unsigned char* text, size_t length, const std::string& source);
SecretBytes decode_hex(std::string_view text, const std::string& source);

// hex_line gives upper-case hex and a line feed.
SecretBytes hex_line(const SecretBytes& bytes);

// hex_or_raw takes a file's content for hex if it holds hex digits and white space alone, else as it is.
SecretBytes hex_or_raw(SecretBytes content, const std::string& source);

// KeyOption is the pair of options --NAME HEX and --NAME-file FILE, of which one must be given.
class KeyOption {
  public:
    void add_to(CLI::App& command, const std::string& name, const std::string& what);

    // read_exactly gives a key of that many bytes, from a file as raw bytes or as hex text.
    SecretBytes read_exactly(size_t bytes, const std::string& algorithm) const;
    // read_any gives a key of any length; a file is taken as it is.
    SecretBytes read_any() const;

    bool is_standard_input() const { return is_standard_stream(file_); }

  private:
    void require_one() const;

    std::string name_, mark_, file_;
};

// --- names of algorithms (algorithms.cpp) ----------------------------------------------------------------

struct Digest {
    const char* name;
    int option; // ZUL_HASH_
};
const Digest& find_digest(const std::string& name);
std::string digest_names();

struct Cipher {
    std::string name; // "aes-256" or "aes-256-cbc"
    int options;      // ZUL_CIPHER_ | ZUL_MODE_
    size_t keyBytes, blockBytes;
    bool takesIv, pads;
};
Cipher find_cipher_and_mode(const std::string& name); // "aes-256-cbc", "3DES/CTR", "des-ede3-cbc" ...
Cipher find_cipher(const std::string& name);          // the same without a mode

// find_key_encryption gives the options of RSA_SaveEncPrivateKey for a scheme and the digest of its key
// derivation (empty: the scheme's usual one).
int find_key_encryption(const std::string& name, const std::string& digest);

// --- text around bytes (armour.cpp) ----------------------------------------------------------------------

// pem_body cuts a text down to the body of its first armour, as the library's own reader finds it; that
// reader's file form appends zeros, which whoever decodes a file does not expect.
void pem_body(SecretBytes& text, const std::string& name);
// decode_text decodes hex or base64 with the library's decoder.
SecretBytes decode_text(SecretBytes text, bool isHex, const std::string& name);
// binary_content takes the armour off PEM, decodes base64 and leaves anything else as it is.
SecretBytes binary_content(SecretBytes content, const std::string& name);

// --- commands --------------------------------------------------------------------------------------------

void add_digest_commands(CLI::App& app);
void add_cipher_commands(CLI::App& app);
void add_wrap_commands(CLI::App& app);
void add_encode_commands(CLI::App& app);
void add_random_command(CLI::App& app);
void add_key_commands(CLI::App& app);
void add_key_convert_command(CLI::App& group);
void add_rsa_commands(CLI::App& app);
void add_cert_commands(CLI::App& app);
void add_cert_make_commands(CLI::App& group);
void add_cert_path_command(CLI::App& group);
void add_request_commands(CLI::App& app);
void add_crl_commands(CLI::App& app);
void add_cms_commands(CLI::App& app);
void add_pfx_commands(CLI::App& app);
void add_ocsp_commands(CLI::App& app);
void add_der_command(CLI::App& app);
void add_general_commands(CLI::App& app);

} // namespace tool
