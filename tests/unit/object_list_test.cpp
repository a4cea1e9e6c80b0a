#include "cert/input/object_list.h"
#include "encode/base64.h"
#include "frame/err.h"
#include "support/unit_test.h"
#include "zulcore.h"

using namespace zul;
using test::read_text;

static std::string base64_of(const std::string& bytes) {
    return b64_text(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()).text();
}

static std::string block(const std::string& label, const std::string& body) {
    return "-----BEGIN " + label + "-----\n" + body + "\n-----END " + label + "-----\n";
}

static std::string empty_sequences(size_t count) {
    std::string all;
    while (count-- > 0)
        all.append("0\0", 2);
    return all;
}

// What a list holds of every form that an argument may have; stored files hold what is given as text.
TEST(ObjectList, ReadsEveryForm) {
    const test::TempDir dir;
    const std::string one = read_text(test::data_path("cms/one.der")),
                      two = read_text(test::data_path("cms/two.der")),
                      certs = read_text(test::data_path("cms/certs.pem"));
    const std::string body = certs.substr(certs.find('\n'), certs.rfind("\n-----END") - certs.find('\n'));
    const std::string good = block("CERTIFICATE", base64_of(one));
    const struct {
        std::string content;
        int code;
        size_t objects;
        bool asText = true;    // it is an argument by itself, too
        size_t unreadable = 0; // if what cannot be read is left out, which then is no failure
    } rows[] = {
        {one, 0, 1, false},
        {one + two, 0, 2, false},
        {one + "x", INVALID_DATA_ERROR, 0, false, 1},
        {one + two.substr(0, 100), INVALID_DATA_ERROR, 0, false, 1},
        {"", NO_DATA_ERROR, 0, false},
        {"x", INVALID_DATA_ERROR, 0, false},
        {base64_of(one), 0, 1},
        {"\n" + base64_of(one) + "\n", 0, 1, false},
        {base64_of(one + two), 0, 2},
        {good, 0, 1},
        {good + block("X", base64_of(two)), 0, 2},
        {good + block("PRIVATE KEY", "AAAA"), 0, 1},
        {good + block("X", "AAAA"), INVALID_DATA_ERROR, 0, true, 1},
        {good + "-----BEGIN X-----\nAAAA", INVALID_DATA_ERROR, 0, true, 1},
        {block("PRIVATE KEY", "AAAA"), NO_DATA_ERROR, 0},
        {certs, 0, 2},
        {good + certs, 0, 3},
        {block("CMS", body), 0, 2},
        {block("X", body), 0, 2},
        {block("PKCS7", base64_of(one)), INVALID_DATA_ERROR, 0},
        {good + block("PKCS7", base64_of(one)), INVALID_DATA_ERROR, 0, true, 1},
        {block("PKCS7", body.substr(0, 129)), INVALID_DATA_ERROR, 0},
        {empty_sequences(ObjectList::kMaxObjects), 0, ObjectList::kMaxObjects, false},
        {empty_sequences(ObjectList::kMaxObjects + 1), OUT_OF_RANGE_ERROR, 0, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.content.substr(0, 80));
        const std::string file = dir.write("objects", row.content);
        for (const std::string& argument : {file, " ; " + file + ";", row.asText ? row.content : file}) {
            ObjectList list, lenient;
            const int code = list.add(argument.c_str());
            EXPECT_EQ(code, row.code) << err_text();
            EXPECT_EQ(code == 0 ? list.size() : 0, row.objects);
            lenient.leave_out_unreadable();
            EXPECT_EQ(lenient.add(argument.c_str()), row.unreadable > 0 ? 0 : row.code);
            EXPECT_EQ(row.unreadable > 0 ? lenient.unreadable() : 0, row.unreadable);
        }
    }
}
