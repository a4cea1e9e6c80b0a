/* cert.c: certificates, requests and CRLs of any kind of key. */
#include <stdlib.h>

#include "expect.h"

static char root[90001], www[90001];

static void make(void) {
    {
        /* [CERT_SelfSign] */
        if (CERT_SelfSign("root.pem", root, "C=AU; O=Example; CN=Example Root; profile=ca; valid=20y", 0) !=
            0)
            printf("error %d\n", ZUL_ErrorCode());
        /* [end] */
        expect("CERT_SelfSign", X509_CertIsValidNow("root.pem", 0) == 0);
    }
    {
        /* [CERT_Request] */
        CERT_Request("www.req", www, "C=AU; O=Example; dns=www.example.com, example.com", 0);
        /* [end] */
        expect("CERT_Request", file_begins("www.req", "-----BEGIN CERTIFICATE REQUEST-----"));
    }
    {
        /* [CERT_Issue] */
        /* Key and subject come from the request, and of its extensions what copy= names. */
        if (CERT_Issue("www.pem", "root.pem", root, "www.req",
                       "profile=server; copy=subjectAltName; crl=http://pki.example/root.crl; days=90",
                       0) != 0) {
            char reason[512] = "";
            ZUL_LastError(reason, sizeof reason - 1);
            puts(reason);
        }
        /* [end] */
        expect("CERT_Issue", CERT_CheckName("www.pem", "example.com", 0) == 0);
    }
    {
        /* [CERT_IssueCRL] */
        /* The first list, and one that goes on from it. */
        if (CERT_IssueCRL("first.crl", "root.pem", root, NULL, NULL, "days=7", 0) != 0 ||
            CERT_IssueCRL("second.crl", "root.pem", root, "first.crl", "cert=www.pem, reason=superseded",
                          "days=7", 0) != 0)
            printf("error %d\n", ZUL_ErrorCode());
        /* [end] */
        char count[10];
        expect("CERT_IssueCRL",
               CERT_Query(count, 9, "second.crl", "revokedCount", 0) == 1 && count[0] == '1');
    }
}

int main(void) {
    expect("keys", KEY_Make(root, 90000, "p-256", 0) > 0 && KEY_Make(www, 90000, "ed25519", 0) > 0);
    make();
    {
        /* [CERT_Query] */
        char names[500], days[10];
        CERT_Query(names, sizeof names - 1, "www.pem", "dns", 0); /* several are parted by line feeds */
        CERT_Query(days, sizeof days - 1, "www.pem", "daysLeft", 0);
        if (atoi(days) < 30)
            puts("time for a new one");
        /* [end] */
        expect("CERT_Query", strcmp(names, "www.example.com\nexample.com") == 0 && atoi(days) >= 88);
    }
    {
        /* [CERT_Report] */
        int length = CERT_Report(NULL, 0, "www.pem", ZUL_CERT_JSON);
        char* report = length < 0 ? NULL : malloc((size_t)length + 1);
        if (report != NULL && CERT_Report(report, length, "www.pem", ZUL_CERT_JSON) >= 0)
            puts(report);
        /* [end] */
        expect("CERT_Report",
               report != NULL && report[0] == '{' && strstr(report, "www.example.com") != NULL);
        free(report);
    }
    {
        /* [CERT_CheckName] */
        if (CERT_CheckName("www.pem", "www.example.org", 0) == NO_MATCH_ERROR) {
            char names[512] = "";
            ZUL_LastError(names, sizeof names - 1); /* what the certificate is for */
            puts(names);
        }
        /* [end] */
        expect("CERT_CheckName", CERT_CheckName("www.pem", "WWW.example.com", 0) == 0);
    }
    {
        /* [CERT_CheckPath] */
        char report[4000];
        int status = CERT_CheckPath(report, sizeof report - 1, "www.pem", NULL, "root.pem", "first.crl",
                                    "host=www.example.com; purpose=server; revocation=all", 0);
        if (status != 0)
            puts(report); /* says which certificate is refused, and why */
        /* [end] */
        expect("CERT_CheckPath", status == 0 && CERT_CheckPath(NULL, 0, "www.pem", NULL, "root.pem",
                                                               "second.crl", NULL, 0) == BAD_KEY_ERROR);
    }
    return faults;
}
