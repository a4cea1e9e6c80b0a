#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <set>
#include <sstream>

#include "support/temp_dir.h"
#include "support/vectors.h"
#include "zulcore.h"

// NIST Public Key Interoperability Test Suite, 1.0.1.
using namespace test;

namespace {

using Words = std::vector<std::string>;

std::string trimmed(const std::string& text) {
    const size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}
Words split(const std::string& text, char separator) {
    Words words;
    std::istringstream in(text);
    for (std::string word; std::getline(in, word, separator);)
        if (word = trimmed(word); !word.empty())
            words.push_back(word);
    return words;
}

struct PkitsTest {
    std::string number, name;
    bool isValid = false;
    Words certificates, crls;
    std::map<std::string, std::string> settings;
};

std::vector<PkitsTest> read_tests() {
    std::vector<PkitsTest> tests;
    std::ifstream in(data_path("pkits/tests.txt"), std::ios::binary);
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with('#'))
            continue;
        Words fields;
        std::istringstream row(line);
        for (std::string field; std::getline(row, field, '|');)
            fields.push_back(trimmed(field));
        if (fields.size() < 5) {
            ADD_FAILURE() << line;
            continue;
        }
        PkitsTest test{
            fields[0], fields[1], fields[2] == "valid", split(fields[3], ' '), split(fields[4], ' '), {}};
        for (const std::string& setting : split(fields.size() > 5 ? fields[5] : "", ';'))
            test.settings[setting.substr(0, setting.find('='))] = setting.substr(setting.find('=') + 1);
        tests.push_back(test);
    }
    return tests;
}

// policies_of gives the object identifiers of the suite's names for policies.
std::set<std::string> policies_of(const std::string& names) {
    const std::string prefix = "NIST-test-policy-";
    std::set<std::string> policies;
    for (const std::string& name : split(names, ','))
        policies.insert(name == "anyPolicy" ? "2.5.29.32.0"
                                            : "2.16.840.1.101.3.2.1.48." + name.substr(prefix.size()));
    return policies;
}

std::string conditions_of(const PkitsTest& test) {
    std::string text = "time=2020-01-01;revocation=all";
    const std::map<std::string, std::string> flags = {{"InitialExplicitPolicy", "explicitPolicy"},
                                                      {"InitialPolicyMappingInhibit", "inhibitMapping"},
                                                      {"InitialInhibitAnyPolicy", "inhibitAnyPolicy"}};
    for (const auto& [key, value] : test.settings) {
        if (flags.count(key) > 0)
            text += ";" + flags.at(key) + "=" + value;
        else if (key == "InitialPolicySet")
            for (const std::string& policy : policies_of(value))
                text += ";policy=" + policy;
        else
            EXPECT_EQ(key, "UserConstrainedPolicySet");
    }
    return text;
}

std::string files(const Words& names, const std::string& folder, const char* suffix) {
    std::string list;
    for (const std::string& name : names)
        list += data_path("pkits/" + folder + "/" + name + suffix) + ";";
    return list;
}

struct Result {
    int code = 0;
    std::set<std::string> policies;
};
Result check(const PkitsTest& test, const std::string& others) {
    std::string report(50000, '\0');
    Result result;
    result.code =
        CERT_CheckPath(report.data(), 49999, files({test.certificates.back()}, "certs", ".crt").c_str(),
                       others.c_str(), files({test.certificates.front()}, "certs", ".crt").c_str(),
                       files(test.crls, "crls", ".crl").c_str(), conditions_of(test).c_str(), 0);
    std::istringstream lines(report);
    for (std::string line; std::getline(lines, line);) {
        const std::string key = "  validPolicies ";
        if (!line.starts_with(key))
            continue;
        const Words words = split(line.substr(key.size()), ',');
        result.policies = {words.begin(), words.end()};
    }
    return result;
}

void expect_result(const PkitsTest& test, const std::string& others) {
    const Result result = check(test, others);
    EXPECT_EQ(result.code == 0, test.isValid) << test.number << " " << test.name << ": " << result.code;
    const auto set = test.settings.find("UserConstrainedPolicySet");
    const std::string expected = set == test.settings.end() ? "NIST-test-policy-1" : set->second;
    if (test.isValid || set != test.settings.end()) {
        EXPECT_EQ(result.policies, policies_of(expected)) << test.number << " " << test.name;
    }
}

} // namespace

TEST(Pkits, GivesTheExpectedResults) {
    const std::vector<PkitsTest> tests = read_tests();
    std::map<std::string, int> sections;
    for (const PkitsTest& test : tests) {
        expect_result(test,
                      files({test.certificates.begin() + 1, test.certificates.end() - 1}, "certs", ".crt"));
        sections[test.number.substr(0, test.number.find('.', 2))]++;
    }
    EXPECT_EQ(tests.size(), 249U);
    for (const auto& [section, count] : sections)
        RecordProperty("section_" + section, count);
    EXPECT_EQ(sections.size(), 16U);
}

// All certificates of the suite at once, in any order: the path has to be found among them.
TEST(Pkits, FindsThePathsAmongAllCertificates) {
    const std::vector<PkitsTest> tests = read_tests();
    std::set<std::string> names;
    for (const PkitsTest& test : tests)
        names.insert(test.certificates.begin(), test.certificates.end());
    Words order(names.begin(), names.end());
    EXPECT_EQ(order.size(), 405U);
    std::shuffle(order.begin(), order.end(), std::mt19937(1));
    const TempDir dir;
    std::vector<uint8_t> all;
    for (const std::string& name : order) {
        const std::vector<uint8_t> der = read_file(data_path("pkits/certs/" + name + ".crt"));
        all.insert(all.end(), der.begin(), der.end());
    }
    const std::string others = dir.write("all", all);
    for (const PkitsTest& test : tests)
        expect_result(test, others);
}
