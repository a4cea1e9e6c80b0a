#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "cipher/chacha20_poly1305.h"
#include "hash/hmac.h"
#include "seal/bech32.h"
#include "seal/header_open.h"
#include "seal/stanza_scrypt.h"
#include "seal/stanza_x25519.h"
#include "support/temp_dir.h"
#include "zulcore.h"

namespace zul {
namespace {

TEST(Bech32, TakesTheVectorsOfItsStandard) {
    const auto is_good = [](const std::string& text) {
        Bech32Parts parts;
        return bech32_split(parts, text);
    };
    // BIP 173, "Test vectors". The last but one of the good ones has 90 characters.
    for (const std::string& text :
         {std::string("A12UEL5L"), std::string("a12uel5l"),
          "an83characterlonghumanreadablepartthatcontainsthenumber1andtheexcludedcharactersbio1" +
              std::string("tt5tgs"),
          std::string("abcdef1qpzry9x8gf2tvdw0s3jn54khce6mua7lmqqqxw"),
          "11" + std::string(82, 'q') + "c8247j",
          std::string("split1checkupstagehandshakeupstreamerranterredcaperred2y9e3w"),
          std::string("?1ezyfcl")})
        EXPECT_TRUE(is_good(text)) << text;
    for (const std::string& text :
         {std::string("\x20") + "1nwldj5", std::string("\x7F") + "1axkwrx", std::string("\x80") + "1eym55h",
          "an84characterslonghumanreadablepartthatcontainsthenumber1andtheexcludedcharactersbio1" +
              std::string("569pvx"),
          std::string("pzry9x0s0muk"), std::string("1pzry9x0s0muk"), std::string("x1b4n0q5v"),
          std::string("li1dgmt3"), "de1lg7wt" + std::string("\xFF"), std::string("A1G7SGD8"),
          std::string("10a06t8"), std::string("1qzzfhee"), std::string("a12UEL5L"), std::string()})
        EXPECT_FALSE(is_good(text)) << text;
}

TEST(Bech32, KeysHaveOnePrefixAndOneLength) {
    uint8_t key[kBech32Key], again[kBech32Key];
    for (size_t i = 0; i < sizeof key; i++)
        key[i] = static_cast<uint8_t>(37 * i + 200);
    char lower[100], upper[100];
    bech32_write(lower, "age", key, false);
    bech32_write(upper, "age", key, true);
    for (std::string text : {std::string(lower), std::string(upper)}) {
        EXPECT_TRUE(bech32_read(again, "age", text) && memcmp(key, again, sizeof key) == 0) << text;
        EXPECT_FALSE(bech32_read(again, "agf", text));
        text.back() = text.back() == 'q' ? 'p' : 'q';
        EXPECT_FALSE(bech32_read(again, "age", text));
    }
    // A key that ends in ones where the padding has zeros: the checksum is right, the text is not canonical.
    EXPECT_FALSE(bech32_read(again, "age", "age1" + std::string(51, 'q') + "pfwgqrs"));
}

// A file for one identity, whose parts the tests change.
class SealFormat : public testing::Test {
  protected:
    void SetUp() override {
        char text[100];
        ASSERT_EQ(SEAL_MakeIdentity(text, 99, 0), 74);
        identity_ = text;
        ASSERT_EQ(SEAL_Recipient(text, 99, identity_.c_str()), 62);
        recipient_ = text;
        content_ = std::string(131077, 'x');
        seal(0);
        header_ = sealed_.substr(0, sealed_.find("\n---") + 1);
        payload_ = sealed_.substr(sealed_.find('\n', header_.size()) + 1);
        share_ = header_.substr(header_.find("X25519 ") + 7, 43);
        body_ = header_.substr(header_.size() - 44, 43);
        memcpy(fileKey_.data(), "a file key of 16", 16);
    }

    void seal(int options) {
        const std::string in = dir_.write("in", content_), out = dir_.file("sealed");
        ASSERT_EQ(SEAL_File(out.c_str(), in.c_str(), recipient_.c_str(), nullptr, options), 0);
        sealed_ = test::read_text(out);
    }

    // open gives the code. What was there has to stay after a failure.
    int open(const std::string& file, const char* password = nullptr) {
        const std::string in = dir_.write("in", file), out = dir_.write("out", "old");
        const int code = SEAL_OpenFile(out.c_str(), in.c_str(), identity_.c_str(), password, 0);
        EXPECT_TRUE(test::read_text(out) == (code == 0 ? content_ : "old"));
        return code;
    }

    // with_mac adds the line of the MAC for a file key, which is found in the header where it can be.
    std::string with_mac(const std::string& stanzas) {
        const std::string text = stanzas + "---";
        AgeKey key;
        age_derive(key, fileKey_.data(), fileKey_.size(), nullptr, 0, "header");
        uint8_t mac[kAgeMac];
        char encoded[44];
        EXPECT_EQ(
            hmac_bytes(mac, sizeof mac, text.data(), text.size(), key.data(), key.size(), kDigestSha256),
            int{sizeof mac});
        age_base64_write(encoded, mac, sizeof mac);
        return text + ' ' + encoded + '\n';
    }

    // own_file makes a file of chunks that are sealed as last ones or not.
    struct Chunk {
        std::string text;
        bool isLast;
    };
    std::string own_file(const std::vector<Chunk>& chunks) {
        AgeHeader header;
        uint8_t key[32];
        EXPECT_TRUE(bech32_read(key, kRecipientPrefix, recipient_));
        EXPECT_EQ(x25519_stanza_add(header, key, fileKey_), 0);
        header.finish(fileKey_);
        std::string file(header.text().text(), header.text().size());
        const std::string nonce = "sixteen  letters";
        file += nonce;
        AgeKey payloadKey;
        age_derive(payloadKey, fileKey_.data(), fileKey_.size(), nonce.data(), nonce.size(), "payload");
        uint8_t counter[12]{};
        for (const Chunk& chunk : chunks) {
            counter[11] = chunk.isLast;
            std::vector<uint8_t> out(chunk.text.size() + 16);
            chacha20_poly1305_encrypt(out.data(), out.data() + chunk.text.size(), payloadKey.data(), counter,
                                      nullptr, 0, reinterpret_cast<const uint8_t*>(chunk.text.data()),
                                      chunk.text.size());
            counter[10]++;
            file.append(out.begin(), out.end());
        }
        return file;
    }

    const test::TempDir dir_;
    std::string identity_, recipient_, content_, sealed_, header_, payload_, share_, body_;
    FileKey fileKey_;
};

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    const size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return text.replace(at, from.size(), to);
}

// The last character of the base64 of 32 bytes has two unused bits.
std::string not_canonical(std::string text) {
    text.back()++;
    return text;
}

TEST_F(SealFormat, HeadersAreStrict) {
    // The real file key, so that the MAC fits and the change alone decides.
    AgeHeader header;
    FileInput input(File(dir_.write("whole", sealed_).c_str(), platform::OpenMode::read), "");
    AgeKeys keys;
    ASSERT_EQ(header.read(input), 0);
    ASSERT_EQ(keys.read(identity_.c_str(), AgeKeyKind::identity), 0);
    ASSERT_EQ(header_open(fileKey_, header, keys, ""), 0);

    const std::string line(64, 'A'), own = "-> X25519 " + share_ + '\n' + body_ + '\n';
    const struct {
        std::string from, to;
        int code;
    } rows[] = {
        {"v1\n", "v1\n", 0},
        {"v1\n", "v2\n", BAD_FORMAT_ERROR},
        {"v1\n", "v1\r\n", BAD_FORMAT_ERROR},
        {"age-", "\nage-", BAD_FORMAT_ERROR},
        {own, "", BAD_FORMAT_ERROR},
        {own, own + own, 0},
        {own, own + "-> g !\"~\n\n", 0},
        {own, "-> g\n" + line + "\n\n" + own, 0},
        {own, "-> g x\n" + line + '\n' + line + "\nAAAA\n" + own, 0},
        {own, own + "-> g\n" + line + '\n', BAD_FORMAT_ERROR},
        {own, own + "-> g\n", BAD_FORMAT_ERROR},
        {own, own + "-> g\n" + line + "A\n\n", BAD_FORMAT_ERROR},
        {own, own + "-> g\nAAA\nAAA\n", BAD_FORMAT_ERROR},
        {own, own + "-> g\nAAB\n", BAD_FORMAT_ERROR},
        {own, own + "-> g\nA\n", BAD_FORMAT_ERROR},
        {own, own + "-> g\nAA==\n", BAD_FORMAT_ERROR},
        {own, own + "->\n\n", BAD_FORMAT_ERROR},
        {own, own + "-> \n\n", BAD_FORMAT_ERROR},
        {own, own + "-> g \n\n", BAD_FORMAT_ERROR},
        {own, own + "-> g \x7F\n\n", BAD_FORMAT_ERROR},
        {own, own + "-> g \xC3\xA9\n\n", BAD_FORMAT_ERROR},
        {own, own + "-> g\tx\n\n", BAD_FORMAT_ERROR},
        {own, own + "\n", BAD_FORMAT_ERROR},
        {"-> X", "->X", BAD_FORMAT_ERROR},
        {"-> X", "->  X", BAD_FORMAT_ERROR},
        {"-> X", "-- X", BAD_FORMAT_ERROR},
        {"-> X", "-> x", NO_MATCH_ERROR},
        {"19 ", "19  ", BAD_FORMAT_ERROR},
        {"19 ", "19 ! ", BAD_FORMAT_ERROR},
        {share_, "", BAD_FORMAT_ERROR},
        {share_, share_ + " ", BAD_FORMAT_ERROR},
        {share_, share_ + " x", BAD_FORMAT_ERROR},
        {share_, share_ + '\r', BAD_FORMAT_ERROR},
        {share_, share_ + "A", BAD_FORMAT_ERROR},
        {share_, share_.substr(1), BAD_FORMAT_ERROR},
        {share_, not_canonical(share_), BAD_FORMAT_ERROR},
        {share_, std::string(43, 'A'), BAD_FORMAT_ERROR}, // of small order
        {body_, body_.substr(3), BAD_FORMAT_ERROR},
        {body_, "AAAA" + body_, BAD_FORMAT_ERROR},
        {body_, not_canonical(body_), BAD_FORMAT_ERROR},
        {body_, body_ + '\r', BAD_FORMAT_ERROR},
        {own, own + "-> X25519 AAAA\n\n", BAD_FORMAT_ERROR},
        {own, own + "-> scrypt " + std::string(22, 'A') + " 10\n" + body_ + '\n', BAD_FORMAT_ERROR},
    };
    for (const auto& row : rows)
        EXPECT_EQ(open(with_mac(replaced(header_, row.from, row.to)) + payload_), row.code)
            << row.from << " -> " << row.to;

    const std::string mac = with_mac(header_).substr(header_.size() + 4, 43);
    std::string other = mac;
    other[7] = other[7] == 'A' ? 'B' : 'A';
    const struct {
        std::string end;
        int code;
    } ends[] = {{"--- " + mac + '\n', 0},
                {"--- " + other + '\n', DECRYPT_ERROR},
                {"--- " + not_canonical(mac) + '\n', BAD_FORMAT_ERROR},
                {"---  " + mac + '\n', BAD_FORMAT_ERROR},
                {"---" + mac + '\n', BAD_FORMAT_ERROR},
                {"--- " + mac + " \n", BAD_FORMAT_ERROR},
                {"--- " + mac + "\r\n", BAD_FORMAT_ERROR},
                {"--- " + mac.substr(1) + '\n', BAD_FORMAT_ERROR},
                {"---\n", BAD_FORMAT_ERROR},
                {"", BAD_FORMAT_ERROR}};
    for (const auto& end : ends)
        EXPECT_EQ(open(header_ + end.end + payload_), end.code) << end.end;
    for (const size_t size : {size_t{0}, size_t{10}, header_.size() + 10, header_.size() + 48 + 15})
        EXPECT_EQ(open(sealed_.substr(0, size)), BAD_FORMAT_ERROR) << size;
    const std::string many = header_ + "-> g\n" + std::string(3 << 20, 'A');
    EXPECT_EQ(open(many), BAD_FORMAT_ERROR);
}

TEST_F(SealFormat, ScryptStandsAloneWithAPlainFactor) {
    AgeHeader header;
    ASSERT_EQ(scrypt_stanza_add(header, "secret", fileKey_, 2), 0);
    const std::string stanza(header.text().text(), header.text().size());
    const std::string rest = own_file({{content_.substr(0, 65536), false},
                                       {content_.substr(0, 65536), false},
                                       {content_.substr(131072), true}});
    payload_ = rest.substr(rest.find('\n', rest.find("---")) + 1);
    const size_t first = stanza.find("-> ");
    const std::string salt = stanza.substr(first + 10, 22);
    const struct {
        std::string from, to;
        int code;
    } rows[] = {{" 2\n", " 2\n", 0},
                {" 2\n", " 3\n", DECRYPT_ERROR},
                {" 2\n", " 23\n", OUT_OF_RANGE_ERROR},
                {" 2\n", " 99999999999999999999\n", OUT_OF_RANGE_ERROR},
                {" 2\n", " 0\n", BAD_FORMAT_ERROR},
                {" 2\n", " 02\n", BAD_FORMAT_ERROR},
                {" 2\n", " +2\n", BAD_FORMAT_ERROR},
                {" 2\n", " -2\n", BAD_FORMAT_ERROR},
                {" 2\n", " 2x\n", BAD_FORMAT_ERROR},
                {" 2\n", " 0x2\n", BAD_FORMAT_ERROR},
                {" 2\n", "\n", BAD_FORMAT_ERROR},
                {" 2\n", " 2 2\n", BAD_FORMAT_ERROR},
                {salt, salt.substr(1), BAD_FORMAT_ERROR},
                {salt, salt + "A", BAD_FORMAT_ERROR},
                {salt, not_canonical(salt), BAD_FORMAT_ERROR},
                {"scrypt", "Scrypt", NO_MATCH_ERROR},
                {"\n->", "\n-> g\n\n->", BAD_FORMAT_ERROR},
                {"\n->", '\n' + stanza.substr(first) + "->", BAD_FORMAT_ERROR}};
    for (const auto& row : rows)
        EXPECT_EQ(open(with_mac(replaced(stanza, row.from, row.to)) + payload_, "secret"), row.code)
            << row.from << " -> " << row.to;
    EXPECT_EQ(open(with_mac(stanza) + payload_, "Secret"), DECRYPT_ERROR);
    EXPECT_EQ(open(with_mac(stanza) + payload_), NO_MATCH_ERROR);
}

TEST_F(SealFormat, NoChangeOfThePayloadIsTaken) {
    const std::string full(65536, 'c');
    const struct {
        std::vector<Chunk> chunks;
        int code;
    } rows[] = {{{{"", true}}, 0},
                {{{full, true}}, 0},
                {{{full, false}, {full, true}}, 0},
                {{{full, false}, {"end", true}}, 0},
                {{}, DECRYPT_ERROR},
                {{{"", false}}, DECRYPT_ERROR},
                {{{full, false}}, DECRYPT_ERROR},
                {{{full, false}, {"", true}}, DECRYPT_ERROR},
                {{{full, false}, {"end", false}}, DECRYPT_ERROR},
                {{{full, true}, {"end", true}}, DECRYPT_ERROR},
                {{{full, true}, {full, true}}, DECRYPT_ERROR},
                {{{"short", false}, {"end", true}}, DECRYPT_ERROR}};
    for (const auto& row : rows) {
        content_.clear();
        for (const Chunk& chunk : row.chunks)
            content_ += chunk.text;
        EXPECT_EQ(open(own_file(row.chunks)), row.code) << &row - rows;
        EXPECT_EQ(open(own_file(row.chunks) + 'x'), DECRYPT_ERROR) << &row - rows;
    }
    content_ = std::string(131077, 'x');
    const size_t chunk = 65536 + 16, begin = sealed_.size() - payload_.size();
    for (const size_t at : {size_t{0}, size_t{16}, size_t{16} + chunk, size_t{16} + 2 * chunk,
                            size_t{15} + chunk, payload_.size() - 1}) {
        std::string changed = sealed_;
        changed[begin + at] ^= 1;
        EXPECT_EQ(open(changed), DECRYPT_ERROR) << at;
        if (at >= 16) {
            EXPECT_EQ(open(sealed_.substr(0, begin + at)), DECRYPT_ERROR) << at;
        }
    }
}

TEST_F(SealFormat, ArmourIsStrict) {
    content_ = "short text";
    seal(ZUL_SEAL_ARMOUR);
    const std::string begin = "-----BEGIN AGE ENCRYPTED FILE-----\n",
                      end = "-----END AGE ENCRYPTED FILE-----\n", blanks = " \t\r\n",
                      line2 = sealed_.substr(begin.size() + 65, 65),
                      last = sealed_.substr(sealed_.rfind('\n', sealed_.find(end) - 2) + 1);
    std::string crlf;
    for (const char c : sealed_)
        crlf += c == '\n' ? std::string("\r\n") : std::string(1, c);
    const std::string good[] = {sealed_,
                                crlf,
                                sealed_.substr(0, sealed_.size() - 1),
                                blanks + "\n" + sealed_,
                                sealed_ + blanks + "  ",
                                std::string(1024, '\n') + sealed_,
                                sealed_ + std::string(1024, ' ')};
    for (const std::string& text : good)
        EXPECT_EQ(open(text), 0) << text.substr(0, 50);
    const std::string bad[] = {
        std::string(1025, '\n') + sealed_,
        sealed_ + std::string(1025, ' '),
        "x\n" + sealed_,
        ' ' + sealed_,
        sealed_ + "x",
        sealed_ + sealed_,
        begin + sealed_,
        begin + end,
        replaced(sealed_, begin, begin + '\n'),
        replaced(sealed_, begin, begin + "Comment: x\n\n"),
        replaced(sealed_, "BEGIN", "Begin"),
        replaced(sealed_, "BEGIN AGE", "BEGIN"),
        replaced(sealed_, begin, begin.substr(0, begin.size() - 1) + " \n"),
        replaced(sealed_, end, ""),
        replaced(sealed_, end, '\n' + end),
        replaced(sealed_, end, "=AAAA\n" + end),
        replaced(sealed_, end, "-----END MESSAGE-----\n"),
        replaced(sealed_, line2, '\n' + line2),
        replaced(sealed_, line2, ' ' + line2),
        replaced(sealed_, line2, line2.substr(0, 64) + " \n"),
        replaced(sealed_, line2, line2.substr(0, 60) + '\n' + line2.substr(60)),
        replaced(sealed_, line2, line2.substr(0, 64) + "AAAA\n"),
        replaced(sealed_, line2, '*' + line2.substr(1)),
        replaced(sealed_, line2, line2.substr(0, 64) + last),
        replaced(sealed_, last, 'A' + last),
        replaced(sealed_, last, "AB==\n" + end),
        replaced(sealed_, last, "A===\n" + end),
        replaced(sealed_, last, "=\n" + end),
    };
    for (const std::string& text : bad)
        EXPECT_EQ(open(text), BAD_FORMAT_ERROR) << &text - bad;
}

} // namespace
} // namespace zul
