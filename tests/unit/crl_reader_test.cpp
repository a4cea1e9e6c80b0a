#include "support/der_bytes.h"
#include "support/unit_test.h"
#include "x509/crl/crl_reader.h"
#include "x509/fields/certificate.h"
#include "x509/input/x509_input.h"
#include "x509/verify/verify.h"
#include "zulcore.h"

using namespace zul;
using test::bytes_of, test::element, test::operator+;

namespace {

Bytes sequence(const Bytes& content) {
    return element(0x30, content);
}
Bytes open_sequence(const Bytes& content) { // of indefinite length
    return Bytes{0x30, 0x80} + content + Bytes{0, 0};
}
Bytes utc(const std::string& text) {
    return element(0x17, bytes_of(text));
}
Bytes entry(const Bytes& serial, const Bytes& rest = utc("200102030405Z")) {
    return sequence(element(0x02, serial) + rest);
}

const Bytes kVersion2 = {2, 1, 1};
const Bytes kAlgorithm = sequence({6, 1, 0x2A});
const Bytes kName = sequence(element(0x31, sequence(Bytes{6, 1, 0x2A} + element(0x13, bytes_of("A")))));
const Bytes kThis = utc("190102030405Z");
const Bytes kNext = element(0x18, bytes_of("20500102030405Z"));
const Bytes kExtension = sequence(Bytes{6, 1, 0x2A} + element(4, {5, 0}));
const Bytes kExtensions = element(0xA0, sequence(kExtension));
const Bytes kSignature = kAlgorithm + element(3, {0, 0xAB});
const Bytes kFields = kAlgorithm + kName + kThis;

Bytes crl(const Bytes& toBeSigned, const Bytes& rest = kSignature) {
    return sequence(sequence(toBeSigned) + rest);
}

std::string file_of(const Bytes& content) {
    static const test::TempDir dir;
    static int count = 0; // a new file each time: writing over one is slow
    return dir.write(std::to_string(count++), content);
}

class List {
  public:
    explicit List(const Bytes& content)
        : opened_(source_.open(file_of(content).c_str()) == 0 ? reader_.open(source_) : BAD_FORMAT_ERROR) {}

    int opened() const { return opened_; }
    CrlReader& reader() { return reader_; }

    // Serial numbers and years, and "!" where an entry is damaged.
    std::string entries() {
        std::string all;
        CrlEntry e;
        int error;
        bool found = false;
        while ((error = reader_.next(e, found)) == 0 && found)
            all += test::to_hex(e.serialNumber, e.serialLength) + "=" + std::string(e.revocationDate, 0, 4) +
                   " ";
        return error == 0 ? all : all + "!";
    }

    // look_up gives 1, 0, or -1 for any damage on the way.
    int look_up(const Bytes& serial) {
        CrlEntry e;
        bool found = false;
        if (opened_ != 0 || reader_.find(serial.data(), serial.size(), e, found) != 0 ||
            (!found && reader_.finish() != 0))
            return -1;
        return found ? 1 : 0;
    }

  private:
    DerSource source_;
    CrlReader reader_;
    int opened_;
};

const Bytes kTwo = entry({1}) + entry({0, 0x80}, utc("5001020304Z") + sequence(kExtension));
const Bytes kList = sequence(kTwo);
#define TWO "01=2020 0080=1950 " // their texts

} // namespace

TEST(CrlReader, ReadsEveryForm) {
    const Bytes openEntry = open_sequence(element(2, {7}) + kThis) + entry({8});
    const struct {
        Bytes content;
        int version;
        bool hasNext;
        const char* entries;
    } cases[] = {
        {crl(kFields), 1, false, ""},
        {crl(kFields + kNext + kList), 1, true, TWO},
        {crl(kVersion2 + kFields + kNext + kList + kExtensions), 2, true, TWO},
        {crl(kVersion2 + kFields + kList + kExtensions), 2, false, TWO},
        {crl(kVersion2 + kFields + kNext + kExtensions), 2, true, ""},
        {crl(kVersion2 + kFields + kNext + sequence({}) + kExtensions), 2, true, ""},
        {crl(kFields + sequence(entry({5}, utc("x01302030405Z")))), 1, false, "05= "}, // no time
        // Not DER: the object, the list, an entry, what is in one, extensions, the signature.
        {open_sequence(sequence(kFields + kList) + kSignature), 1, false, TWO},
        {crl(kFields + open_sequence(kTwo) + kExtensions), 1, false, TWO},
        {crl(kFields + sequence(kTwo + openEntry)), 1, false, TWO "07=2019 08=2020 "},
        {crl(kFields + sequence(kTwo + entry({9}, kThis + open_sequence(kExtension)))), 1, false,
         TWO "09=2019 "},
        {crl(kFields + kList + element(0xA0, open_sequence(kExtension))), 1, false, TWO},
        {crl(kFields, kAlgorithm + element(0x23, element(3, {0, 0xAB}))), 1, false, ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(&c - cases);
        List list(c.content);
        CrlReader& reader = list.reader();
        ASSERT_EQ(list.opened(), 0);
        EXPECT_EQ(reader.version(), c.version);
        EXPECT_EQ(reader.issuer()->length, kName.size() - 2);
        EXPECT_STREQ(reader.thisUpdate(), "2019-01-02T03:04:05Z");
        EXPECT_STREQ(reader.nextUpdate(), c.hasNext ? "2050-01-02T03:04:05Z" : "");
        EXPECT_EQ(list.entries(), c.entries);
        ASSERT_EQ(reader.finish(), 0);
        EXPECT_EQ(reader.signatureAlgorithm()->length, 3U);
        EXPECT_EQ(reader.signatureValue()->data[1], 0xAB);
        EXPECT_EQ(List(c.content).reader().finish(), 0); // the entries skipped
    }
}

TEST(CrlReader, RefusesWhatCouldHideEntries) {
    constexpr int kEntries = -1, kEnd = -2; // where that is seen, if not at once
    const Bytes long65000(65000, 1), longLength = sequence({2, 0x84, 255, 255, 255, 255, 1});
    const Bytes afterExtensions = kThis + sequence(kExtension) + entry({2});
    const struct {
        const char* what;
        Bytes content;
        int refused;
    } cases[] = {
        {"a certificate", crl(element(0xA0, kVersion2) + Bytes{2, 1, 5} + kFields), BAD_FORMAT_ERROR},
        {"no times", crl(kAlgorithm + kName), BAD_FORMAT_ERROR},
        {"invalid thisUpdate", crl(kAlgorithm + kName + utc("x91302030405Z")), INVALID_DATA_ERROR},
        {"invalid nextUpdate", crl(kFields + utc("19")), INVALID_DATA_ERROR},
        {"list of another type", crl(kFields + element(0x31, kTwo)), BAD_FORMAT_ERROR},
        {"list as extensions", crl(kFields + element(0xA0, kTwo)), kEnd},
        {"entry as extensions", crl(kFields + element(0xA0, entry({1}))), kEnd},
        {"two lists", crl(kFields + kList + kList), kEnd},
        {"field behind the extensions", crl(kFields + kList + kExtensions + kList), kEnd},
        {"no signature", crl(kFields + kList, kAlgorithm), kEnd},
        {"field behind the signature", crl(kFields + kList, kSignature + kAlgorithm), kEnd},
        {"entry in an entry", crl(kFields + sequence(entry({1}, kThis + entry({2})))), kEntries},
        {"entry behind extensions", crl(kFields + sequence(entry({1}, afterExtensions))), kEntries},
        {"entry longer than the list",
         crl(kFields + kNext + sequence(kTwo + Bytes{0x30, 9, 2, 1, 1}) + kExtensions), kEntries},
        {"length of four octets", crl(kFields + kNext + sequence(kTwo + longLength) + kExtensions), kEntries},
        {"no date", crl(kFields + sequence(entry({1}, {}))), kEntries},
        {"empty serial number", crl(kFields + sequence(entry({}))), kEntries},
        {"entry too long", crl(kFields + sequence(entry(long65000 + long65000))), kEntries},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        List list(c.content);
        ASSERT_EQ(list.opened(), std::max(0, c.refused));
        if (c.refused > 0)
            continue;
        EXPECT_EQ(list.entries().find('!') != std::string::npos, c.refused == kEntries);
        if (c.refused == kEnd) {
            EXPECT_EQ(list.reader().finish(), INVALID_DATA_ERROR);
        }
    }
    EXPECT_EQ(List(crl(kFields + sequence(entry(long65000)))).look_up(long65000), 1);
}

TEST(CrlReader, FindsSerialNumbersByValue) {
    const Bytes content = crl(kFields + sequence(entry({0}) + entry({0, 0, 0x7F}) + entry({0x80}) +
                                                 entry({0, 0x80}) + entry({0xFF, 0xFF}) + entry({1, 0x81})));
    const struct {
        Bytes serial;
        int found;
    } cases[] = {{{0, 0}, 1}, {{0x7F}, 1},    {{0xFF, 0x80}, 1}, {{0, 0x80}, 1},
                 {{0xFF}, 1}, {{0, 0xFF}, 0}, {{2, 0x81}, 0},    {{0, 0x81}, 0}};
    for (const auto& c : cases)
        EXPECT_EQ(List(content).look_up(c.serial), c.found) << test::to_hex(c.serial);
}

// A list that is changed while it is read is found out, or the answer is that of the list that was signed.
TEST(CrlReader, WhatIsVerifiedIsWhatWasRead) {
    const std::string issuer = test::data_path("x509_make/issuer.pem");
    std::string list;
    for (int i = 1; i <= 5000; i++)
        list += std::to_string(i) + ",2020-01-01;";
    const test::TempDir dir;
    const std::string path = dir.file("crl");
    ASSERT_EQ(X509_MakeCRL(path.c_str(), issuer.c_str(), test::data_path("rsa/enc_aes256.pem").c_str(),
                           "password", list.c_str(), "", 3),
              0);
    const Bytes content = test::read_file(path), serial = {0x0F, 0xA0};
    AsnList certificate;
    ASSERT_EQ(x509_read_certificate(issuer.c_str(), certificate), 0);
    const asn_Node* key = certificate_fields(certificate.head()).subjectPublicKeyInfo;
    for (const bool isChanged : {false, true}) {
        dir.write("crl", content);
        DerSource source;
        SignedPass pass;
        ASSERT_EQ(source.open(path.c_str()), 0);
        ASSERT_EQ(pass.begin(key, source), 0);
        if (isChanged) {
            dir.write("crl", test::patched(content, "02020fa0", 3, "a1"));
        }
        CrlReader reader;
        CrlEntry read;
        bool found = false;
        ASSERT_EQ(reader.open(source), 0);
        EXPECT_EQ(reader.find(serial.data(), serial.size(), read, found), 0);
        EXPECT_NE(found, isChanged);
        EXPECT_EQ(pass.end(), isChanged ? -1 : 0);
    }
}

// Whatever happens to a list, a certificate on it is never said to be free, unless its number itself is
// changed.
TEST(CrlReader, DamageNeverHidesAnEntry) {
    const Bytes serial = {0x12, 0x34, 0x56}, list = sequence(entry({1}) + entry(serial) + entry({2}));
    for (const Bytes& content :
         {crl(kFields + kNext + list), crl(kVersion2 + kFields + kNext + list + kExtensions),
          crl(kFields + sequence(entry(serial)))}) {
        const auto found = std::search(content.begin(), content.end(), serial.begin(), serial.end());
        const auto place = static_cast<size_t>(found - content.begin());
        ASSERT_EQ(List(content).look_up(serial), 1);
        for (size_t i = 0; i < content.size(); i++) {
            for (int change = 1; change < 256; change = change < 16 ? change + 1 : change * 2 + 1) {
                Bytes damaged = content;
                damaged[i] = static_cast<uint8_t>(damaged[i] ^ change);
                if (i < place || i >= place + serial.size()) {
                    EXPECT_NE(List(damaged).look_up(serial), 0) << "byte " << i << " changed by " << change;
                }
            }
            EXPECT_NE(List(Bytes(content.begin(), content.begin() + static_cast<long>(i))).opened(), 0) << i;
        }
    }
}
