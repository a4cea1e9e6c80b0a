#include "cert/make/crl_reason.h"

#include "frame/err.h"
#include "x509/names/pair_reader.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr struct {
    const char* name;
    int reason, bit; // bit: -1 if there is none
} kReasons[] = {
    {"unspecified", kReasonUnspecified, -1},
    {"keyCompromise", 1, 1},
    {"cACompromise", 2, 2},
    {"affiliationChanged", 3, 3},
    {"superseded", 4, 4},
    {"cessationOfOperation", 5, 5},
    {"certificateHold", kReasonCertificateHold, 6},
    {"removeFromCRL", kReasonRemoveFromCrl, -1},
    {"privilegeWithdrawn", 9, 7},
    {"aACompromise", 10, 8},
};

} // namespace

int crl_reason_read(int& reason, std::string_view name) {
    for (const auto& row : kReasons) {
        if (same_word(name, row.name)) {
            reason = row.reason;
            return 0;
        }
    }
    return err_fail(
        BAD_PARAM_ERROR,
        "Not a reason (unspecified, keyCompromise, cACompromise, affiliationChanged, superseded, "
        "cessationOfOperation, certificateHold, removeFromCRL, privilegeWithdrawn, aACompromise)");
}

uint32_t crl_reason_flag(int reason) {
    for (const auto& row : kReasons)
        if (row.reason == reason && row.bit >= 0)
            return 1U << row.bit;
    return 0;
}

} // namespace zul
