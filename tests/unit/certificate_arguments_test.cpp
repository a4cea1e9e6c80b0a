#include "cms/message/certificate_arguments.h"
#include "support/unit_test.h"

using namespace zul;

TEST(CertificateArguments, AreTakenApart) {
    const struct {
        const char* list;
        const char* items; // joined by "|"
    } cases[] = {
        {" \t\r\n", ""},
        {"a;", "a"},
        {" a b ; \n", "a b"},
        {";", "|"},
        {";a;;b", "|a||b"},
        {"a ;; ", "a||"},
        {"1;2;3;4;5;6;7;8;9;10;11", "1|2|3|4|5|6|7|8|9|10"},
        {";;;;;;;;;;;;", "||||||||||"},
    };
    for (const auto& c : cases) {
        const CertificateArguments arguments(c.list);
        std::string items;
        for (int i = 0; i < arguments.count(); i++)
            items += (i == 0 ? "" : "|") + std::string(arguments[i]);
        const bool endsEmpty = arguments.count() > 0 && *arguments[arguments.count() - 1] == '\0';
        EXPECT_EQ(items + (endsEmpty ? "|" : ""), c.items) << c.list;
    }
}
