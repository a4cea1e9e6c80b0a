#include <cstdio>
#include <cstdlib>
#include <unistd.h>

#include "support/module_calls.h"

// The peers are `age` and `age-keygen`.

namespace {

void run(const std::string& command) {
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
}

// with_password runs age in a terminal of its own, where it asks for the password: once to open, twice to
// seal.
void with_password(const std::string& password, const std::string& arguments) {
    const std::string script = "import os, pty, sys\n"
                               "pid, terminal = pty.fork()\n"
                               "if pid == 0:\n"
                               "    os.execvp(sys.argv[2], sys.argv[2:])\n"
                               "try:\n"
                               "    while text := os.read(terminal, 1000):\n"
                               "        if text.rstrip().endswith(b\":\"):\n"
                               "            os.write(terminal, sys.argv[1].encode() + b\"\\n\")\n"
                               "except OSError:\n"
                               "    pass\n"
                               "sys.exit(os.waitpid(pid, 0)[1] != 0)\n";
    run("python3 -c '" + script + "' " + password + " age " + arguments);
}

class SealInterop : public testing::Test {
  protected:
    void SetUp() override {
        for (const std::string& key : {one_, two_}) {
            run("age-keygen -o " + key + " 2>/dev/null && age-keygen -y -o " + key + ".pub " + key);
            std::string made =
                test::text_of([&](char* out, int room) { return SEAL_Recipient(out, room, key.c_str()); });
            EXPECT_EQ(made + '\n', test::read_text(key + ".pub"));
        }
    }
    void expect_content(const test::Bytes& content) {
        EXPECT_TRUE(test::read_file(out_) == content) << content.size();
        std::remove(out_.c_str());
    }

    const test::TempDir dir_;
    const std::string one_ = dir_.file("one"), two_ = dir_.file("two"), in_ = dir_.file("in"),
                      sealed_ = dir_.file("sealed"), out_ = dir_.file("out");
};

} // namespace

TEST_F(SealInterop, FilesForRecipients) {
    const std::string own = dir_.file("own");
    const std::string identity =
        test::text_of([](char* out, int room) { return SEAL_MakeIdentity(out, room, 0); });
    dir_.write("own", identity);
    const std::string ownRecipient =
        test::text_of([&](char* out, int room) { return SEAL_Recipient(out, room, own.c_str()); });
    const std::string list = one_ + ".pub;" + ownRecipient + ';' + two_ + ".pub";
    for (const size_t size : {0u, 1u, 1000u, 65535u, 65536u, 65537u, 131072u, 3u * 65536 + 48}) {
        const test::Bytes content(size, static_cast<uint8_t>(size + 7));
        dir_.write("in", content);
        for (const bool armoured : {false, true}) {
            ASSERT_EQ(SEAL_File(sealed_.c_str(), in_.c_str(), list.c_str(), nullptr,
                                armoured ? ZUL_SEAL_ARMOUR : 0),
                      0)
                << test::last_error();
            for (const std::string& key : {one_, two_, own}) {
                run("age -d -i " + key + ' ' + sealed_ + " >" + out_); // -o makes no empty file
                expect_content(content);
            }
            run(std::string("age ") + (armoured ? "-a " : "") + "-R " + one_ + ".pub -r " + ownRecipient +
                " -R " + two_ + ".pub -o " + sealed_ + ' ' + in_);
            for (const std::string& key : {one_, two_, identity}) {
                ASSERT_EQ(SEAL_OpenFile(out_.c_str(), sealed_.c_str(), key.c_str(), nullptr, 0), 0)
                    << test::last_error();
                expect_content(content);
            }
        }
    }
}

TEST_F(SealInterop, FilesUnderAPassword) {
    const test::Bytes content(70000, 'p');
    dir_.write("in", content);
    ASSERT_EQ(SEAL_File(sealed_.c_str(), in_.c_str(), nullptr, "correct-horse", ZUL_SEAL_ARMOUR), 0);
    with_password("correct-horse", "-d -o " + out_ + ' ' + sealed_);
    expect_content(content);
    with_password("battery-staple", "-p -o " + sealed_ + ' ' + in_);
    ASSERT_EQ(SEAL_OpenFile(out_.c_str(), sealed_.c_str(), nullptr, "battery-staple", 0), 0)
        << test::last_error();
    expect_content(content);
}

TEST_F(SealInterop, Pipes) {
    const test::Bytes content(300001, 's');
    dir_.write("in", content);
    const int standard[] = {dup(0), dup(1)};
    FILE* sealing = popen(("age -R " + one_ + ".pub <" + in_).c_str(), "r");
    ASSERT_NE(sealing, nullptr);
    dup2(fileno(sealing), 0);
    const int opened = SEAL_OpenFile(out_.c_str(), nullptr, one_.c_str(), nullptr, ZUL_SEAL_STDIN);
    dup2(standard[0], 0);
    EXPECT_EQ(pclose(sealing), 0);
    EXPECT_EQ(opened, 0) << test::last_error();
    expect_content(content);

    FILE* opening = popen(("age -d -i " + one_ + " >" + out_).c_str(), "w");
    ASSERT_NE(opening, nullptr);
    dup2(fileno(opening), 1);
    const int sealed =
        SEAL_File(nullptr, in_.c_str(), (one_ + ".pub").c_str(), nullptr, ZUL_SEAL_STDOUT | ZUL_SEAL_ARMOUR);
    dup2(standard[1], 1);
    EXPECT_EQ(pclose(opening), 0);
    EXPECT_EQ(sealed, 0) << test::last_error();
    expect_content(content);
    close(standard[0]);
    close(standard[1]);
}
