#include "asn1/asn_value.h"
#include "support/unit_test.h"
#include "x509/fields/x509_time.h"

using namespace zul;

static std::string text_of(const tm& time) {
    char text[kAsnTimeText];
    asn_format_time(time, text);
    return text;
}

TEST(X509Time, ReadsDateTexts) {
    const struct {
        const char *input, *text;
    } dates[] = {{"2010-01-31", "2010-01-31T23:59:58Z"},
                 {"2010/2-3T4:5:6", "2010-02-03T04:05:06Z"},
                 {"2010-02-03T12:30", "2010-02-03T12:30:00Z"},
                 {" 2010-12-31T23:59:59Z\t", "2010-12-31T23:59:59Z"},
                 {"2010-12Z", "2010-12-01T23:59:58Z"},
                 {"2010T07", "2010-01-01T07:00:00Z"},
                 {"9", "2009-01-01T23:59:58Z"},
                 {"69", "2069-01-01T23:59:58Z"},
                 {"70", "1970-01-01T23:59:58Z"},
                 {"1899", "3799-01-01T23:59:58Z"},
                 {"1900-02-28", "1900-02-28T23:59:58Z"},
                 {"9999-12-31", "9999-12-31T23:59:58Z"},
                 {"            2010-01-01T12:00:00Z", "2010-01-01T12:00:00Z"}}; // 32 characters
    const char* const noDates[] = {"00012-02-29",     "0-01-01",        "2100-02-29",     "2010-02-30",
                                   "2010-13-01",      "2010-00-01",     "2010-01-00",     "2010-01-001",
                                   "2010-01-01T",     "2010-01-",       "-2010-01-01",    "2010-01-01x",
                                   "2010-01-01T12:",  "2010-1-1 T12",   "2010-1-1T24:00", "2010-1-1T23:60",
                                   "2010-1-1T1:0:60", "2010-1-1T1:0+1", "2010-1-1T12-00", " "};
    tm time;
    for (const auto& c : dates) {
        EXPECT_TRUE(read_date_text(c.input, "23:59:58", &time)) << c.input;
        EXPECT_EQ(text_of(time), c.text);
    }
    for (const char* text : noDates)
        EXPECT_FALSE(read_date_text(text, "23:59:58", &time)) << text;
    EXPECT_FALSE(read_date_text("             2010-01-01T12:00:00Z", "23:59:58", &time));
    EXPECT_FALSE(read_date_text(nullptr, "23:59:58", &time));
}
