#include <algorithm>

#include "support/module_calls.h"

using test::base64;
using test::Bytes;
using test::last_error;

// OCSP requests and responses of openssl, and responses that no responder would send (tests/data/ocsp).

namespace {

std::string path_of(const std::string& file) {
    return test::data_path("ocsp/" + file);
}

std::string with_line_feeds(std::string text) {
    for (size_t at; (at = text.find("\\n")) != std::string::npos;)
        text.replace(at, 2, "\n");
    return text;
}

int ask(const std::string& response, const std::string& issuer, char* out = nullptr, int room = 0) {
    return OCSP_ReadResponse(out, room, response.c_str(), issuer.c_str(), nullptr, 0);
}

std::string report(const std::string& response, const std::string& issuer = "") {
    int code = 0;
    const std::string text =
        test::text_of([&](char* out, int room) { return ask(response, issuer, out, room); }, &code);
    return code == 0 ? text : "error " + std::to_string(code) + ": " + last_error();
}
std::string request(const std::string& cert, int options, const std::string& issuer, int* code = nullptr) {
    return test::text_of(
        [&](char* out, int room) {
            return OCSP_MakeRequest(out, room, issuer.c_str(), cert.c_str(), "ignored", options);
        },
        code);
}

} // namespace

TEST(Ocsp, RequestsAreThoseOfOpenssl) {
    for (const test::Vector& block : test::read_vectors("ocsp/requests.txt")) {
        const std::string asked = block.text("Certificate"), expected = block.text("Request");
        const std::string cert = asked[0] == '#' ? asked : path_of(asked);
        EXPECT_EQ(request(cert, static_cast<int>(block.number("Digest")), path_of("ca.pem")), expected);
    }
}

TEST(Ocsp, SerialNumbersOfRequestsAreTheBytesGiven) {
    const std::string ca = path_of("ca.pem");
    EXPECT_EQ(request("#x4d", 0, ca), request(path_of("responder.pem"), 0, ca));
    const struct {
        std::string given, integer;
    } cases[] = {{"#x123", "02020123"},
                 {"#xFF", "0201ff"},
                 {"#x0000", "02020000"},
                 {"#x0A:3f 0", "020300a3f0"},
                 {"#x" + std::string(160, '7'), "0250" + std::string(160, '7')}};
    for (const auto& each : cases) {
        const std::string hex = test::to_hex(test::from_base64(request(each.given, ZUL_HASH_MD2, ca)));
        EXPECT_TRUE(hex.ends_with(each.integer)) << each.given;
    }
}

TEST(Ocsp, RequestsThatCannotBeMade) {
    const std::string ca = path_of("ca.pem"), cert = path_of("responder.pem");
    const struct {
        std::string issuer, cert;
        int options, result;
        std::string text;
    } cases[] = {
        {"", cert, 0, BAD_PARAM_ERROR, ""},
        {ca, "", 0, BAD_PARAM_ERROR, ""},
        {cert, cert, 0, -NO_MATCH_ERROR, "Certificate not issued by given issuer certificate"},
        {path_of("missing"), cert, 7, -OPEN_ERROR, ""},
        {ca, path_of("missing"), 0, -OPEN_ERROR, ""},
        {ca, "#x", 0, -OPEN_ERROR, ""}, // the name of a file
        {path_of("good.der"), cert, 0, -BAD_FORMAT_ERROR, "Not a valid X.509 certificate"},
        {ca, path_of("good.der"), 0, -BAD_FORMAT_ERROR, "Not a valid X.509 certificate"},
        {ca, "#xyz", 0, -INVALID_DATA_ERROR, "Serial number is not hexadecimal"},
        {ca, "#x12g4", 0, -INVALID_DATA_ERROR, "Serial number is not hexadecimal"},
        {ca, "#x :", 0, -INVALID_DATA_ERROR, "Serial number is not hexadecimal"},
        {ca, cert, 7, -BAD_FLAG_ERROR, "Invalid digest algorithm"},
        {ca, cert, 0xF, -BAD_FLAG_ERROR, "Invalid digest algorithm"},
    };
    for (const auto& each : cases)
        EXPECT_FAILURE_WITH(
            OCSP_MakeRequest(nullptr, 0, each.issuer.c_str(), each.cert.c_str(), nullptr, each.options),
            each.result, each.text)
            << each.cert;
    // Other bits are ignored.
    const int length = static_cast<int>(request(cert, 0x10000 | ZUL_HASH_SHA256, ca).size());
    char tight[400] = "unchanged";
    EXPECT_RESULT(OCSP_MakeRequest(tight, length - 1, ca.c_str(), cert.c_str(), nullptr, ZUL_HASH_SHA256),
                  -SHORT_BUF_ERROR);
    EXPECT_STREQ(tight, "");
}

TEST(Ocsp, ReportsOfWhatOpensslAnswers) {
    for (const test::Vector& block : test::read_vectors("ocsp/responses.txt")) {
        const std::string file = path_of(block.text("File")), issuer = path_of(block.text("Issuer"));
        const std::string expected = with_line_feeds(block.text("Report"));
        EXPECT_EQ(report(file), expected);
        const bool hasRsaKey = block.text("Issuer") != "ec.pem";
        EXPECT_EQ(report(file, issuer),
                  hasRsaKey ? expected
                            : "error 19: Unsupported key algorithm '1.2.840.10045.2.1': require "
                              "`rsaEncryption'; Signature is invalid");
        const std::string another = path_of(block.text("Issuer") == "ca.pem" ? "responder.pem" : "ca.pem");
        EXPECT_EQ(ask(file, another), hasRsaKey ? -SIGNATURE_ERROR : -NOT_SUPPORTED_ERROR);
        const Bytes der = test::read_file(file);
        EXPECT_EQ(report(base64(der), hasRsaKey ? issuer : ""), expected);
        EXPECT_EQ(report(test::pem(der)), expected);
    }
    EXPECT_EQ(ask(path_of("good.der"), path_of("missing")), -OPEN_ERROR);
    EXPECT_EQ(ask(path_of("good.der"), path_of("good.der")), -BAD_FORMAT_ERROR);
}

TEST(Ocsp, ReportsOfWhatNobodyShouldAnswer) {
    const test::TempDir dir;
    for (const test::Vector& block : test::read_vectors("ocsp/crafted.txt")) {
        SCOPED_TRACE(block.text("Case"));
        const std::string file = dir.write("response", block.hex("Response"));
        const std::string issuer = block.has("Issuer") ? path_of(block.text("Issuer")) : "";
        const int result = static_cast<int>(block.number("Result"));
        if (result == 0) {
            EXPECT_EQ(report(file, issuer), with_line_feeds(block.text("Report")));
            continue;
        }
        char text[] = "unchanged";
        EXPECT_RESULT(ask(file, issuer, text, 9), result);
        const std::string said = last_error(), expected = block.text("Text");
        EXPECT_TRUE(said.ends_with(expected)) << said;
        EXPECT_STREQ(text, ""); // no report of an earlier call is left to be read
    }
}

TEST(Ocsp, WithABufferTheResultIsItsRoom) {
    const std::string tryLater = "MAMKAQM="; // base64 of any length is taken
    char text[40];
    const struct {
        int room, result;
        std::string text;
    } cases[] = {{4, 4, "tryL"}, {9, 9, "tryLater."}, {30, 30, "tryLater."}, {0, 9, "#"}, {-1, 9, "#"}};
    for (const auto& each : cases) {
        std::fill_n(text, sizeof text - 1, '#');
        text[1] = '\0';
        EXPECT_EQ(ask(tryLater, "", text, each.room), each.result);
        EXPECT_EQ(text, each.text);
    }
    EXPECT_EQ(OCSP_ReadResponse(nullptr, 40, tryLater.c_str(), nullptr, "ignored", -1), 9);
    EXPECT_EQ(OCSP_ReadResponse(nullptr, 0, nullptr, nullptr, nullptr, 0), -BAD_PARAM_ERROR);
    EXPECT_EQ(ask("", ""), -BAD_PARAM_ERROR);
    EXPECT_EQ(report("missing"), "error 1: Unable to open file 'missing'");
    EXPECT_EQ(report(std::string(300, 'x')), "error 1: Unable to open file '...'");
    EXPECT_EQ(report(path_of("requests.txt")), "error 8: Not a DER, PEM or base64 file; Invalid ASN.1 data");
}
