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
        run("age-keygen -o " + theirs_ + " 2>/dev/null && age-keygen -y -o " + theirs_ + ".pub " + theirs_);
        EXPECT_EQ(recipient_of(theirs_) + '\n', test::read_text(theirs_ + ".pub"));
        dir_.write("ours",
                   test::text_of([](char* out, int room) { return SEAL_MakeIdentity(out, room, 0); }));
    }
    std::string recipient_of(const std::string& file) {
        return test::text_of([&](char* out, int room) { return SEAL_Recipient(out, room, file.c_str()); });
    }
    void seal(const char* recipients, const char* password, int options) {
        ASSERT_EQ(SEAL_File(sealed_.c_str(), in_.c_str(), recipients, password, options), 0)
            << test::last_error();
    }
    void open(const char* identities, const char* password) {
        ASSERT_EQ(SEAL_OpenFile(out_.c_str(), sealed_.c_str(), identities, password, 0), 0)
            << test::last_error();
    }
    void expect_content(const test::Bytes& content) {
        EXPECT_TRUE(test::read_file(out_) == content) << content.size();
        std::remove(out_.c_str());
    }

    const test::TempDir dir_;
    const std::string theirs_ = dir_.file("theirs"), ours_ = dir_.file("ours"), in_ = dir_.file("in"),
                      sealed_ = dir_.file("sealed"), out_ = dir_.file("out");
};

} // namespace

TEST_F(SealInterop, FilesForRecipients) {
    const std::string ours = recipient_of(ours_), list = theirs_ + ".pub;" + ours;
    for (const size_t size : {0u, 1u, 1000u, 65535u, 65536u, 65537u, 131072u, 3u * 65536 + 48}) {
        const test::Bytes content(size, static_cast<uint8_t>(size + 7));
        dir_.write("in", content);
        for (const bool armoured : {false, true}) {
            seal(list.c_str(), nullptr, armoured ? ZUL_SEAL_ARMOUR : 0);
            for (const std::string& key : {theirs_, ours_}) {
                run("age -d -i " + key + ' ' + sealed_ + " >" + out_); // -o makes no empty file
                expect_content(content);
            }
            run(std::string("age ") + (armoured ? "-a " : "") + "-R " + theirs_ + ".pub -r " + ours + " -o " +
                sealed_ + ' ' + in_);
            for (const std::string& key : {theirs_, ours_}) {
                open(key.c_str(), nullptr);
                expect_content(content);
            }
        }
    }
}

TEST_F(SealInterop, FilesUnderAPassword) {
    const test::Bytes content(70000, 'p');
    dir_.write("in", content);
    seal(nullptr, "correct-horse", ZUL_SEAL_ARMOUR);
    with_password("correct-horse", "-d -o " + out_ + ' ' + sealed_);
    expect_content(content);
    with_password("battery-staple", "-p -o " + sealed_ + ' ' + in_);
    open(nullptr, "battery-staple");
    expect_content(content);
}

TEST_F(SealInterop, Pipes) {
    const test::Bytes content(300001, 's');
    dir_.write("in", content);
    // with_pipe calls with one end of a pipe to a command as standard input or output.
    const auto with_pipe = [](int standard, const std::string& command, const auto& call) {
        const int old = dup(standard);
        FILE* pipe = popen(command.c_str(), standard == 0 ? "r" : "w");
        ASSERT_NE(pipe, nullptr);
        dup2(fileno(pipe), standard);
        EXPECT_EQ(call(), 0) << test::last_error();
        dup2(old, standard);
        close(old);
        EXPECT_EQ(pclose(pipe), 0) << command;
    };
    with_pipe(0, "age -R " + theirs_ + ".pub <" + in_,
              [&] { return SEAL_OpenFile(out_.c_str(), nullptr, theirs_.c_str(), nullptr, ZUL_SEAL_STDIN); });
    expect_content(content);
    with_pipe(1, "age -d -i " + theirs_ + " >" + out_, [&] {
        return SEAL_File("", in_.c_str(), (theirs_ + ".pub").c_str(), nullptr,
                         ZUL_SEAL_STDOUT | ZUL_SEAL_ARMOUR);
    });
    expect_content(content);
}
