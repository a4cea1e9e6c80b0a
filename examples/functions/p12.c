/* p12.c: PKCS #12 files of several keys and certificates. */
#include <stdlib.h>

#include "expect.h"

static char key[90001], again[90001];

int main(void) {
    expect("certificates",
           KEY_Make(key, 90000, "p-256", 0) > 0 &&
               CERT_SelfSign("root.pem", key, "CN=Root; profile=ca", 0) == 0 &&
               KEY_Make(again, 90000, "p-256", 0) > 0 &&
               CERT_Issue("alice.pem", "root.pem", key, again, "CN=Alice; profile=client", 0) == 0);
    memcpy(key, again, sizeof key);
    {
        /* [P12_Pack] */
        if (P12_Pack("alice.p12", "alice.pem;root.pem", key, "correct horse", "Alice", 0) != 0)
            printf("error %d\n", ZUL_ErrorCode());
        /* [end] */
        expect("P12_Pack", file_begins("alice.p12", "\x30\x82"));
    }
    {
        /* [P12_List] */
        int length = P12_List(NULL, 0, "alice.p12", "correct horse", 0);
        char* list = length < 0 ? NULL : malloc((size_t)length + 1);
        if (list != NULL && P12_List(list, length, "alice.p12", "correct horse", 0) >= 0)
            puts(list);
        /* [end] */
        expect("P12_List", list != NULL && strstr(list, "name=\"Alice\"") != NULL);
        free(list);
    }
    {
        /* [P12_Unpack] */
        int status =
            P12_Unpack("chain.pem", again, sizeof again - 1, "alice.p12", "correct horse", ZUL_P12_NEED_MAC);
        if (status == DECRYPT_ERROR)
            puts("a wrong password, or changed");
        /* [end] */
        expect("P12_Unpack", status == 0 && KEY_Match(again, key) == 0 &&
                                 P12_Unpack(NULL, again, 90000, "alice.p12", "wrong", 0) == DECRYPT_ERROR);
    }
    return faults;
}
