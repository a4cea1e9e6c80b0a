#pragma once
#include "cert/fields/certificate_view.h"
#include "cert/fields/crl_view.h"
#include "cert/fields/ocsp_view.h"
#include "cert/input/object_list.h"
#include "frame/text_buffer.h"

namespace zul {

// QueryObject is what queries ask about. Fields that a kind of object lacks are empty.
struct QueryObject {
    ObjectKind kind = ObjectKind::other;
    DerView encoding, issuer, subject, publicKeyInfo, extensions;
    AlgorithmView signatureAlgorithm;
    CertificateView certificate; // of the four, the one of the kind is read
    RequestView request;
    CrlView crl;
    OcspResponseView response;
};

// query_object_read gives 0, or BAD_FORMAT_ERROR with a text.
[[nodiscard]] int query_object_read(QueryObject& object, const ObjectEntry& entry);

// AnswerLines joins the values of an answer by line feeds, which no value holds.
class AnswerLines {
  public:
    explicit AnswerLines(TextBuffer& out) : out_(out) {}
    TextBuffer& next() {
        if (hasLines_)
            out_.put('\n');
        hasLines_ = true;
        return out_;
    }

  private:
    TextBuffer& out_;
    bool hasLines_ = false;
};

// WriteAnswer writes nothing for a field that the object lacks: 0, or an error code with a text.
using WriteAnswer = int (*)(TextBuffer& out, const QueryObject& object);

struct QueryRow {
    const char* word;
    WriteAnswer write;
};
struct QueryRows {
    const QueryRow* rows;
    size_t count;
};
QueryRows field_queries();     // fields, keys and digests
QueryRows extension_queries(); // names and other values of extensions

} // namespace zul
