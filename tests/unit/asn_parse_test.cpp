#include "asn1/byte_stream.h"
#include "frame/memory_hooks.h"
#include "hash/digest.h"
#include "support/asn_lists.h"

using namespace zul;
using test::parse_hex;

// The nodes of a list as "level:tag" words, "*" behind those of indefinite length.
static std::string shape(const AsnList& list) {
    std::string text;
    for (const asn_Node* node = list.head(); node != nullptr; node = node->next)
        text += (text.empty() ? "" : " ") + std::to_string(node->level) + ":" + std::to_string(node->tag) +
                (node->ndef != 0 ? "*" : "");
    return text;
}

TEST(AsnParse, ReadsLevelsOfBothLengthForms) {
    const struct {
        const char *input, *one, *all; // all: "=" the same
    } cases[] = {{"0500", "0:5", "="},
                 {"30053003020105 0500", "0:16 1:16 2:2", "0:16 1:16 2:2 0:5"},
                 {"3000", "0:16", "="},
                 {"30023000", "0:16 1:16", "="},
                 {"30800000", "0:16* 1:0", "="},
                 {"3080020101 3080 0000 0000 0500", "0:16* 1:2 1:16* 2:0 1:0", "0:16* 1:2 1:16* 2:0 1:0 0:5"},
                 {"3080 3003020105 0000", "0:16* 1:16 2:2 1:0", "="},
                 {"3009 2480 0401AA 0000 0500", "0:16 1:4* 2:4 2:0 1:5", "="},
                 {"3007 2480 0401AA 0000", "0:16 1:4* 2:4 2:0", "="},
                 {"0480", "0:4*", "="},
                 {"0500 30", "0:5", "="},
                 {"0500 3085", "0:5", "="},
                 {"0482000141", "0:4", "="},
                 {"BF8F7F020500", "0:2047 1:5", "="},
                 {"9F8080808080 00 00", "0:0", "="},
                 {"9F8FFFFFFF7F00", "0:4294967295", "="}};
    for (const auto& c : cases) {
        EXPECT_EQ(shape(parse_hex(c.input, false)), c.one) << c.input;
        EXPECT_EQ(shape(parse_hex(c.input, true)), c.all[0] == '=' ? c.one : c.all) << c.input;
    }
}

TEST(AsnParse, RefusesWhatIsNotWhole) {
    const std::string underflow = "ASN.1 internal error: stack underflow";
    const auto tooLong = "ASN.1 data error at offset 6: Length value exceeds max of 16777216.";
    const auto pastEnd = [](const char* offset) {
        return "ASN.1 data error at offset " + std::string(offset) + ": Attempt to read past EOF.";
    };
    const struct {
        std::string text; // that each of the inputs leaves
        std::vector<const char*> inputs;
    } cases[] = {
        // Cut off; five length octets; a tag above 32 bits; nine header octets; the length that means unset.
        {"",
         {"", "30", "1F81", "3085 0000000000", "04FF", "9F9080808000 00", "9F808080808000 820000",
          "3084FFFFFFFF"}},
        // Content shorter or longer than its parent; a marker inside a definite length; none at all.
        {"",
         {"3005020105", "3002020105", "3004 3003 020105", "30040000 0500", "3080 0500", "3080 30020000",
          "3003 3080 0500 0000"}},
        {underflow, {"0000", "30020000", "300430020000"}},
        {pastEnd("5"), {"3003020205"}},
        {pastEnd("2"), {"0401"}},
        {pastEnd("6"), {"048401000000"}},
        {tooLong, {"04840FFFFFFF", "048401000001"}}};
    for (const auto& c : cases) {
        for (const char* input : c.inputs) {
            err_clear();
            EXPECT_FALSE(parse_hex(input, false)) << input;
            EXPECT_EQ(err_text(), c.text) << input;
        }
    }
}

// A list takes some thirty times the memory of its encoding, so false lengths must not make one.
TEST(AsnParse, MakesNothingOfWhatLiesBeyondItsParent) {
    static int allocations;
    for (const char* head : {"3010 308400030D40", "3010 3080", "30 80 3004 3080", "300C 0500 308400030D40"}) {
        std::vector<uint8_t> data = test::from_hex(head);
        for (int i = 0; i < 100'000; i++)
            data.insert(data.end(), {0x05, 0x00});
        allocations = 0;
        memory_set_hooks({[](size_t) { return ++allocations < 0; }, nullptr});
        EXPECT_FALSE(asn_ParseBytes(data.data(), data.size())) << head;
        memory_set_hooks({});
        EXPECT_LT(allocations, 20) << head;
    }
}

TEST(AsnParse, NestsTwoHundredDeep) {
    for (const size_t depth : {200u, 201u}) {
        std::string definite, indefinite;
        for (size_t i = 0; i < depth; i++) {
            const uint8_t header[] = {0x30, 0x82, static_cast<uint8_t>(4 * i >> 8),
                                      static_cast<uint8_t>(4 * i)};
            definite.insert(0, test::to_hex(header, sizeof header));
            indefinite = "3080" + indefinite + "0000";
        }
        for (const std::string& input : {definite, indefinite}) {
            err_clear();
            EXPECT_EQ(static_cast<bool>(parse_hex(input, false)), depth == 200);
            EXPECT_STREQ(err_text(), depth == 200 ? "" : "ASN.1 internal error: stack overflow");
        }
    }
}

// Content of any size in an indefinite length, whatever its count comes to.
TEST(AsnParse, MarkersAloneEndIndefiniteLengths) {
    for (size_t content = 177540; content < 177550; content++) {
        Bytes input = test::from_hex("3080 0483");
        for (const int shift : {16, 8, 0})
            input.push_back(static_cast<uint8_t>((content - 5) >> shift));
        input.resize(input.size() + content - 5 + 2);
        EXPECT_EQ(shape(asn_ParseAll(input.data(), input.size())), "0:16* 1:4 1:0");
    }
}

TEST(AsnParse, StreamsOfFilesAndMemoryAreAlike) {
    const test::TempDir dir;
    Bytes content(100'000);
    for (size_t i = 0; i < content.size(); i++)
        content[i] = static_cast<uint8_t>(i * 7 ^ i >> 8);
    const std::string path = dir.write("stream", content);
    ByteStream memory(content.data(), content.size()), file(path.c_str());
    ASSERT_TRUE(file.is_open());
    EXPECT_FALSE(ByteStream(dir.file("none").c_str()).is_open());
    for (ByteStream* stream : {&memory, &file}) {
        Bytes part(40'000);
        for (const size_t at : {0u, 50'000u, 99'999u, 3u, 16'384u, 100'000u, 16'383u}) {
            ASSERT_TRUE(stream->seek(at));
            EXPECT_EQ(stream->offset(), at);
            EXPECT_EQ(stream->remaining(), content.size() - at);
            EXPECT_EQ(stream->at_end(), at == content.size());
            EXPECT_EQ(stream->get(), at == content.size() ? -1 : content[at]);
            const size_t from = stream->offset(), wanted = std::min(part.size(), content.size() - from);
            EXPECT_EQ(stream->read(part.data(), part.size()), wanted);
            EXPECT_TRUE(std::equal(part.begin(), part.begin() + static_cast<long>(wanted),
                                   content.begin() + static_cast<long>(from)));
            EXPECT_EQ(stream->offset(), from + wanted);
        }
        ASSERT_TRUE(stream->seek(10));
        EXPECT_FALSE(stream->skip(-11));
        EXPECT_FALSE(stream->skip(99'991));
        EXPECT_FALSE(stream->seek(100'001));
        EXPECT_FALSE(stream->skip(INT64_MIN));
        EXPECT_EQ(stream->offset(), 10u);
        EXPECT_TRUE(stream->skip(99'990) && stream->skip(-100'000));
        EXPECT_EQ(stream->get(), content[0]);

        // Under a digest a file goes back by a header at most.
        DigestContext context;
        uint8_t digest[kMaxDigestSize], expected[kMaxDigestSize];
        digest_init(context, kDigestSha1);
        stream->begin_digest(context, 5, 90'000);
        EXPECT_TRUE(stream->seek(16'385) && stream->seek(16'376));
        EXPECT_EQ(stream->get(), content[16'376]);
        EXPECT_EQ(stream->seek(0), stream == &memory);
        EXPECT_TRUE(stream->end_digest());
        digest_final(context, digest);
        ASSERT_EQ(hash_bytes(expected, sizeof expected, content.data() + 5, 90'000, kDigestSha1), 20);
        EXPECT_EQ(memcmp(digest, expected, 20), 0);
    }
}

// A source of no length is read as far as it goes, and goes back no further than its buffer.
TEST(AsnParse, StreamsOfNoLengthMoveForward) {
    ByteStream zeros("/dev/zero");
    if (!zeros.is_open())
        GTEST_SKIP() << "no such device";
    EXPECT_EQ(zeros.remaining(), SIZE_MAX);
    EXPECT_TRUE(zeros.skip(40'000) && zeros.skip(-100));
    EXPECT_EQ(zeros.offset(), 39'900u);
    EXPECT_FALSE(zeros.skip(-30'000));
    EXPECT_EQ(zeros.offset(), 39'900u);
    Bytes part(100'000, 1);
    EXPECT_EQ(zeros.read(part.data(), part.size()), part.size());
    EXPECT_EQ(zeros.offset(), 139'900u);
    EXPECT_EQ(part, Bytes(part.size()));
    EXPECT_EQ(zeros.get(), 0);
    EXPECT_FALSE(zeros.at_end());
}

TEST(AsnParse, ElementsAreReadWithoutMoving) {
    const Bytes bytes = test::from_hex("0500 3080 020107 0000 A103020101");
    ByteStream stream(bytes.data(), bytes.size());
    stream.seek(2);
    EXPECT_EQ(shape(asn_ReadElement(stream)), "0:16* 1:2 1:0");
    EXPECT_EQ(stream.offset(), 2u);
    EXPECT_EQ(asn_LooksLikeDer(stream, 5), 0);
    stream.seek(9);
    EXPECT_EQ(asn_LooksLikeDer(stream, 5), 1);
    EXPECT_EQ(asn_LooksLikeDer(stream, 6), 0);
    EXPECT_EQ(stream.offset(), 9u);
    const struct {
        const char* header;
        int looks; // with content of two bytes
    } cases[] = {{"6102", 0}, {"C102", 0}, {"0002", 0}, {"1F3102", 1}, {"1F3202", 0}, {"3085", 0}, {"30", 0}};
    for (const auto& c : cases) {
        const Bytes header = test::from_hex(c.header);
        ByteStream other(header.data(), header.size());
        EXPECT_EQ(asn_LooksLikeDer(other, header.size() + 2), c.looks) << c.header;
    }
}

TEST(AsnParse, TemplatesMatchWholeLists) {
    const AsnTemplate shapes[] = {{16, 0}, {2, 1}, {5, 1}, {0, kAsnTemplateEnd}};
    const struct {
        const char* input;
        bool matches;
    } cases[] = {{"3005 020101 0500", true},       {"3080 020101 0500 0000", true}, {"3003 020101", false},
                 {"3007 020101 0500 0500", false}, {"3005 020101 0400", false},     {"3004 A2020500", false}};
    for (const auto& c : cases) {
        const Bytes input = test::from_hex(c.input);
        ByteStream stream(input.data(), input.size());
        EXPECT_EQ(static_cast<bool>(asn_MatchTemplate(stream, shapes)), c.matches) << c.input;
    }
}

TEST(AsnParse, FindsElementsWithoutAList) {
    const Bytes bytes = test::from_hex("300C 020101 3080 020102 0000 0500 0500");
    const struct {
        int tag, count, level;
        size_t offset, size; // size 0: not found
    } cases[] = {{2, 1, -1, 2, 3},  {2, 2, -1, 7, 3},  {2, 1, 2, 7, 3},  {16, 2, -1, 5, 7}, {-1, 1, 2, 7, 3},
                 {-1, 2, 1, 5, 7},  {-1, 2, 0, 14, 2}, {5, 1, 0, 14, 2}, {5, 3, -1, 0, 0},  {2, 2, 1, 0, 0},
                 {16, 1, 0, 0, 14}, {-1, 7, -1, 0, 0}, {2, 0, -1, 0, 0}};
    for (const auto& c : cases) {
        size_t offset = 0, size = 0;
        const int found =
            asn_FindElement(&offset, &size, bytes.data(), bytes.size(), c.tag, c.count, c.level);
        EXPECT_EQ(found, c.size != 0) << c.tag << " " << c.count << " " << c.level;
        EXPECT_EQ(offset, c.offset);
        EXPECT_EQ(size, c.size);
    }
    size_t offset, size;
    EXPECT_EQ(asn_FindElement(&offset, &size, bytes.data(), 4, 2, 1, -1), 0); // cut off
}

TEST(AsnParse, SplitsSignedData) {
    const struct {
        const char* input;
        int result;
    } cases[] = {{"300D 3003020101 30020500 03020055", 0},
                 {"3080 3003020101 30020500 03020055 0000", -1},
                 {"300B 020101 30020500 03020055", -1},
                 {"300D 3003020101 30020500 23020055", -1},
                 {"300D 3003020101 30820500 03020055", -1},
                 {"300D 3003020101", -1},
                 {"", -1}};
    for (const auto& c : cases) {
        const Bytes input = test::from_hex(c.input);
        ByteStream stream(input.data(), input.size());
        size_t tbs = 0, tbsSize = 0, algorithm = 0, signature = 0;
        ASSERT_EQ(asn_SplitSigned(stream, &tbs, &tbsSize, &algorithm, &signature), c.result) << c.input;
        if (c.result == 0) {
            EXPECT_EQ((std::vector{tbs, tbsSize, algorithm, signature}), (std::vector<size_t>{2, 5, 7, 11}));
        }
    }
}
