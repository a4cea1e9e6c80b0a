#include <cstdlib>

#include "asn1/asn_parse.h"
#include "encode/base64.h"
#include "frame/err.h"
#include "pfx/p12_file.h"
#include "pfx/p12_list.h"
#include "zulcore.h"

// Any input is read or refused with a known code. Entries that are given have what their kind promises, and a
// report is one line for each of them.

using namespace zul;

static void require(bool claim) {
    if (!claim)
        std::abort();
}

static void require_known(int error) {
    require(error == 0 || error == DECRYPT_ERROR || error == BAD_FORMAT_ERROR ||
            error == INVALID_DATA_ERROR || error == NOT_SUPPORTED_ERROR || error == OUT_OF_RANGE_ERROR ||
            error == BAD_KEY_ERROR || error == MEMORY_ERROR || error == OPEN_ERROR);
}

static bool is_costly(const P12Scheme& scheme) {
    constexpr uint32_t kMany = 500;
    return scheme.iterations > kMany || scheme.kdf[0] == 's';
}

// The derivations of real files would take all the time of the search.
static bool is_costly(const uint8_t* data, size_t size) {
    P12File file;
    AsnList list = asn_ParseBytes(data, size);
    if (!list || file.open_list(list) != 0)
        return false;
    static_cast<void>(file.read(nullptr, true)); // what stands before a fault is read by all
    bool isCostly = file.has_mac() && is_costly({.iterations = file.mac().iterations});
    for (const P12Safe* safe = file.safes(); safe != nullptr; safe = safe->next)
        isCostly |= is_costly(safe->scheme);
    for (const P12Entry* entry = file.entries().head(); entry != nullptr; entry = entry->next)
        isCostly |= is_costly(entry->scheme);
    return isCostly;
}

static void read_entries(const uint8_t* data, size_t size, P12Password* password) {
    P12File file;
    AsnList list = asn_ParseBytes(data, size);
    if (!list || file.open_list(list) != 0)
        return;
    if (password != nullptr && file.check(*password) != 0)
        err_clear(); // go on: what a MAC protects is to be read as well
    const int error = file.read(password, true);
    require_known(error);
    for (P12Entry* entry = file.entries().head(); entry != nullptr; entry = entry->next) {
        if (error == 0 && entry->is_x509()) {
            require(!entry->content.empty());
        }
        if (password != nullptr && entry->is_key() && !entry->content.empty()) {
            const int keyError = file.open_key(*entry, *password);
            require_known(keyError);
            require((keyError == 0) == entry->key.has_value());
        }
    }
}

static void list_file(const uint8_t* data, size_t size, const char* password) {
    SecretBuffer text, report;
    constexpr char kBegin[] = "-----BEGIN PKCS12-----\n", kEnd[] = "\n-----END PKCS12-----\n";
    const SecretBuffer body = b64_text(data, size);
    text.append(kBegin, sizeof kBegin - 1);
    text.append(body.data(), body.size());
    text.append(kEnd, sizeof kEnd - 1);
    const int error = p12_list(report, text.text(), password, 0);
    require_known(error);
    for (size_t i = 0; i < report.size(); i++) // no value breaks a line
        require(report[i] != '\n' || i + 1 == report.size() || report[i + 1] == 'M' || report[i + 1] == 'S' ||
                report[i + 1] == 'E');
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (is_costly(data, size))
        return 0;
    P12Password simple("simple"), empty(nullptr);
    read_entries(data, size, &simple);
    read_entries(data, size, &empty);
    read_entries(data, size, nullptr);
    list_file(data, size, "simple");
    list_file(data, size, nullptr);
    return 0;
}
