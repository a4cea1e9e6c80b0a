#include "support/der_bytes.h"
#include "support/module_calls.h"

static const std::string kContent = "Hello, reader.";

using test::replaced;
constexpr auto hex = test::text_from_hex;

static std::string stored(const std::string& name) {
    return test::data_path("cms/" + name);
}

// without_armour leaves the base64 of PEM.
static std::string without_armour(const std::string& pem) {
    const size_t begin = pem.find('\n') + 1;
    return pem.substr(begin, pem.find("-----END") - begin);
}

// The forms of one message, as files and as text.
class CmsRead : public testing::Test {
  protected:
    CmsRead() : stream_(test::read_text(stored("stream.der"))), pem_(test::read_text(stored("plain.pem"))) {}
    std::string nested() const {
        return replaced(stream_, hex("2480040E") + kContent + hex("0000"),
                        hex("2480 240C 0405 48656C6C6F 2403 04012C 0400 2480 2480 0401 20 0407") + "reader." +
                            hex("0000 0000 0000"));
    }
    std::string bare() const { return stream_.substr(15, stream_.size() - 15 - 4); }

    test::TempDir dir_;
    std::string stream_, pem_;
};

TEST_F(CmsRead, GivesTheContent) {
    const std::string sources[] = {
        stored("attributes.der"),
        stored("plain.pem"),
        pem_,
        dir_.write("b64", without_armour(pem_)),
        without_armour(pem_),
        stored("stream.der"),
        dir_.write("nested", nested()),
        dir_.write("bare", bare()),
    };
    for (const std::string& source : sources) {
        SCOPED_TRACE(source);
        const std::string out = dir_.file("out");
        EXPECT_EQ(CMS_ReadSigData(out.c_str(), source.c_str(), 0), 14);
        EXPECT_EQ(test::read_text(out), kContent);
        std::string room(20, '#');
        EXPECT_EQ(CMS_ReadSigDataToString(room.data(), 19, source.c_str(), 0), 14);
        EXPECT_STREQ(room.c_str(), kContent.c_str());
        EXPECT_EQ(CMS_ReadSigDataToString(room.data(), 5, source.c_str(), 0), 5);
        EXPECT_STREQ(room.c_str(), "Hello");
        EXPECT_EQ(CMS_ReadSigDataToString(nullptr, 0, source.c_str(), 0), 14);
    }
}

TEST_F(CmsRead, SaysWhatIsWrong) {
    const std::string dataType = hex("06092A864886F70D010701"), otherType = hex("06092A864886F70D010706");
    const std::string info = dataType + hex("A080"), version = hex("020101310D");
    const std::string der = test::read_text(stored("attributes.der")), end(6, '\0');
    const struct {
        std::string message;
        const char* text;
        int code = INVALID_DATA_ERROR;
    } cases[] = {
        {"text", "Invalid ASN.1 data"},
        {test::read_text(stored("one.der")), "Invalid Content Type: expected signed-data"},
        {hex("300D06092A864886F70D010702A000"), "Invalid Content Type: expected signed-data"},
        {replaced(stream_, version, hex("3100310D")), "Invalid SignedData: cannot find CMSVersion"},
        {replaced(bare(), version, hex("0200310D")), "Invalid SignedData: cannot find CMSVersion"},
        {replaced(stream_, version, hex("0201FF310D")), "Invalid SignedData: cannot find CMSVersion"},
        {test::read_text(stored("version3.der")), "SignedData version is 3: only 1 is supported",
         NOT_SUPPORTED_ERROR},
        {hex("30050201013100"), "Invalid SignedData: no encapContentInfo"},
        {replaced(stream_, info, hex("04022A03A080")), "Invalid SignedData: no contentType"},
        {replaced(stream_, info, otherType + hex("A080")), "Invalid SignedData: contentType must be 'data'"},
        {replaced(stream_, info + hex("2480"), info + hex("3080")), "Invalid SignedData: invalid content"},
        {replaced(stream_, kContent + hex("00000000"), kContent + hex("000005000000")),
         "Invalid SignedData: invalid content"},
        {replaced(der, hex("A010040E"), hex("A010040D")), "Invalid SignedData: invalid content"},
        {replaced(der, hex("301D") + dataType, hex("301C") + dataType),
         "Invalid SignedData: invalid content"},
        {stream_.substr(0, 600), "Invalid SignedData: invalid certificates"},
        {stream_.substr(0, stream_.size() - 200), "Invalid SignedData: invalid signerInfos"},
        {stream_.substr(0, stream_.size() - 6) + hex("0500") + end,
         "Invalid SignedData: invalid signerInfos"},
        {replaced(der, hex("30820373020101"), hex("30820372020101")),
         "Invalid SignedData: invalid signerInfos"},
        {stream_.substr(0, stream_.size() - 2), "Invalid SignedData: invalid end"},
        {stream_.substr(0, stream_.size() - 4) + hex("05000000"), "Invalid SignedData: invalid end"},
        {test::read_text(stored("detached.pem")), "No content found in SignedData object", NO_DATA_ERROR},
        {test::read_text(stored("certs.pem")), "No content found in SignedData object", NO_DATA_ERROR},
    };
    for (const auto& c : cases) {
        const std::string in = dir_.write("in", c.message), out = dir_.file("out");
        char room[20];
        EXPECT_FAILURE(CMS_ReadSigDataToString(room, sizeof room - 1, in.c_str(), 0), -c.code, c.text);
        EXPECT_EQ(CMS_ReadSigData(out.c_str(), in.c_str(), 0), -c.code);
        EXPECT_FALSE(test::file_exists(out)) << c.text;
    }
}

TEST_F(CmsRead, KeepsTheInputAndChecksArguments) {
    const std::string in = dir_.write("in", stream_), none = dir_.file("none");
    EXPECT_EQ(CMS_ReadSigData(in.c_str(), in.c_str(), 0), -CREATE_ERROR);
    EXPECT_EQ(test::read_text(in), stream_);
    EXPECT_EQ(CMS_ReadSigData((none + "/out").c_str(), in.c_str(), 0), -CREATE_ERROR);
    EXPECT_EQ(CMS_ReadSigData(in.c_str(), none.c_str(), 0), -OPEN_ERROR);
    EXPECT_EQ(CMS_ReadSigDataToString(nullptr, 0, none.c_str(), 0), -OPEN_ERROR);
    for (const char* empty : {static_cast<const char*>(nullptr), ""}) {
        EXPECT_EQ(CMS_ReadSigData(empty, in.c_str(), 0), -BAD_PARAM_ERROR);
        EXPECT_EQ(CMS_ReadSigData(none.c_str(), empty, 0), -BAD_PARAM_ERROR);
        EXPECT_EQ(CMS_ReadSigDataToString(nullptr, 0, empty, 0), -BAD_PARAM_ERROR);
        EXPECT_EQ(X509_GetCertFromP7Chain(none.c_str(), empty, 0, 0), -BAD_PARAM_ERROR);
    }
}

TEST_F(CmsRead, TakesCertificatesOut) {
    const std::string one = test::read_text(stored("one.der")), two = test::read_text(stored("two.der"));
    // A certificate of another form (an attribute certificate, [2]) is none, and the set may have no length.
    const std::string set = hex("00000000A0820408");
    const std::string open = replaced(stream_, set, hex("00000000A080A203020105"));
    const std::string other = replaced(open, one + hex("3182"), one + hex("0000 3182"));
    const struct {
        std::string source, first, second;
    } cases[] = {
        {stored("certs.pem"), one, two},        {test::read_text(stored("certs.pem")), one, two},
        {stored("stream.der"), two, one},       {dir_.write("bare", bare()), two, one},
        {dir_.write("other", other), two, one}, {stored("version3.der"), one, ""},
    };
    const std::string out = dir_.file("out");
    for (const auto& c : cases) {
        SCOPED_TRACE(c.source);
        const int count = c.second.empty() ? 1 : 2;
        EXPECT_EQ(X509_GetCertFromP7Chain(nullptr, c.source.c_str(), 0, 0), count);
        EXPECT_EQ(X509_GetCertFromP7Chain("", c.source.c_str(), -1, 0), count);
        int index = 1;
        for (const std::string& der : {c.first, c.second}) {
            const int length = static_cast<int>(der.size());
            EXPECT_EQ(X509_GetCertFromP7Chain(nullptr, c.source.c_str(), index, 0), length);
            dir_.write("out", "old");
            EXPECT_EQ(X509_GetCertFromP7Chain(out.c_str(), c.source.c_str(), index++, 0), length);
            EXPECT_EQ(test::read_text(out), der.empty() ? "old" : der);
        }
        EXPECT_EQ(X509_GetCertFromP7Chain(out.c_str(), c.source.c_str(), 2147483647, 0), 0);
    }
    const std::string head = hex("3080 020101 3100"), data = hex("3003 06012A"), sets = hex("A000 A000");
    const std::string signers = hex("3100"), bare = head + data + signers, end = hex("0000");
    EXPECT_EQ(X509_GetCertFromP7Chain(nullptr, dir_.write("bare", bare + end).c_str(), 0, 0), 0);
    for (const std::string& source :
         {stored("one.der"), dir_.write("text", "text"), dir_.write("no end", bare),
          dir_.write("more", bare + signers + end), dir_.write("sets", head + data + sets + signers + end),
          dir_.write("no signers", head + data + end),
          dir_.write("no type", head + hex("3003 02012A") + signers + end),
          dir_.write("long tag", head + data + hex("BF0000") + signers + end)})
        for (const int index : {0, 1})
            EXPECT_FAILURE_WITH(X509_GetCertFromP7Chain(out.c_str(), source.c_str(), index, 0),
                                -BAD_FORMAT_ERROR, "Not a valid SignedData file");
    EXPECT_EQ(X509_GetCertFromP7Chain(nullptr, dir_.file("none").c_str(), 0, 0), -OPEN_ERROR);
    EXPECT_EQ(X509_GetCertFromP7Chain((out + "/x").c_str(), stored("certs.pem").c_str(), 1, 0),
              -CREATE_ERROR);
}
