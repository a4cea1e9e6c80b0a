#pragma once
#include <climits>
#include <initializer_list>

#include "secrets/apart.h"
#include "secrets/arena.h"
#include "secrets/search.h"
#include "zulcore.h"

// The table of calls is code: CHECK calls an export on a stack of its own and looks for all secrets that are
// planted, and for those that the probes have seen, in everything that the call has left.
namespace secrets {

using Byte = unsigned char;

constexpr int kPositive = INT_MIN, kAny = INT_MIN + 1; // results
constexpr int kUnset = INT_MIN + 2;

struct Call {
    const char* name;
    const char* variant;
    int expected;
};

// fresh forgets the planted secrets but those of the keys that all calls share.
void fresh();
Byte* plant(const char* name, size_t size, unsigned forms = kKey);
char* plant_text(const char* name, size_t size);
void plant_bytes(const char* name, const void* bytes, size_t size, unsigned forms = kKey);

void call_apart(const Call& call, int (*function)(void*), void* closure);
void look(const Call& call);
bool is_exported(const char* name); // in the list of exports
void report_leaks_expected(const char* what, unsigned place);

template<class Function>
void call_of(const Call& call, Function function) {
    call_apart(
        call, [](void* closure) { return (*static_cast<Function*>(closure))(); }, &function);
}

// CALL leaves the search to a later LOOK, before which secrets are planted that only the call has made.
#define CALL(function, variant, expected, ...)                                                               \
    secrets::call_of({#function, variant, expected}, [&] { return function(__VA_ARGS__); })
#define LOOK(function, variant) secrets::look({#function, variant, 0})
#define CHECK(function, variant, expected, ...)                                                              \
    do {                                                                                                     \
        CALL(function, variant, expected, __VA_ARGS__);                                                      \
        LOOK(function, variant);                                                                             \
    } while (0)

// The keys that all calls share: key strings, and files with the keys in the open.
struct TestKey {
    const char* kind;
    char* text;
    const char* file;      // PKCS #8 as PEM, in the open
    const char* encrypted; // under keyPassword
    const char* certificate;
};
enum KeyKind { kRsa, kOtherRsa, kP256, kP384, kP521, kEd25519, kX25519, kKeyKinds };
extern TestKey* keys;
extern char* keyPassword;
void make_keys();
// plant_numbers plants all private numbers of a key string.
void plant_numbers(const char* name, const char* keyString);
char* public_of(const TestKey& key);

// What is typed at the terminal while a prompt is open.
void type_text(const char* text);
void type_keys();

// The families of calls.
void check_data();
void check_ciphers();
void check_random(bool withPrompts);
void check_rsa();
void check_keys();
void check_certificates();
void check_messages(const char* data); // the folder of test data
void check_files();

void self_check();

} // namespace secrets
