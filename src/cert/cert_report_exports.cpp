#include <cstring>

#include "cert/names/subject_names.h"
#include "cert/query/cert_query.h"
#include "cert/report/report.h"
#include "frame/call_frame.h"
#include "frame/text.h"
#include "zulcore.h"

using namespace zul;

namespace {

[[nodiscard]] int read_objects(ObjectList& objects, const char* fileOrText) {
    return is_missing(fileOrText) ? err_missing_argument()
                                  : objects.add_argument(fileOrText, strlen(fileOrText));
}

[[nodiscard]] int report(TextBuffer& out, const char* fileOrText, int options) {
    ObjectList objects;
    if ((options & ~ZUL_CERT_JSON) != 0)
        return err_unknown_option();
    if (const int error = read_objects(objects, fileOrText))
        return error;
    const bool isJson = (options & ZUL_CERT_JSON) != 0;
    if (const int error = write_report(out, objects, isJson))
        return error;
    return isJson && out.is_cut() ? err_short_room(out.size()) : 0;
}

[[nodiscard]] int query(TextBuffer& out, const char* cert, const char* word, int options) {
    ObjectList objects;
    if (options != 0)
        return err_unknown_option();
    WriteAnswer query = nullptr;
    if (const int error = cert_query_find(query, word))
        return error;
    if (const int error = read_objects(objects, cert))
        return error;
    return cert_query(out, objects[0], query);
}

[[nodiscard]] int check_name(const char* cert, const char* reference, int options) {
    ObjectList objects;
    CertificateView certificate;
    CertExtensions extensions;
    if ((options & ~ZUL_CERT_SUBJECT_NAME) != 0)
        return err_unknown_option();
    if (is_missing(reference))
        return err_missing_argument();
    if (const int error = read_objects(objects, cert))
        return error;
    if (const int error = certificate_view_read(objects[0].der, certificate))
        return error;
    if (const int error = cert_extensions_read(certificate, extensions))
        return error;
    return check_subject_name(certificate, extensions, reference, options);
}

// text_of gives a text's length, or empties it after an error.
[[nodiscard]] int text_of(TextBuffer& out, int error) {
    if (error == 0)
        return out.result();
    out.shrink(0);
    static_cast<void>(out.result());
    return -error;
}

} // namespace

int CERT_Query(char* szOutput, int nOutChars, const char* szCert, const char* szQuery, int nOptions) {
    CallFrame frame;
    TextBuffer out(szOutput, nOutChars);
    return frame.length(text_of(out, query(out, szCert, szQuery, nOptions)));
}

int CERT_Report(char* szOutput, int nOutChars, const char* szFileOrText, int nOptions) {
    CallFrame frame;
    TextBuffer out(szOutput, nOutChars);
    return frame.length(text_of(out, report(out, szFileOrText, nOptions)));
}

int CERT_CheckName(const char* szCert, const char* szHostOrAddress, int nOptions) {
    CallFrame frame;
    return frame.status(check_name(szCert, szHostOrAddress, nOptions));
}
