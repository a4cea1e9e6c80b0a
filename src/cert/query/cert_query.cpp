#include "cert/query/cert_query.h"

#include "frame/err.h"
#include "frame/text.h"
#include "x509/names/pair_reader.h"
#include "zulcore.h"

namespace zul {

static constexpr QueryRows (*kTables[])() = {field_queries, extension_queries};

static int unknown_word() {
    TextBuffer list;
    for (const auto table : kTables)
        for (size_t i = 0; i < table().count; i++) {
            list.put(list.size() == 0 ? "" : ", ");
            list.put(table().rows[i].word);
        }
    return err_fail(BAD_QUERY_ERROR, "Queries: %s", list.c_str());
}

int query_object_read(QueryObject& object, const ObjectEntry& entry) {
    object.kind = entry.kind;
    object.encoding = entry.der;
    int error = 0;
    switch (entry.kind) {
    case ObjectKind::certificate:
        error = certificate_view_read(entry.der, object.certificate);
        object.issuer = object.certificate.issuer;
        object.subject = object.certificate.subject;
        object.publicKeyInfo = object.certificate.publicKeyInfo;
        object.extensions = object.certificate.extensions;
        object.signatureAlgorithm = object.certificate.signatureAlgorithm;
        return error;
    case ObjectKind::request:
        error = request_view_read(entry.der, object.request);
        object.subject = object.request.subject;
        object.publicKeyInfo = object.request.publicKeyInfo;
        object.extensions = object.request.extensions;
        object.signatureAlgorithm = object.request.signatureAlgorithm;
        return error;
    case ObjectKind::crl:
        error = crl_view_read(entry.der, object.crl);
        object.issuer = object.crl.issuer;
        object.extensions = object.crl.extensions;
        object.signatureAlgorithm = object.crl.signatureAlgorithm;
        return error;
    case ObjectKind::ocspResponse:
        error = ocsp_response_view_read(entry.der, object.response);
        object.extensions = object.response.extensions;
        object.signatureAlgorithm = object.response.signatureAlgorithm;
        return error;
    case ObjectKind::other:
        break;
    }
    return err_fail(BAD_FORMAT_ERROR, "Not a certificate, request, CRL or OCSP response");
}

int cert_query_find(WriteAnswer& query, const char* word) {
    if (is_missing(word))
        return err_missing_argument();
    for (const auto table : kTables)
        for (size_t i = 0; i < table().count; i++)
            if (same_word(table().rows[i].word, word)) {
                query = table().rows[i].write;
                return 0;
            }
    return unknown_word();
}

int cert_query(TextBuffer& out, const ObjectEntry& entry, WriteAnswer query) {
    QueryObject object;
    const int error = query_object_read(object, entry);
    return error != 0 ? error : query(out, object);
}

} // namespace zul
