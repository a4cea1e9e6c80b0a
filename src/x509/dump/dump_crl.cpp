#include "frame/err.h"
#include "x509/dump/dump_layouts.h"
#include "zulcore.h"

namespace zul {
namespace {

[[nodiscard]] int put_time(DumpOutput& out, const char* label, const char* time) {
    if (*time == '\0')
        return err_fail(BAD_FORMAT_ERROR, "Missing time field in CRL");
    out.put(label, time, "\n");
    return 0;
}

[[nodiscard]] int put_entries(DumpOutput& out, CrlReader& crl) {
    out.put("Revoked Certificates:\n");
    CrlEntry entry;
    bool none = true, found = false;
    for (;; none = false) {
        if (const int error = crl.next(entry, found))
            return error;
        if (!found)
            break;
        out.put("  Serial Number: ");
        out.put_hex_block("", entry.serialNumber, entry.serialLength);
        if (const int error = put_time(out, "  Revocation Date: ", entry.revocationDate))
            return error;
    }
    if (none)
        out.put("  (none)\n");
    return 0;
}

} // namespace

int dump_crl(DumpOutput& out, CrlReader& crl) {
    out.put("X509 CERTIFICATE REVOCATION LIST (CRL)\nVersion: ");
    out.put_number(crl.version());
    out.put("\n");
    if (const int error = dump_name(out, "Issuer", crl.issuer(), "Cannot find Issuer Name"))
        return error;
    if (const int error = put_time(out, "This Update: ", crl.thisUpdate()))
        return error;
    if (*crl.nextUpdate() != '\0')
        static_cast<void>(put_time(out, "Next Update: ", crl.nextUpdate()));
    if (const int error = put_entries(out, crl))
        return error;
    if (crl.finish() != 0)
        return err_fail(BAD_FORMAT_ERROR, "Invalid Signature");
    return dump_signature(out, crl.signatureAlgorithm(), crl.signatureValue(), "Invalid Signature");
}

} // namespace zul
