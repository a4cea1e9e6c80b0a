#include "cert/report/sct_list.h"

#include "cert/make/time_value.h"
#include "cert/report/report_extensions.h"
#include "cert/report/report_fields.h"

namespace zul {

namespace {

// take_bytes takes a number of bytes off the front, take_vector an opaque vector of TLS with two bytes of
// length (RFC 8446, 3.4).
bool take_bytes(DerView& rest, size_t size, DerView& bytes) {
    if (rest.size < size)
        return false;
    bytes = {rest.data, size};
    rest = {rest.data + size, rest.size - size};
    return true;
}
bool take_number(DerView& rest, size_t size, uint64_t& number) {
    DerView bytes;
    if (!take_bytes(rest, size, bytes))
        return false;
    number = 0;
    for (const uint8_t byte : bytes)
        number = number << 8 | byte;
    return true;
}
bool take_vector(DerView& rest, DerView& bytes) {
    uint64_t size;
    return take_number(rest, 2, size) && take_bytes(rest, static_cast<size_t>(size), bytes);
}

void put_two(TextBuffer& out, int number) {
    out.put(static_cast<char>('0' + number / 10 % 10));
    out.put(static_cast<char>('0' + number % 10));
}

// put_milliseconds writes a time with three decimals. False beyond the year 9999.
bool put_milliseconds(TextBuffer& out, uint64_t milliseconds) {
    constexpr uint64_t kYear10000 = 253402300800000;
    if (milliseconds >= kYear10000)
        return false;
    const tm time = time_of_seconds(static_cast<int64_t>(milliseconds / 1000));
    const int year = time.tm_year + 1900, thousandths = static_cast<int>(milliseconds % 1000);
    const int parts[] = {year,        time.tm_mon + 1, time.tm_mday,     time.tm_hour,
                         time.tm_min, time.tm_sec,     thousandths % 100};
    constexpr std::string_view kMarks = "--T::.";
    put_two(out, year / 100);
    for (size_t i = 0; i < kMarks.size(); i++) {
        put_two(out, parts[i]);
        out.put(kMarks[i]);
    }
    out.put(static_cast<char>('0' + thousandths / 100));
    put_two(out, parts[kMarks.size()]);
    out.put('Z');
    return true;
}

void show_timestamp(ReportWriter& report, uint64_t timestamp) {
    TextBuffer text;
    if (put_milliseconds(text, timestamp))
        report.word("timestamp", text.text());
    else
        report.number("timestamp", timestamp > INT64_MAX ? INT64_MAX : static_cast<int64_t>(timestamp));
}

// show_code writes a number of TLS by its name (RFC 5246, 7.4.1.4.1; RFC 8422, 5.1.3).
template<size_t count>
void show_code(ReportWriter& report, std::string_view key, unsigned code,
               const std::string_view (&names)[count]) {
    if (code < count)
        report.word(key, names[code]);
    else
        report.number(key, code);
}

bool show_sct(ReportWriter& report, DerView bytes) {
    constexpr std::string_view kHashes[] = {"none", "md5", "sha1", "sha224", "sha256", "sha384", "sha512"};
    constexpr std::string_view kSignatures[] = {"anonymous", "rsa", "dsa", "ecdsa"};
    SctView sct;
    if (!sct_read(bytes, sct))
        return false;
    report.begin_object({});
    report.number("version", sct.version + 1);
    report.bytes("logID", sct.logId);
    show_timestamp(report, sct.timestamp);
    if (!sct.extensions.empty())
        report.bytes("extensions", sct.extensions);
    show_code(report, "hashAlgorithm", sct.hash, kHashes);
    show_code(report, "signatureAlgorithm", sct.signatureAlgorithm, kSignatures);
    report.bytes("signature", sct.signature);
    report.end_object();
    return true;
}

} // namespace

SctReader::SctReader(DerView list) {
    DerView rest = list;
    isGood_ = take_vector(rest, rest_) && rest.empty();
}

bool SctReader::next(DerView& sct) {
    if (!isGood_ || rest_.empty())
        return false;
    isGood_ = take_vector(rest_, sct);
    return isGood_;
}

bool sct_read(DerView bytes, SctView& sct) {
    constexpr size_t kLogId = 32;
    uint64_t version, hash, signature;
    if (!take_number(bytes, 1, version) || version != 0 || !take_bytes(bytes, kLogId, sct.logId) ||
        !take_number(bytes, 8, sct.timestamp) || !take_vector(bytes, sct.extensions) ||
        !take_number(bytes, 1, hash) || !take_number(bytes, 1, signature) ||
        !take_vector(bytes, sct.signature) || !bytes.empty())
        return false;
    sct.version = static_cast<unsigned>(version);
    sct.hash = static_cast<unsigned>(hash);
    sct.signatureAlgorithm = static_cast<unsigned>(signature);
    return true;
}

bool show_sct_list(ReportWriter& report, DerView value) {
    DerView list, bytes;
    if (!der_single(value, kDerOctetString, list))
        return false;
    SctReader reader(list);
    report.begin_list(kExtnValue);
    while (reader.next(bytes))
        show_guarded(report, {}, bytes, [&] { return show_sct(report, bytes); });
    report.end_list();
    return reader.at_end();
}

} // namespace zul
