// PKCS #12 files and sealed files.
#include <cstring>

#include "secrets/secrets_test.h"

namespace secrets {

namespace {

constexpr int kRoom = 8000;
char* text = nullptr;

void check_pfx() {
    fresh();
    const TestKey& key = keys[kRsa];
    const char* const wrong = plant_text("a wrong password", 20);
    CHECK(PFX_MakeFile, "makes", 0, "made.pfx", key.certificate, key.encrypted, keyPassword, "Name", 0);
    CHECK(PFX_MakeFile, "a wrong password", DECRYPT_ERROR, "no.pfx", key.certificate, key.encrypted, wrong,
          "Name", 0);
    CHECK(PFX_MakeFile, "cannot write", CREATE_ERROR, "none/no.pfx", key.certificate, key.encrypted,
          keyPassword, "", 0);
    CHECK(PFX_VerifySig, "verifies", 0, "made.pfx", keyPassword, 0);
    CHECK(PFX_VerifySig, "a wrong password", SIGNATURE_ERROR, "made.pfx", wrong, 0);
}

void check_p12() {
    for (const int kind : {kRsa, kP256, kEd25519}) {
        const TestKey& key = keys[kind];
        for (const int option : {ZUL_P12_LEGACY, 0, ZUL_P12_PBMAC1}) {
            if (option != ZUL_P12_LEGACY && kind != kRsa)
                continue; // the derivation takes its time
            fresh();
            const char* const password = plant_text("a password", 20);
            const char* const wrong = plant_text("a wrong password", 20);
            CHECK(P12_Pack, key.kind, 0, "made.p12", key.certificate, key.text, password, "Name", option);
            CHECK(P12_Unpack, key.kind, 0, "certs.pem", text, kRoom, "made.p12", password, 0);
            CHECK(P12_Unpack, "a wrong password", DECRYPT_ERROR, "certs.pem", text, kRoom, "made.p12", wrong,
                  0);
            CHECK(P12_List, key.kind, kPositive, text, kRoom, "made.p12", password, 0);
            if (option != ZUL_P12_LEGACY)
                continue;
            CHECK(P12_Pack, "a file", 0, "made.p12", key.certificate, key.file, password, "Name", option);
            CHECK(P12_Pack, "cannot write", CREATE_ERROR, "none/made.p12", key.certificate, key.text,
                  password, "", option);
            CHECK(P12_Pack, "another key", NO_MATCH_ERROR, "no.p12", keys[kOtherRsa].certificate, key.text,
                  password, "", option);
            CHECK(P12_Unpack, "no room", SHORT_BUF_ERROR, "certs.pem", text, 20, "made.p12", password, 0);
            CHECK(P12_Unpack, "cannot write", CREATE_ERROR, "none/certs.pem", text, kRoom, "made.p12",
                  password, 0);
            CHECK(P12_List, "without password", kPositive, text, kRoom, "made.p12", nullptr, 0);
            CHECK(P12_List, "a wrong password", -DECRYPT_ERROR, text, kRoom, "made.p12", wrong, 0);
            size_t size = 0;
            Byte* const file = read_file("made.p12", &size);
            file[size / 2] ^= 1;
            write_file("damaged.p12", file, size);
            CHECK(P12_Unpack, "damaged", kAny, "certs.pem", text, kRoom, "damaged.p12", password, 0);
        }
    }
}

// An identity in the forms between its text and its 32 bytes.
void plant_identity(const char* identity) {
    static constexpr char kAlphabet[] = "QPZRY9X8GF2TVDW0S3JN54KHCE6MUA7L";
    constexpr size_t kPrefix = 16, kLetters = 52;
    Byte letters[kLetters], key[32];
    for (size_t i = 0; i < kLetters; i++)
        letters[i] = static_cast<Byte>(strchr(kAlphabet, identity[kPrefix + i + 1]) - kAlphabet);
    for (size_t i = 0; i < sizeof key; i++) {
        unsigned bits = 0;
        for (size_t j = 8 * i; j < 8 * i + 8; j++)
            bits = bits << 1 | (letters[j / 5] >> (4 - j % 5) & 1u);
        key[i] = static_cast<Byte>(bits);
    }
    plant_bytes("an identity", identity + kPrefix + 1, kLetters + 6);
    plant_bytes("an identity's letters", letters, kLetters, kAsItIs | kReversed);
    plant_bytes("an identity's key", key, sizeof key, kNumber);
}

void check_seal() {
    char identity[80], otherIdentity[80], recipient[80], otherRecipient[80];
    fresh();
    CALL(SEAL_MakeIdentity, "makes", 74, identity, 79, 0);
    plant_identity(identity);
    LOOK(SEAL_MakeIdentity, "makes");
    CHECK(SEAL_MakeIdentity, "no room", -SHORT_BUF_ERROR, text, 20, 0);
    SEAL_MakeIdentity(otherIdentity, 79, 0);
    plant_identity(otherIdentity);
    CHECK(SEAL_Recipient, "of an identity", 62, recipient, 79, identity);
    CHECK(SEAL_Recipient, "no room", -SHORT_BUF_ERROR, text, 20, identity);
    SEAL_Recipient(otherRecipient, 79, otherIdentity);
    char* const mistyped = joined(identity, "");
    mistyped[40] = mistyped[40] == 'Q' ? 'P' : 'Q';
    CHECK(SEAL_Recipient, "mistyped", -BAD_KEY_ERROR, text, 79, mistyped);
    const char* const lines = joined(otherIdentity, "\n", identity);
    write_file("identities", lines, strlen(lines));
    CHECK(SEAL_Recipient, "a file", 62, text, 79, "identities");

    for (const size_t size : {size_t{500}, size_t{140000}}) {
        Byte* const content = take(size);
        fill_random(content, size);
        add_secret("a content", content, 400, kKey);
        add_secret("a content's end", content + size - 100, 100, kKey);
        write_file("plain", content, size);
        for (const int option : {0, ZUL_SEAL_ARMOUR}) {
            CHECK(SEAL_File, "for two", 0, "sealed", "plain", joined(recipient, ";", otherRecipient), nullptr,
                  option);
            CHECK(SEAL_File, "cannot write", CREATE_ERROR, "none/sealed", "plain", recipient, nullptr,
                  option);
            CHECK(SEAL_OpenFile, "opens", 0, "opened", "sealed", identity, nullptr, 0);
            CHECK(SEAL_OpenFile, "a file of identities", 0, "opened", "sealed", "identities", nullptr, 0);
            CHECK(SEAL_OpenFile, "cannot write", CREATE_ERROR, "none/opened", "sealed", identity, nullptr, 0);
            CHECK(SEAL_OpenFile, "mistyped", BAD_KEY_ERROR, "opened", "sealed", mistyped, nullptr, 0);
            CHECK(SEAL_OpenFile, "as a name", OPEN_ERROR, "opened", "sealed", identity + 1, nullptr, 0);
            size_t length = 0;
            Byte* const sealed = read_file("sealed", &length);
            sealed[length - 80] ^= option == 0 ? 1 : 3;
            write_file("damaged", sealed, length);
            CHECK(SEAL_OpenFile, "damaged", kAny, "opened", "damaged", identity, nullptr, 0);
        }
        CHECK(SEAL_File, "for one", 0, "sealed", "plain", recipient, nullptr, 0);
        CHECK(SEAL_OpenFile, "another identity", NO_MATCH_ERROR, "opened", "sealed", otherIdentity, nullptr,
              0);
    }
    const char* const password = plant_text("a password", 20);
    const char* const wrong = plant_text("a wrong password", 20);
    CHECK(SEAL_File, "a password", 0, "sealed", "plain", nullptr, password, 0);
    CHECK(SEAL_OpenFile, "a password", 0, "opened", "sealed", nullptr, password, 0);
    CHECK(SEAL_OpenFile, "a wrong password", DECRYPT_ERROR, "opened", "sealed", nullptr, wrong, 0);
}

} // namespace

void check_files() {
    text = reinterpret_cast<char*>(take(kRoom + 1));
    check_pfx();
    check_p12();
    check_seal();
}

} // namespace secrets
