#include <cstdio>
#include <filesystem>
#include <gtest/gtest.h>
#include <set>

#include "injection/harness.h"
#include "platform/file_hooks.h"

using namespace zul::platform;

namespace injection {

namespace {

// An operation as the fault hook saw it. Closing a file that was only read loses nothing.
struct Seen {
    FileOperation operation;
    bool isWritten;   // its handle has been written to
    std::string file; // that was opened last: its name without the folder
};

const char* name_of(const Seen& seen) {
    static const char* const names[] = {"open",  "create", "createBeside", "read",  "write",   "seek",
                                        "empty", "commit", "lock",         "close", "replace", "remove"};
    return seen.operation == FileOperation::close && !seen.isWritten
               ? "close of an input"
               : names[static_cast<int>(seen.operation)];
}

enum class Spread {
    once,
    same,  // and all later ones of the same operation: a full disk
    every, // and all later ones of any operation: a disk that is gone
};

struct Plan {
    size_t at = 0; // the number of the operation that fails, from 1; 0: none
    FileFault fault = FileFault::fails;
    Spread spread = Spread::once;
};

std::vector<Seen> seen;
std::set<FileHandle> written;
Plan plan;

FileFault fault(FileOperation operation, FileHandle file, const char* path) {
    const std::string name = path != nullptr ? std::filesystem::path(path).filename().string()
                             : seen.empty()  ? ""
                                             : seen.back().file;
    if (operation == FileOperation::write)
        written.insert(file);
    const bool isWritten = written.count(file) != 0;
    if (operation == FileOperation::close)
        written.erase(file);
    seen.push_back({operation, isWritten, name});
    if (plan.at == 0 || seen.size() < plan.at)
        return FileFault::none;
    if (seen.size() == plan.at)
        return plan.fault;
    const Seen& first = seen[plan.at - 1];
    const bool isSame = operation == first.operation && isWritten == first.isWritten;
    const bool again = plan.spread == Spread::every || (plan.spread == Spread::same && isSame);
    return again ? FileFault::fails : FileFault::none;
}

void run(Trial& trial, const Plan& with) {
    trial.run([&] {
        seen.clear();
        written.clear();
        plan = with;
        file_set_hooks({fault});
    });
    file_set_hooks({});
}

// What a call may give beside the code that goes with the operation, as its comment in the header has it.
constexpr int kSuccess = 0, kLess = -1; // with kLess it succeeds too, but with less of an output
struct Exception {
    const char* calls; // the beginning of their names
    const char* file;  // null: any
    std::set<FileOperation> operations;
    int code;
    const char* reason;
};
using enum FileOperation;
const Exception kExceptions[] = {
    {"ZUL_PowerUpTests", nullptr, {read}, kLess, "a program has no seal, so they fail in any case"},
    {"", nullptr, {replace}, kSuccess, "a file that cannot be replaced is written in place"},
    {"WIPE_File", nullptr, {read, write, seek, commit, close, remove}, WIPE_ERROR, "one code for all passes"},
    {"PEM_", nullptr, {read}, OPEN_ERROR, "one code for an input that cannot be read"},
    {"HASH_", nullptr, {read}, kLess, "a read error ends the message"},
    {"RNG_", nullptr, {open}, PRNG_ERR_FILE_OPEN, "codes of its own"},
    {"RNG_", nullptr, {create}, PRNG_ERR_FILE_CREATE, "codes of its own"},
    {"RNG_", nullptr, {read}, PRNG_ERR_FILE_READ, "codes of its own"},
    {"RNG_", nullptr, {write, seek, commit, close}, PRNG_ERR_FILE_WRITE, "codes of its own"},
    {"RNG_", nullptr, {lock}, PRNG_ERR_FILE_LOCK, "codes of its own"},
    {"RSA_MakeKeys", "target", {create, createBeside}, kLess, "the public key is written all the same"},
    {"X509_MakeCert", "encrypted.pem", {open, read}, DECRYPT_ERROR, "the private key cannot be read"},
    {"X509_CertRequest", "encrypted.pem", {open, read}, READ_ERROR, "the private key cannot be read"},
    {"X509_MakeCRL", "encrypted.pem", {open, read}, READ_ERROR, "the private key cannot be read"},
    {"X509_CheckCertInCRL", "root.cer", {open, read}, SIGNATURE_ERROR, "the signature could not be verified"},
    {"X509_CheckCertInCRL", "crl.crl", {open, read}, SIGNATURE_ERROR, "the signature could not be verified"},
    {"X509_ValidatePath", "leaf.pem", {open}, INVALID_DATA_ERROR, "an item that is not a certificate"},
    {"X509_ValidatePath", "root.cer", {open}, INVALID_DATA_ERROR, "an item that is not a certificate"},
    {"X509_ValidatePath",
     "bundle.p7c",
     {open},
     NO_DATA_ERROR,
     "a text that is neither bundle nor certificate"},
    {"CMS_MakeSig", "leaf.pem", {open, read}, OPEN_ERROR, "a certificate that cannot be read"},
    {"CMS_MakeSig", "root.cer", {open, read}, OPEN_ERROR, "a certificate that cannot be read"},
    {"CMS_MakeDet", "leaf.pem", {open, read}, OPEN_ERROR, "a certificate that cannot be read"},
    {"CMS_MakeEnv", "leaf.pem", {open, read}, kLess, "a recipient is left out"},
    {"CMS_MakeEnv", "root.cer", {open, read}, kLess, "a recipient is left out"},
    {"CMS_QueryEnvData", nullptr, {read}, kLess, "what is asked for may stand before"},
    {"PFX_MakeFile", "root.cer", {open, read}, INVALID_DATA_ERROR, "the certificate cannot be read"},
    {"CMS_ReadEnvData", nullptr, {close}, IO_ERROR, "the output cannot be closed"},
};

const Exception* exception_of(const Trial& trial, const Seen& what) {
    const std::string name = trial.call().name;
    for (const Exception& exception : kExceptions)
        if (exception.operations.contains(what.operation) && name.starts_with(exception.calls) &&
            (exception.file == nullptr || exception.file == what.file))
            return &exception;
    return nullptr;
}

int usual_code(const Seen& what) {
    switch (what.operation) {
    case open:
        return OPEN_ERROR;
    case create:
    case createBeside:
        return CREATE_ERROR;
    case read:
    case seek:
        return READ_ERROR;
    case close:
        return what.isWritten ? WRITE_ERROR : kSuccess;
    default:
        return WRITE_ERROR;
    }
}

size_t tried;

void try_fault(Trial& trial, const Seen& what, const Plan& with) {
    static const char* const spreads[] = {"", " and later ones", " and all later operations"};
    SCOPED_TRACE(std::string(name_of(what)) + " of " + what.file +
                 (with.fault == FileFault::partway ? " partway" : "") +
                 spreads[static_cast<int>(with.spread)] + " at " + std::to_string(with.at));
    run(trial, with);
    tried++;
    trial.expect_nothing_leaked();
    const int usual = usual_code(what);
    const Exception* const exception = exception_of(trial, what);
    const int other = exception == nullptr ? usual : exception->code;
    if (trial.succeeded()) {
        EXPECT_TRUE(usual == kSuccess || other <= kSuccess) << trial.name() << ": " << trial.result();
        if (other != kLess)
            trial.expect_whole();
        return;
    }
    if (with.spread != Spread::every) {
        EXPECT_TRUE(trial.code() == usual || trial.code() == other)
            << trial.name() << ": " << trial.result() << " instead of " << usual;
    }
    // Another process is about to write a seed file that is locked.
    trial.expect_failed(with.spread != Spread::every && what.operation != lock);
}

} // namespace

TEST(FileFaults, OfEveryCall) {
    size_t total = 0;
    for (const Call& call : every_call()) {
        for (const Before before : befores(call)) {
            Trial trial(call, before);
            trial.expect_clean();
            run(trial, {});
            const std::vector<Seen> operations = seen;
            total += operations.size();
            for (const size_t at : sample(operations.size())) {
                const Seen& what = operations[at - 1];
                const bool hasParts =
                    what.operation == FileOperation::read || what.operation == FileOperation::write;
                try_fault(trial, what, {at});
                if (hasParts)
                    try_fault(trial, what, {at, FileFault::partway});
                try_fault(trial, what, {at, FileFault::fails, Spread::same});
                try_fault(trial, what, {at, FileFault::fails, Spread::every});
                trial.expect_clean();
            }
        }
    }
    printf("%zu calls, %zu file operations, %zu faults\n", every_call().size(), total, tried);
}

} // namespace injection
