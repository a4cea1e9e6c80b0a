// secrets LIST_OF_EXPORTS TEST_DATA: whether an export leaves secrets in freed blocks, memory or registers.
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include "platform/cpu.h"
#include "secrets/harness.h"
#include "secrets/probes.h"
#include "secrets/secrets_test.h"

namespace secrets {

namespace {

// The other exports, and why no secret comes near them.
constexpr const char* kOthers[] = {
    // They tell of the module and of codes; what the last error's text holds is memory that is searched
    // anyway.
    "ZUL_ErrorCode", "ZUL_LastError", "ZUL_ErrorLookup", "ZUL_ModuleName", "ZUL_Version", "ZUL_CompileTime",
    "ZUL_PowerUpTests",
    // It writes over a file without reading it.
    "WIPE_File",
    // A number of 32 bits could be found anywhere by chance.
    "RNG_Number",
    // Public keys, certificates, requests, CRLs and OCSP messages.
    "RSA_ReadPublicKey", "RSA_GetPublicKeyFromCert", "X509_QueryCert", "X509_KeyUsageFlags", "X509_CertThumb",
    "X509_CertIsValidNow", "X509_CertIssuedOn", "X509_CertExpiresOn", "X509_CertSerialNumber",
    "X509_CertSubjectName", "X509_CertIssuerName", "X509_HashIssuerAndSN", "X509_ReadStringFromFile",
    "X509_SaveFileFromString", "X509_VerifyCert", "X509_CheckCertInCRL", "X509_ValidatePath", "X509_TextDump",
    "X509_GetCertFromP7Chain", "OCSP_MakeRequest", "OCSP_ReadResponse",
    // Messages that are not encrypted, and what an encrypted one shows to everybody.
    "CMS_MakeSigDataFromSigValue", "CMS_ReadSigData", "CMS_ReadSigDataToString", "CMS_VerifySigData",
    "CMS_GetSigDataDigest", "CMS_QuerySigData", "CMS_QueryEnvData",
    // They take encrypted keys and certificates out of a file without its password.
    "X509_GetCertFromPFX", "RSA_GetPrivateKeyFromPFX",
    // Certificates alone.
    "CERT_CheckName", "CERT_CheckPath"};

int check_exports(const char* path) {
    FILE* const list = fopen(path, "r");
    char line[200];
    int wrong = list == nullptr ? 1 : 0;
    while (list != nullptr && fgets(line, sizeof line, list) != nullptr) {
        line[strcspn(line, " #\r\n")] = '\0';
        bool isOther = false;
        for (const char* other : kOthers)
            isOther |= strcmp(other, line) == 0;
        if (line[0] != '\0' && was_called(line) == isOther) {
            printf("%s: %s\n",
                   isOther ? "both called and said to touch no secret" : "neither called nor excepted", line);
            wrong++;
        }
    }
    if (list != nullptr)
        fclose(list);
    return wrong;
}

// What the user types, in memory that both processes share.
struct Typed {
    char* volatile text; // null: nothing; empty: keys at random
};
Typed* typed = nullptr;

enum class Extent { all, kernels };

void run_all(const char* kernels, uint32_t hidden, Extent extent, const char* data) {
    hide_features(hidden);
    const int before = harness_calls();
    printf("%s:\n", kernels);
    fresh();
    check_data();
    check_ciphers();
    check_random(extent == Extent::all);
    check_rsa();
    check_keys();
    if (extent == Extent::all) {
        check_certificates();
        check_messages(data);
        check_files();
    }
    printf("%d calls\n", harness_calls() - before);
    fflush(stdout);
}

int run(const char* list, const char* data) {
    setvbuf(stdout, nullptr, _IOLBF, 0);
    self_check();
    make_keys();
    allow_own_state();
    share_secrets();
    run_all("all that the processor has", 0, Extent::all, data);
    run_all("vectors of 256 bits", zul::kCpuAvx512 | zul::kCpuAvx512Ifma | zul::kCpuVaes, Extent::kernels,
            data);
    run_all("portable", ~zul::kCpuDetected, Extent::kernels, data);
    const int wrong = check_exports(list) + missing_probes() + harness_failures();
    printf("%s\n", wrong == 0 ? "good" : "WRONG");
    return wrong == 0 ? 0 : 1;
}

bool echoes(int master) {
    termios mode{};
    return tcgetattr(master, &mode) == 0 && (mode.c_lflag & ECHO) != 0;
}

// be_user types while a prompt is open, which it knows by the echo that is off.
int be_user(int master, pid_t child) {
    char shown[4096];
    int status = 0, keysTyped = 0;
    while (waitpid(child, &status, WNOHANG) == 0) {
        pollfd poll_{master, POLLIN, 0};
        if (poll(&poll_, 1, 2) > 0 && read(master, shown, sizeof shown) < 0)
            usleep(5000);
        char* const text = typed->text;
        if (text == nullptr || echoes(master)) {
            keysTyped = 0;
            continue;
        }
        if (text[0] != '\0') {
            typed->text = nullptr;
            if (write(master, text, strlen(text)) < 0)
                return 3;
        } else {
            const char key = static_cast<char>('a' + keysTyped % 26);
            const bool isEnough = ++keysTyped % 150 == 0;
            if (write(master, isEnough ? "\r" : &key, 1) < 0)
                return 3;
            usleep(isEnough ? 400000 : 0); // the prompt waits for the typing to end
        }
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 3;
}

} // namespace

void type_text(const char* text) {
    typed->text = joined(text, "\n");
}
void type_keys() {
    typed->text = joined("", "");
}

int start(const char* list, const char* data) {
    harness_start();
    typed = reinterpret_cast<Typed*>(take(sizeof(Typed)));
    char folder[] = "secrets-XXXXXX";
    const int master = posix_openpt(O_RDWR | O_NOCTTY);
    if (mkdtemp(folder) == nullptr || master < 0 || grantpt(master) != 0 || unlockpt(master) != 0)
        return 3;
    char listPath[PATH_MAX], dataPath[PATH_MAX];
    if (realpath(list, listPath) == nullptr || realpath(data, dataPath) == nullptr || chdir(folder) != 0)
        return 3;
    fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        // A session of its own, whose terminal is the one just made.
        setsid();
        if (open(ptsname(master), O_RDWR) < 0)
            _exit(3);
        exit(run(listPath, dataPath));
    }
    const int result = be_user(master, child);
    if (chdir("..") == 0 && system(joined("rm -rf ", folder)) != 0)
        return 3;
    return result;
}

} // namespace secrets

int main(int argc, char** argv) {
    return argc == 3 ? secrets::start(argv[1], argv[2]) : 2;
}
