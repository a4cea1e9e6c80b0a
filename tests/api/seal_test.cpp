#include <filesystem>

#include "support/module_calls.h"

namespace {

std::string identity_of_test() {
    return test::text_of([](char* out, int room) { return SEAL_MakeIdentity(out, room, 0); });
}
std::string recipient_of(const std::string& identity) {
    return test::text_of([&](char* out, int room) { return SEAL_Recipient(out, room, identity.c_str()); });
}

} // namespace

TEST(Seal, RoundTrips) {
    const test::TempDir dir;
    const std::string identity = identity_of_test(), other = identity_of_test(), in = dir.file("in"),
                      sealed = dir.file("sealed"), out = dir.file("out"),
                      keys = dir.write("keys", "\xEF\xBB\xBF# a comment" + std::string(300, '.') +
                                                   "\r\n\r\n" + other + "\r\n  " + identity),
                      recipients = dir.write("recipients", "#\n" + recipient_of(identity));
    for (const size_t size : {0u, 1u, 47u, 48u, 65535u, 65536u, 65537u, 3u * 65536, 4u * 65536 + 1}) {
        const test::Bytes content(size, static_cast<uint8_t>(size));
        dir.write("in", content);
        for (const int options : {0, ZUL_SEAL_ARMOUR}) {
            const std::string list = recipient_of(identity_of_test()) + " ; " + recipients + ";";
            ASSERT_EQ(SEAL_File(sealed.c_str(), in.c_str(), list.c_str(), nullptr, options), 0);
            for (const std::string& key : {identity, other + ';' + identity, keys}) {
                ASSERT_RESULT(SEAL_OpenFile(out.c_str(), sealed.c_str(), key.c_str(), "unused", 0), 0);
                ASSERT_TRUE(test::read_file(out) == content) << size;
            }
        }
    }
    ASSERT_EQ(SEAL_File(sealed.c_str(), in.c_str(), nullptr, "secret", 0), 0);
    ASSERT_EQ(SEAL_OpenFile(out.c_str(), sealed.c_str(), identity.c_str(), "secret", 0), 0);
    ASSERT_TRUE(test::read_file(out) == test::read_file(in));
}

TEST(Seal, KeysOfItsTexts) {
    // The pair is that of age-keygen -y.
    std::string identity = "AGE-SECRET-KEY-1WURK6ZNNRZJH60QKC9E9RVNXGH05CTUJA0QFJ2KPWLA628DE9S4QRH9ZLR";
    const std::string recipient = "age1lz54xk3d9lmqt68pgn257nh4cc338gs9tkajrlwa8lvu9x0tq9wsstg2m3";
    char text[100];
    EXPECT_EQ(recipient_of(identity), recipient);
    for (char& c : identity)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    EXPECT_EQ(recipient_of(identity), recipient);
    EXPECT_EQ(SEAL_MakeIdentity(nullptr, 0, 0), 74);
    EXPECT_RESULT(SEAL_MakeIdentity(text, 73, 0), -SHORT_BUF_ERROR);
    EXPECT_RESULT(SEAL_MakeIdentity(text, 74, 1), -BAD_FLAG_ERROR);
    EXPECT_NE(identity_of_test(), identity_of_test());
    EXPECT_EQ(SEAL_Recipient(nullptr, 0, identity_of_test().c_str()), 62);
    EXPECT_RESULT(SEAL_Recipient(text, 61, identity_of_test().c_str()), -SHORT_BUF_ERROR);
    EXPECT_RESULT(SEAL_Recipient(text, 62, ""), -BAD_PARAM_ERROR);
    EXPECT_RESULT(SEAL_Recipient(text, 62, recipient_of(identity_of_test()).c_str()), -BAD_KEY_ERROR);
}

TEST(Seal, RefusesWhatIsWrong) {
    const test::TempDir dir;
    const std::string identity = identity_of_test(), recipient = recipient_of(identity),
                      in = dir.write("in", std::string("content")), sealed = dir.file("sealed"),
                      out = dir.file("out"), other = identity_of_test(),
                      comments = dir.write("comments", std::string("# nothing\n")),
                      keyFile = dir.write("key", identity),
                      badLine = dir.write("bad", "# key:\n" + identity + '\n' + identity + "x\n"),
                      lowOrder = "age1" + std::string(52, 'q') + "5cu47z";
    std::string mixed = recipient;
    mixed[10] = 'Q';
    const auto seal = [&](const char* to, const char* password, int options = 0) {
        return SEAL_File(out.c_str(), in.c_str(), to, password, options);
    };
    const auto open = [&](const std::string& from, const char* keys, const char* password = nullptr) {
        return SEAL_OpenFile(out.c_str(), from.c_str(), keys, password, 0);
    };
    const char* const to = recipient.c_str();
    ASSERT_EQ(SEAL_File(sealed.c_str(), in.c_str(), to, nullptr, 0), 0);
    EXPECT_RESULT(seal(nullptr, nullptr), BAD_PARAM_ERROR);
    EXPECT_RESULT(seal("", ""), BAD_PARAM_ERROR);
    EXPECT_RESULT(seal(to, "password"), BAD_PARAM_ERROR);
    EXPECT_RESULT(seal(to, nullptr, 8), BAD_FLAG_ERROR);
    EXPECT_RESULT(seal(" ;; ", nullptr), NO_DATA_ERROR);
    EXPECT_RESULT(seal(comments.c_str(), nullptr), NO_DATA_ERROR);
    EXPECT_RESULT(seal(mixed.c_str(), nullptr), BAD_KEY_ERROR);
    EXPECT_FAILURE(seal((recipient + ';' + identity).c_str(), nullptr), BAD_KEY_ERROR,
                   "Entry 2 of the list is no recipient");
    EXPECT_FAILURE(seal(lowOrder.c_str(), nullptr), BAD_KEY_ERROR, "Recipient 1 is a key of small order");
    EXPECT_RESULT(SEAL_File(out.c_str(), nullptr, to, nullptr, 0), BAD_PARAM_ERROR);
    EXPECT_RESULT(SEAL_File("", in.c_str(), to, nullptr, 0), BAD_PARAM_ERROR);
    EXPECT_RESULT(SEAL_File(in.c_str(), in.c_str(), to, nullptr, 0), BAD_PARAM_ERROR);
    EXPECT_RESULT(SEAL_File(out.c_str(), dir.path().c_str(), to, nullptr, 0), OPEN_ERROR);
    EXPECT_RESULT(SEAL_File((out + "/x").c_str(), in.c_str(), to, nullptr, 0), CREATE_ERROR);
    EXPECT_RESULT(open(sealed, nullptr), BAD_PARAM_ERROR);
    EXPECT_RESULT(open(in, identity.c_str()), BAD_FORMAT_ERROR);
    EXPECT_RESULT(open(sealed, other.c_str()), NO_MATCH_ERROR);
    EXPECT_RESULT(open(sealed, nullptr, "password"), NO_MATCH_ERROR);
    EXPECT_FAILURE(open(sealed, badLine.c_str()), BAD_KEY_ERROR,
                   "Line 3 of file '" + badLine + "' is no identity");
    std::string many = recipient;
    for (int i = 1; i < 20000; i++)
        many += '\n' + recipient;
    const std::string most = dir.write("most", many);
    EXPECT_FAILURE(seal((recipient + ';' + most).c_str(), nullptr), OUT_OF_RANGE_ERROR,
                   "More than 20000 keys");
    EXPECT_FAILURE(seal((most + ';' + recipient).c_str(), nullptr), OUT_OF_RANGE_ERROR,
                   "More than 20000 keys");
    const std::string blanks(300, ' ');
    for (const std::string& line : {identity + blanks + 'x', blanks + 'x', blanks + identity}) {
        dir.write("bad", identity + '\n' + line);
        EXPECT_RESULT(open(sealed, badLine.c_str()), BAD_KEY_ERROR);
    }
    // A mistyped identity looks like a name, and arguments get mixed up.
    for (const std::string& entry : {identity.substr(1), std::string("my secret password")})
        EXPECT_FAILURE(open(sealed, (keyFile + ';' + entry).c_str()), OPEN_ERROR,
                       "Entry 2 of the identity list is no identity, and no file of that name opens");
    for (const std::string& name : {identity, "my-secret-key-1" + identity.substr(16)})
        EXPECT_FAILURE(open(name, keyFile.c_str()), OPEN_ERROR, "Cannot open file '...'");
    EXPECT_FAILURE(SEAL_OpenFile((in + '/' + identity).c_str(), sealed.c_str(), keyFile.c_str(), nullptr, 0),
                   CREATE_ERROR, "Cannot create file '...'");
    EXPECT_FAILURE(SEAL_OpenFile(keyFile.c_str(), sealed.c_str(), keyFile.c_str(), nullptr, 0),
                   BAD_PARAM_ERROR, "Output is file '" + keyFile + "' of the identity list");
    EXPECT_RESULT(SEAL_File(keyFile.c_str(), in.c_str(), (recipient + ';' + keyFile).c_str(), nullptr, 0),
                  BAD_PARAM_ERROR);
    EXPECT_EQ(test::read_text(keyFile), identity);
    EXPECT_FALSE(test::file_exists(out));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()), {}), 6);
}
