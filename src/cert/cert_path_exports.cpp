#include "cert/path/check_path.h"
#include "frame/call_frame.h"
#include "frame/text.h"
#include "zulcore.h"

using namespace zul;

namespace {

// end_report ends a report that has been written into a room: it keeps whole lines. JSON has to fit.
[[nodiscard]] int end_report(char* out, const TextBuffer& report, bool isJson) {
    const std::string_view stored = report.text();
    if (!report.is_cut()) {
        out[stored.size()] = '\0';
        return 0;
    }
    out[isJson ? 0 : stored.rfind('\n') + 1] = '\0'; // no line is npos, which is -1
    return isJson ? err_short_room(report.size()) : 0;
}

} // namespace

int CERT_CheckPath(char* szReport, int nReportChars, const char* szCert, const char* szOthers,
                   const char* szTrusted, const char* szEvidence, const char* szConditions, int nOptions) {
    CallFrame frame;
    const bool hasRoom = szReport != nullptr && nReportChars > 0, isJson = (nOptions & ZUL_CERT_JSON) != 0;
    if (hasRoom)
        *szReport = '\0';
    if (is_missing(szCert) || is_missing(szTrusted))
        return frame.status(err_missing_argument());
    if ((nOptions & ~(ZUL_CERT_WEB | ZUL_CERT_JSON | ZUL_CERT_SUBJECT_NAME)) != 0)
        return frame.status(err_unknown_option());
    TextBuffer report(szReport, nReportChars);
    const int code = check_path({szCert, szOthers, szTrusted, szEvidence, szConditions, nOptions},
                                hasRoom ? &report : nullptr);
    // A report that is not there must not be taken for one.
    const int reportCode = hasRoom ? end_report(szReport, report, isJson) : 0;
    return frame.status(reportCode != 0 ? reportCode : code);
}
