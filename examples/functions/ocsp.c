/* ocsp.c: asking for the status of a certificate. */
#include "expect.h"

int main(void) {
    static char key[90001];
    static const unsigned char later[] = {0x30, 0x03, 0x0a, 0x01, 0x03};
    expect("certificates",
           KEY_Make(key, 90000, "rsa-2048", 0) > 0 &&
               CERT_SelfSign("root.pem", key, "CN=Root; profile=ca", 0) == 0 &&
               CERT_Issue("alice.pem", "root.pem", key, key, "CN=Alice; profile=client", 0) == 0 &&
               write_file("alice.resp", later, sizeof later));
    {
        /* [OCSP_MakeRequest] */
        char request[500]; /* base64: decode it, POST it as application/ocsp-request */
        int length =
            OCSP_MakeRequest(request, sizeof request - 1, "root.pem", "alice.pem", NULL, ZUL_HASH_SHA1);
        /* [end] */
        expect("OCSP_MakeRequest", length > 50 && request[0] == 'M');
    }
    {
        /* [OCSP_ReadResponse] */
        char report[1024];
        int length = OCSP_ReadResponse(NULL, 0, "alice.resp", "root.pem", NULL, 0);
        if (length >= 0 && OCSP_ReadResponse(report, length, "alice.resp", "root.pem", NULL, 0) >= 0)
            puts(report); /* whose status, and of when: see there */
        /* [end] */
        expect("OCSP_ReadResponse", strcmp(report, "tryLater.") == 0);
    }
    return faults;
}
