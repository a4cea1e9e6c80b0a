#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

#include "cipher/chacha20_poly1305.h"
#include "hash/hmac.h"
#include "seal/bech32.h"
#include "seal/header_open.h"
#include "seal/stanza_scrypt.h"
#include "seal/stanza_x25519.h"
#include "support/unit_test.h"
#include "zulcore.h"

namespace zul {
namespace {

TEST(Bech32, TakesTheVectorsOfItsStandard) {
    // BIP 173, "Test vectors".
    const std::string tail =
        "characterlonghumanreadablepartthatcontainsthenumber1andtheexcludedcharactersbio1";
    std::istringstream good("A12UEL5L a12uel5l ?1ezyfcl an83" + tail + "tt5tgs 11" + std::string(82, 'q') +
                            "c8247j abcdef1qpzry9x8gf2tvdw0s3jn54khce6mua7lmqqqxw "
                            "split1checkupstagehandshakeupstreamerranterredcaperred2y9e3w");
    std::istringstream bad(
        "pzry9x0s0muk 1pzry9x0s0muk x1b4n0q5v li1dgmt3 de1lg7wt\xFF A1G7SGD8 10a06t8 1qzzfhee a12UEL5L "
        "\1771axkwrx \2001eym55h "
        "an84characterslonghumanreadablepartthatcontainsthenumber1andtheexcludedcharactersbio1569pvx");
    Bech32Parts parts;
    for (std::string text; good >> text;)
        EXPECT_TRUE(bech32_split(parts, text)) << text;
    for (std::string text; bad >> text;)
        EXPECT_FALSE(bech32_split(parts, text)) << text;
    EXPECT_FALSE(bech32_split(parts, " 1nwldj5") || bech32_split(parts, ""));
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

    // expect_header expects a code of a header with a change and a fitting MAC.
    void expect_header(const std::string& header, const std::string& from, const std::vector<std::string>& to,
                       int code) {
        for (const std::string& text : to)
            EXPECT_EQ(open(with_mac(test::replaced(header, from, text)) + payload_, "secret"), code)
                << from << " -> " << text;
    }

    // own_file makes a file of chunks, which may be full ("f"), short ("s") or empty ("e"); capitals are
    // sealed as last ones.
    std::string own_file(const std::string& chunks) {
        content_.clear();
        AgeHeader header;
        uint8_t key[32];
        EXPECT_TRUE(bech32_read(key, kRecipientPrefix, recipient_));
        key[31] |= 0x80; // which X25519 ignores
        EXPECT_EQ(x25519_stanza_add(header, key, fileKey_), 0);
        header.finish(fileKey_);
        std::string file(header.text().text(), header.text().size());
        const std::string nonce = "sixteen  letters";
        file += nonce;
        AgeKey payloadKey;
        age_derive(payloadKey, fileKey_.data(), fileKey_.size(), nonce.data(), nonce.size(), "payload");
        uint8_t counter[12]{};
        for (const char chunk : chunks) {
            const char size = static_cast<char>(chunk | 0x20);
            const std::string part(size == 'f' ? 65536 : size == 's' ? 5 : 0, size);
            content_ += part;
            counter[11] = chunk != size;
            std::vector<uint8_t> out(part.size() + 16);
            chacha20_poly1305_encrypt(out.data(), out.data() + part.size(), payloadKey.data(), counter,
                                      nullptr, 0, reinterpret_cast<const uint8_t*>(part.data()), part.size());
            counter[10]++;
            file.append(out.begin(), out.end());
        }
        return file;
    }

    const test::TempDir dir_;
    std::string identity_, recipient_, content_, sealed_, header_, payload_, share_, body_;
    FileKey fileKey_;
};

// The last character of the base64 of 32 bytes has two unused bits.
std::string not_canonical(std::string text) {
    text.back()++;
    return text;
}

TEST_F(SealFormat, HeadersAreStrict) {
    // The real file key, so that the MAC fits and the change alone decides.
    AgeHeader header;
    FileInput file(File(dir_.write("whole", sealed_).c_str(), platform::OpenMode::read), "");
    SealInput input(file, false);
    AgeKeys keys;
    ASSERT_EQ(header.read(input), 0);
    ASSERT_EQ(keys.read(identity_.c_str(), AgeKeyKind::identity), 0);
    ASSERT_EQ(header_open(fileKey_, header, keys, ""), 0);

    const std::string line(64, 'A'), own = "-> X25519 " + share_ + '\n' + body_ + '\n';
    expect_header(header_, own,
                  {own, own + own, own + "-> g !\"~\n\n", "-> g\n" + line + "\n\n" + own,
                   "-> g x\n" + line + '\n' + line + "\nAAAA\n" + own},
                  0);
    expect_header(header_, "-> X", {"-> x"}, NO_MATCH_ERROR);
    const int bad = BAD_FORMAT_ERROR;
    expect_header(header_, "v1\n", {"v2\n", "v1\r\n"}, bad);
    expect_header(header_, "age-", {"\nage-", "Age-"}, bad);
    expect_header(header_, own, {""}, bad);
    expect_header(header_, own,
                  {own + "\n", own + "->\n\n", own + "-> \n\n", own + "-> g\n", own + "-> g \n\n",
                   own + "-> g \x7F\n\n", own + "-> g \xC3\xA9\n\n", own + "-> g\tx\n\n", own + "-> g\nA\n",
                   own + "-> g\nAAB\n", own + "-> g\nAA==\n", own + "-> g\nAAA\nAAA\n",
                   own + "-> g\n" + line + '\n', own + "-> g\n" + line + "A\n\n", own + "-> X25519 AAAA\n\n",
                   own + "-> scrypt " + std::string(22, 'A') + " 10\n" + body_ + '\n'},
                  bad);
    expect_header(header_, "-> X", {"->X", "->  X", "-- X"}, bad);
    expect_header(header_, "19 ", {"19  ", "19 ! "}, bad);
    // The last of the shares is of small order.
    expect_header(header_, share_,
                  {"", share_ + " ", share_ + " x", share_ + '\r', share_ + "A", share_.substr(1),
                   not_canonical(share_), std::string(43, 'A')},
                  bad);
    expect_header(header_, body_, {body_.substr(3), "AAAA" + body_, not_canonical(body_), body_ + '\r'}, bad);

    const std::string mac = with_mac(header_).substr(header_.size() + 4, 43);
    std::string other = mac;
    other[7] = other[7] == 'A' ? 'B' : 'A';
    const auto end_with = [&](const std::string& end) { return open(header_ + end + payload_); };
    EXPECT_EQ(end_with("--- " + mac + '\n'), 0);
    EXPECT_EQ(end_with("--- " + other + '\n'), DECRYPT_ERROR);
    for (const std::string& end :
         {"--- " + not_canonical(mac) + '\n', "---  " + mac + '\n', "---" + mac + '\n', "--- " + mac + " \n",
          "--- " + mac + "\r\n", "--- " + mac.substr(1) + '\n', std::string("---\n"), std::string()})
        EXPECT_EQ(end_with(end), bad) << end;
    for (const size_t size : {size_t{0}, size_t{10}, header_.size() + 10, header_.size() + 48 + 15})
        EXPECT_EQ(open(sealed_.substr(0, size)), BAD_FORMAT_ERROR) << size;
    EXPECT_EQ(open(header_ + "-> g\n" + std::string(3 << 20, 'A')), bad);
}

TEST_F(SealFormat, ScryptStandsAloneWithAPlainFactor) {
    AgeHeader header;
    ASSERT_EQ(scrypt_stanza_add(header, "secret", fileKey_, 2), 0);
    const std::string stanza(header.text().text(), header.text().size());
    const std::string rest = own_file("ffS");
    payload_ = rest.substr(rest.find('\n', rest.find("---")) + 1);
    const size_t first = stanza.find("-> ");
    const std::string salt = stanza.substr(first + 10, 22);
    expect_header(stanza, " 2\n", {" 2\n"}, 0);
    expect_header(stanza, " 2\n", {" 3\n"}, DECRYPT_ERROR);
    expect_header(stanza, " 2\n", {" 23\n", " 99999999999999999999\n"}, OUT_OF_RANGE_ERROR);
    expect_header(stanza, " 2\n", {" 0\n", " 02\n", " +2\n", " -2\n", " 2x\n", " 0x2\n", "\n", " 2 2\n"},
                  BAD_FORMAT_ERROR);
    expect_header(stanza, salt, {salt.substr(1), salt + "A", not_canonical(salt)}, BAD_FORMAT_ERROR);
    expect_header(stanza, "scrypt", {"Scrypt"}, NO_MATCH_ERROR);
    expect_header(stanza, "\n->", {"\n-> g\n\n->", '\n' + stanza.substr(first) + "->"}, BAD_FORMAT_ERROR);
    EXPECT_EQ(open(with_mac(stanza) + payload_, "Secret"), DECRYPT_ERROR);
    EXPECT_EQ(open(with_mac(stanza) + payload_), NO_MATCH_ERROR);
}

TEST_F(SealFormat, NoChangeOfThePayloadIsTaken) {
    for (const std::string chunks : {"E", "S", "F", "fF", "fS", "", "e", "f", "fE", "fs", "FS", "FF", "sS"}) {
        const bool isGood = chunks.size() == 1 ? chunks < "a" : chunks == "fF" || chunks == "fS";
        EXPECT_EQ(open(own_file(chunks)), isGood ? 0 : DECRYPT_ERROR) << chunks;
        EXPECT_EQ(open(own_file(chunks) + 'x'), DECRYPT_ERROR) << chunks;
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
                      line2 = sealed_.substr(begin.size() + 65, 64),
                      last = sealed_.substr(sealed_.rfind('\n', sealed_.find(end) - 2) + 1);
    std::string crlf;
    for (const char c : sealed_)
        crlf += c == '\n' ? std::string("\r\n") : std::string(1, c);
    const auto expect = [&](int code, const std::string& from, const std::vector<std::string>& to) {
        for (const std::string& text : to)
            EXPECT_EQ(open(test::replaced(sealed_, from, text)), code) << from << " -> " << text;
    };
    const int bad = BAD_FORMAT_ERROR;
    expect(0, sealed_,
           {sealed_, crlf, sealed_.substr(0, sealed_.size() - 1), blanks + "\n" + sealed_,
            sealed_ + blanks + "  ", std::string(1024, '\n') + sealed_, sealed_ + std::string(1024, ' ')});
    expect(bad, sealed_,
           {std::string(1025, '\n') + sealed_, sealed_ + std::string(1025, ' '), "x\n" + sealed_,
            ' ' + sealed_, sealed_ + "x", "\v\n" + sealed_, sealed_ + '\f', sealed_ + sealed_,
            begin + sealed_, begin + end});
    expect(bad, begin,
           {begin + '\n', begin + "Comment: x\n\n", begin.substr(0, begin.size() - 1) + " \n",
            "-----BEGIN FILE-----\n", "-----Begin age encrypted file-----\n"});
    expect(bad, end, {"", '\n' + end, "=AAAA\n" + end, "-----END FILE-----\n"});
    expect(bad, line2 + '\n',
           {'\n' + line2 + '\n', ' ' + line2 + '\n', line2 + " \n", line2 + "AAAA\n",
            '*' + line2.substr(1) + '\n', line2.substr(0, 60) + '\n' + line2.substr(60) + '\n', line2});
    expect(bad, last, {'A' + last, "AB==\n" + end, "A===\n" + end, "=\n" + end});
}

} // namespace
} // namespace zul
