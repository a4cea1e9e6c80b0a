/* x509.c: certificates, requests and revocation lists with RSA keys. */
#include <stdlib.h>

#include "expect.h"

static const char* const password = "correct horse";

static void make(void) {
    const int aes = ZUL_PBE_PBES2 | ZUL_PBE_CIPHER_AES256 | ZUL_HASH_SHA256 | ZUL_KEY_FORMAT_PEM;
    expect("keys",
           RSA_MakeKeys("root.pub", "root.key", 2048, 4, 40, 1000, password, NULL, 0, aes) == 0 &&
               RSA_MakeKeys("alice.pub", "alice.key", 2048, 4, 40, 1000, password, NULL, 0, aes) == 0);
    {
        /* [X509_MakeCertSelf] */
        if (X509_MakeCertSelf("root.pem", "root.key", 1, 10, "C=AU;O=Example;CN=Example Root",
                              "serialNumber=0a3f", ZUL_KEYUSAGE_KEYCERTSIGN | ZUL_KEYUSAGE_CRLSIGN, password,
                              ZUL_HASH_SHA256 | ZUL_X509_FORMAT_PEM) != 0)
            printf("error %d\n", ZUL_ErrorCode());
        /* [end] */
        expect("X509_MakeCertSelf", X509_VerifyCert("root.pem", "root.pem") == 0);
    }
    {
        /* [X509_CertRequest] */
        X509_CertRequest("alice.req", "alice.key", "C=AU;O=Example;CN=Alice", NULL, password,
                         ZUL_HASH_SHA256);
        /* [end] */
        expect("X509_CertRequest", file_begins("alice.req", "-----BEGIN NEW CERTIFICATE REQUEST-----"));
    }
    {
        /* [X509_MakeCert] */
        /* Without a name of its own the certificate takes name and key from the request. */
        if (X509_MakeCert("alice.pem", "root.pem", "alice.req", "root.key", 0, 2, NULL,
                          "rfc822Name=alice@example.com;serialNumber=10f7", ZUL_KEYUSAGE_DIGITALSIGNATURE,
                          password, ZUL_HASH_SHA256 | ZUL_X509_FORMAT_PEM | ZUL_X509_AUTHKEYID) != 0)
            printf("error %d\n", ZUL_ErrorCode());
        /* [end] */
        expect("X509_MakeCert", X509_VerifyCert("alice.pem", "root.pem") == 0);
    }
    {
        /* [X509_MakeCRL] */
        X509_MakeCRL("root.crl", "root.pem", "root.key", password, "#x10f7,2026-01-02",
                     "nextUpdate=2049-12-31", ZUL_HASH_SHA256);
        /* [end] */
        expect("X509_MakeCRL", X509_VerifyCert("root.crl", "root.pem") == 0);
    }
}

static void query(void) {
    {
        /* [X509_QueryCert] */
        char mailbox[100];
        int length = X509_QueryCert(mailbox, sizeof mailbox - 1, "alice.pem", "rfc822Name", 0);
        int isAuthority = X509_QueryCert(NULL, 0, "alice.pem", "isCA", 0); /* a number is the result itself */
        /* [end] */
        expect("X509_QueryCert",
               length == 17 && strcmp(mailbox, "alice@example.com") == 0 && isAuthority == 0);
    }
    {
        /* [X509_KeyUsageFlags] */
        int flags = X509_KeyUsageFlags("alice.pem");
        if (flags > 0 && (flags & ZUL_KEYUSAGE_DIGITALSIGNATURE) != 0)
            puts("may sign");
        /* [end] */
        expect("X509_KeyUsageFlags", flags == ZUL_KEYUSAGE_DIGITALSIGNATURE);
    }
    {
        /* [X509_CertThumb] */
        char thumb[65];
        X509_CertThumb("alice.pem", thumb, 64, ZUL_HASH_SHA256);
        /* [end] */
        char same[65];
        expect("X509_CertThumb",
               CERT_Query(same, 64, "alice.pem", "sha256", 0) == 64 && strcmp(thumb, same) == 0);
    }
    {
        /* [X509_CertIsValidNow] */
        int answer = X509_CertIsValidNow("alice.pem", 0); /* 0, -1 or an error code */
        if (answer == -1)
            puts("expired, or not yet valid");
        /* [end] */
        expect("X509_CertIsValidNow", answer == 0);
    }
    {
        /* [X509_CertIssuedOn X509_CertExpiresOn] */
        char from[21], until[21];
        X509_CertIssuedOn("alice.pem", from, 20, 0);
        X509_CertExpiresOn("alice.pem", until, 20, 0); /* as "2028-11-22T09:08:07Z" */
        /* [end] */
        expect("X509_CertExpiresOn", from[10] == 'T' && until[19] == 'Z' && strcmp(from, until) < 0);
    }
    {
        /* [X509_CertSerialNumber] */
        char serial[41];
        X509_CertSerialNumber("alice.pem", serial, 40, 0); /* "10f7" */
        /* [end] */
        expect("X509_CertSerialNumber", strcmp(serial, "10f7") == 0);
    }
    {
        /* [X509_CertSubjectName X509_CertIssuerName] */
        char subject[200], issuer[200];
        X509_CertSubjectName("alice.pem", subject, sizeof subject - 1, NULL,
                             0); /* "C=AU;O=Example;CN=Alice" */
        X509_CertIssuerName("alice.pem", issuer, sizeof issuer - 1, "/",
                            0); /* another character between the pairs */
        /* [end] */
        expect("X509_CertSubjectName", strcmp(subject, "C=AU;O=Example;CN=Alice") == 0);
        expect("X509_CertIssuerName", strcmp(issuer, "C=AU/O=Example/CN=Example Root") == 0);
    }
    {
        /* [X509_HashIssuerAndSN] */
        char name[65]; /* a short name of the certificate, for a table say */
        X509_HashIssuerAndSN("alice.pem", name, 64, ZUL_HASH_SHA256);
        /* [end] */
        expect("X509_HashIssuerAndSN", strlen(name) == 64);
    }
    {
        /* [X509_ReadStringFromFile X509_SaveFileFromString] */
        int length = X509_ReadStringFromFile(NULL, 0, "alice.pem", 0);
        char* text = malloc((size_t)length + 1);
        if (text == NULL)
            return;
        X509_ReadStringFromFile(text, length, "alice.pem", 0); /* base64: serves wherever a file does */
        X509_SaveFileFromString("alice.cer", text, 0);         /* DER */
        free(text);
        /* [end] */
        char one[65], other[65];
        X509_CertThumb("alice.cer", one, 64, 3);
        X509_CertThumb("alice.pem", other, 64, 3);
        expect("X509_SaveFileFromString", strcmp(one, other) == 0 && file_begins("alice.cer", "\x30\x82"));
    }
    {
        /* [X509_TextDump] */
        X509_TextDump("alice.txt", "alice.pem", 0);
        /* [end] */
        expect("X509_TextDump", !same_file("alice.txt", "alice.pem"));
    }
}

static void check(void) {
    {
        /* [X509_VerifyCert] */
        switch (X509_VerifyCert("alice.pem", "root.pem")) {
        case 0:
            puts("signed by the root's key");
            break;
        case -1:
            puts("not signed by it");
            break;
        default:
            printf("error %d\n", ZUL_ErrorCode());
        }
        /* [end] */
        expect("X509_VerifyCert", X509_VerifyCert("root.pem", "alice.pem") == -1);
    }
    {
        /* [X509_CheckCertInCRL] */
        int answer = X509_CheckCertInCRL("alice.pem", "root.crl", "root.pem", NULL, 0);
        if (answer == 1)
            puts("revoked"); /* 0: not revoked, below 0: it cannot be told */
        /* [end] */
        expect("X509_CheckCertInCRL", answer == 1);
        expect("X509_CheckCertInCRL by day",
               X509_CheckCertInCRL("alice.pem", "root.crl", NULL, "2026-01-01", 0) == 0);
    }
    {
        /* [X509_ValidatePath] */
        if (X509_ValidatePath("alice.pem;root.pem", "root.pem", 0) != 0)
            printf("error %d\n", ZUL_ErrorCode());
        /* [end] */
        expect("X509_ValidatePath", X509_ValidatePath("alice.pem;root.pem", "root.pem", 0) == 0 &&
                                        X509_ValidatePath("alice.pem", NULL, 0) == -ISSUER_ERROR);
    }
}

static void take_out(void) {
    {
        expect("bundle",
               CMS_MakeSigData("chain.p7b", NULL, "alice.pem;root.pem", NULL, ZUL_CMS_CERTS_ONLY) == 0);
        /* [X509_GetCertFromP7Chain] */
        int count = X509_GetCertFromP7Chain(NULL, "chain.p7b", 0, 0);
        for (int i = 1; i <= count; i++) {
            char name[30];
            snprintf(name, sizeof name, "chain%d.cer", i);
            X509_GetCertFromP7Chain(name, "chain.p7b", i, 0);
        }
        /* [end] */
        expect("X509_GetCertFromP7Chain", count == 2 && file_begins("chain2.cer", "\x30\x82"));
    }
    {
        expect("pfx", PFX_MakeFile("alice.p12", "alice.pem", "alice.key", password, "Alice", 0) == 0);
        /* [X509_GetCertFromPFX RSA_GetPrivateKeyFromPFX] */
        static char key[90001];
        X509_GetCertFromPFX("own.cer", "alice.p12", 0);
        RSA_GetPrivateKeyFromPFX("own.key", "alice.p12", 0); /* still encrypted */
        if (RSA_ReadEncPrivateKey(key, 90000, "own.key", password, 0) < 0)
            puts("a wrong password");
        /* [end] */
        expect("X509_GetCertFromPFX", same_file("own.cer", "alice.cer") && strncmp(key, "PVTR", 4) == 0);
    }
}

int main(void) {
    make();
    query();
    check();
    take_out();
    return faults;
}
