/* seal.c: encrypted files in the format of age. */
#include "expect.h"

int main(void) {
    char identity[75], recipient[63];
    expect("report", write_file("report.txt", "a report", 8));
    /* [SEAL_MakeIdentity] */
    if (SEAL_MakeIdentity(identity, 74, 0) < 0) /* "AGE-SECRET-KEY-1...": keep it secret */
        printf("error %d\n", ZUL_ErrorCode());
    /* [end] */
    /* [SEAL_Recipient] */
    SEAL_Recipient(recipient, 62, identity); /* "age1...": for everybody */
    /* [end] */
    expect("SEAL_Recipient", strncmp(recipient, "age1", 4) == 0);
    /* [SEAL_File] */
    if (SEAL_File("report.txt.age", "report.txt", recipient, NULL, 0) != 0)
        printf("error %d\n", ZUL_ErrorCode());
    /* [end] */
    expect("SEAL_File", file_begins("report.txt.age", "age-encryption.org/v1"));
    /* [SEAL_OpenFile] */
    switch (SEAL_OpenFile("opened.txt", "report.txt.age", identity, NULL, 0)) {
    case 0:
        break;
    case NO_MATCH_ERROR:
        puts("not for this identity");
        break;
    case DECRYPT_ERROR:
        puts("damaged");
        break;
    default:
        printf("error %d\n", ZUL_ErrorCode());
    }
    WIPE_Data(identity, sizeof identity);
    /* [end] */
    expect("SEAL_OpenFile", same_file("opened.txt", "report.txt"));
    expect("identity", SEAL_MakeIdentity(identity, 74, 0) == 74);
    expect("SEAL_OpenFile with another identity",
           SEAL_OpenFile("never.txt", "report.txt.age", identity, NULL, 0) == NO_MATCH_ERROR);
    return faults;
}
