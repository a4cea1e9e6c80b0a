#pragma once
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "support/temp_dir.h"
#include "support/vectors.h"
#include "zulcore.h"

namespace test {

// Arguments of openssl genpkey.
constexpr char kP256[] = "-algorithm EC -pkeyopt ec_paramgen_curve:P-256";
constexpr char kRsa2048[] = "-algorithm RSA -pkeyopt rsa_keygen_bits:2048";

// ShellTest calls other programs in a folder of its own.
class ShellTest : public testing::Test {
  protected:
    bool try_run(const std::string& command) const {
        return std::system(("cd '" + dir.path() + "' && { " + command + "\n} >log 2>&1").c_str()) == 0;
    }
    void run(const std::string& command) const {
        ASSERT_TRUE(try_run(command)) << command << "\n" << read_text(file("log"));
    }
    // said is what a command writes.
    std::string said(const std::string& command) const {
        run("{ " + command + " ; } >said 2>&1");
        return read_text(file("said"));
    }
    // shows checks that a command writes all of these texts and none of those.
    void shows(const std::string& command, const std::vector<std::string>& texts,
               const std::vector<std::string>& others = {}) const {
        const std::string output = said(command);
        for (const std::string& text : texts)
            EXPECT_NE(output.find(text), std::string::npos) << command << ": no " << text << "\n" << output;
        for (const std::string& text : others)
            EXPECT_EQ(output.find(text), std::string::npos) << command << ": " << text << "\n" << output;
    }
    // done checks a status.
    void done(int status) const {
        std::string why(511, '\0');
        ZUL_LastError(why.data(), 511);
        ASSERT_EQ(status, 0) << why.c_str();
    }
    void genpkey(const std::string& name, const std::string& how) const {
        run("openssl genpkey " + how + " -out " + name + ".key");
    }
    std::string file(const std::string& name) const { return dir.file(name); }
    std::vector<uint8_t> read(const std::string& name) const { return read_file(file(name)); }

    TempDir dir;
};

} // namespace test
