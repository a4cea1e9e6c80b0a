// What all families of calls share: running a call, the secrets of all calls, the keys.
#include "secrets/harness.h"

#include <cstddef>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

#include "frame/thread_record.h"
#include "key/string_key.h"
#include "platform/cpu.h"
#include "rsa/process_key.h"
#include "secrets/secrets_test.h"

namespace secrets {

TestKey* keys = nullptr;
char* keyPassword = nullptr;

namespace {

constexpr size_t kMostNames = 512, kDrbgSecret = offsetof(zul::DrbgState, reseedCounter);

struct Harness {
    Registers registers;
    size_t shared; // secrets
    int calls, failures;
    bool hidesVectors;
    const char* names[kMostNames]; // of exports that were called
    size_t nameCount;
    char* random; // words for text
};
Harness* harness = nullptr;

// plant_der plants the numbers in a private key: INTEGER and OCTET STRING of some length.
void plant_der(const char* name, const uint8_t* der, size_t size, bool isRsa) {
    size_t at = 0;
    bool isModulus = isRsa;
    while (at + 2 <= size) {
        const uint8_t tag = der[at++];
        size_t length = der[at++];
        if (length >= 0x80) {
            size_t bytes = length & 0x7F;
            for (length = 0; bytes > 0 && at < size; bytes--)
                length = length << 8 | der[at++];
        }
        if (length > size - at)
            return;
        const uint8_t* const content = der + at;
        const bool isSequence = length > 2 && content[0] == 0x30, isString = length > 2 && content[0] == 0x04;
        if (tag == 0x30)
            plant_der(name, content, length, content[0] == 2 && length > 100);
        else if (tag == 0x04 && (isSequence || (isString && content[1] == length - 2)))
            plant_der(name, content, length, false);
        else if ((tag == 0x02 || tag == 0x04) && length >= 16 && !(tag == 0x02 && isModulus))
            plant_bytes(name, content, length, kNumber);
        if (tag == 0x02 && length >= 16)
            isModulus = false;
        at += length;
    }
}

char* key_string(int length, const char* text) {
    if (length <= 0) {
        char error[512] = "";
        ZUL_LastError(error, 511);
        fprintf(stderr, "No key: %s\n", error);
        _exit(3);
    }
    return joined(text, "");
}

} // namespace

void harness_start() {
    arena_make();
    apart_make();
    harness = reinterpret_cast<Harness*>(take(sizeof(Harness)));
}

int harness_failures() {
    return harness->failures;
}
int harness_calls() {
    return harness->calls;
}
bool was_called(const char* name) {
    for (size_t i = 0; i < harness->nameCount; i++)
        if (strcmp(harness->names[i], name) == 0)
            return true;
    return false;
}

static void allow_static(const char* name, const void* key, size_t size) {
    extern uint8_t dataBegin __asm__("__data_start"), dataEnd __asm__("_end");
    for (const uint8_t* at = &dataBegin; at + size <= &dataEnd; at++)
        if (memcmp(at, key, size) == 0)
            allow(at, size);
    plant_bytes(name, key, size);
}

// What the library itself keeps: the state of the thread's generator and the keys of key strings.
void allow_own_state() {
    allow(&zul::thread_record(zul::RecordPath::generator)->rng.drbg, sizeof(zul::DrbgState));
    zul::Wiped<zul::TdesKey> processKey;
    zul::process_key(processKey);
    allow_static("the process's key", &*processKey, sizeof *processKey);
    zul::Secret<zul::kStringKey> stringKey;
    zul::string_key(stringKey);
    allow_static("the key of key strings", stringKey.data(), stringKey.size());
}

void hide_features(uint32_t features) {
    zul::cpu_mask_features(features & ~zul::kCpuAvx);
    harness->hidesVectors = features != 0;
}

void share_secrets() {
    harness->shared = secret_count();
}

void fresh() {
    forget_secrets(harness->shared);
}

void plant_bytes(const char* name, const void* bytes, size_t size, unsigned forms) {
    uint8_t* const own = take(size);
    memcpy(own, bytes, size);
    add_secret(name, own, size, forms);
}

Byte* plant(const char* name, size_t size, unsigned forms) {
    Byte* const bytes = take(size);
    fill_random(bytes, size);
    add_secret(name, bytes, size, forms);
    return bytes;
}

char* plant_text(const char* name, size_t size) {
    char* const text = random_text(size);
    add_secret(name, text, size, kText);
    return text;
}

void call_apart(const Call& call, int (*function)(void*), void* closure) {
    struct Run {
        int (*function)(void*);
        void* closure;
        int result;
    } run{function, closure, 0};
    if (!was_called(call.name) && harness->nameCount < kMostNames)
        harness->names[harness->nameCount++] = call.name;
    // The state that a call leaves behind must not give away what was drawn before it.
    const zul::DrbgState before = zul::thread_record(zul::RecordPath::generator)->rng.drbg;
    watch();
    witness("the generator's state", &before, kDrbgSecret, kAsItIs | kReversed);
    run_apart(
        [](void* argument) {
            Run& r = *static_cast<Run*>(argument);
            r.result = r.function(r.closure);
        },
        &run, &harness->registers);
    unwatch();
    take_snapshot(&harness->registers,
                  harness->hidesVectors ? Registers::kUpToAvx : sizeof harness->registers);
    const zul::DrbgState& after = zul::thread_record(zul::RecordPath::generator)->rng.drbg;
    plant_bytes("the generator's state", &after, kDrbgSecret, kAsItIs | kReversed);
    harness->calls++;
    const bool isRight =
        call.expected == kAny || (call.expected == kPositive ? run.result > 0 : run.result == call.expected);
    if (!isRight) {
        char error[512] = "";
        ZUL_LastError(error, 511);
        printf("WRONG RESULT: %s, %s: %d, not %d: %s\n", call.name, call.variant, run.result, call.expected,
               error);
        harness->failures++;
    }
}

void look(const Call& call) {
    if (search(call.name, call.variant, false) != 0)
        harness->failures++;
}

void report_leaks_expected(const char* what, unsigned place) {
    const unsigned found = search(what, "", true);
    if ((found & place) != place) {
        printf("NOT FOUND: %s (places %u, not %u)\n", what, found, place);
        harness->failures++;
    }
}

void plant_numbers(const char* name, const char* keyString) {
    size_t size = 0;
    KEY_Save("plant.der", keyString, nullptr, nullptr, 0);
    const uint8_t* const der = read_file("plant.der", &size);
    plant_der(name, der, size, false);
    unlink("plant.der");
}

char* public_of(const TestKey& key) {
    char text[4000];
    return key_string(KEY_Public(text, 3999, key.text), text);
}

void make_keys() {
    static constexpr struct {
        const char *kind, *algorithm;
    } kKinds[kKeyKinds] = {{"rsa", "rsa-1024"}, {"other", "rsa-1024"}, {"p256", "p-256"},   {"p384", "p-384"},
                           {"p521", "p-521"},   {"ed", "ed25519"},     {"x25519", "x25519"}};
    keys = reinterpret_cast<TestKey*>(take(sizeof(TestKey[kKeyKinds])));
    keyPassword = plant_text("the keys' password", 20);
    for (int i = 0; i < kKeyKinds; i++) {
        TestKey& key = keys[i];
        char text[4000];
        key.kind = kKinds[i].kind;
        key.text = key_string(KEY_Make(text, 3999, kKinds[i].algorithm, 0), text);
        key.file = joined(key.kind, ".key");
        key.encrypted = joined(key.kind, ".enc");
        key.certificate = joined(key.kind, ".crt");
        KEY_Save(key.file, key.text, nullptr, nullptr, ZUL_KEY_FORMAT_PEM);
        KEY_Save(key.encrypted, key.text, keyPassword, "iterations=100", ZUL_KEY_FORMAT_PEM);
        if (i != kX25519)
            CERT_SelfSign(key.certificate, key.text, "subject='CN=Secrets'", 0);
        plant_numbers(key.kind, key.text);
    }
}

} // namespace secrets
