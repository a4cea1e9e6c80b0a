#include <cstring>

#include "cert/path/check_path.h"
#include "frame/call_frame.h"
#include "frame/slice.h"
#include "frame/text.h"
#include "zulcore.h"

using namespace zul;

namespace {

// give_report copies a report: as many whole lines as there is room for. JSON has to fit.
[[nodiscard]] int give_report(char* out, int room, std::string_view report, bool isJson) {
    const auto most = static_cast<size_t>(room);
    int code = 0;
    if (report.size() > most) {
        if (isJson)
            code = err_short_room(report.size());
        const size_t lineEnd = isJson ? std::string_view::npos : slice(report, 0, most).rfind('\n');
        report = lineEnd == std::string_view::npos ? std::string_view() : slice(report, 0, lineEnd + 1);
    }
    if (!report.empty())
        memcpy(out, report.data(), report.size());
    out[report.size()] = '\0';
    return code;
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
    TextBuffer report;
    const int code = check_path({szCert, szOthers, szTrusted, szEvidence, szConditions, nOptions},
                                hasRoom ? &report : nullptr);
    // A report that is not there must not be taken for one.
    const int reportCode =
        hasRoom && report.size() > 0 ? give_report(szReport, nReportChars, report.text(), isJson) : 0;
    return frame.status(reportCode != 0 ? reportCode : code);
}
