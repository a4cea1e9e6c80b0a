/* pwd.c ask: asking for a password. Without the argument it asks nothing. */
#include "expect.h"

int main(int argc, char** argv) {
    (void)argv;
    if (argc > 1) {
        /* [PWD_Prompt not-run] */
        char password[100];
        int length = PWD_Prompt(password, sizeof password, "Backup"); /* here the size counts the NUL */
        if (length < 0)
            return 1; /* cancelled, or nobody to ask */
        /* ... */
        WIPE_Data(password, sizeof password);
        /* [end] */
    }
    if (argc > 1) {
        /* [PWD_PromptEx not-run] */
        char password[100];
        if (PWD_PromptEx(password, sizeof password, "Backup", "Password of the backup key:") < 0)
            return 1;
        /* ... */
        WIPE_Data(password, sizeof password);
        /* [end] */
    }
    expect("PWD_Prompt", PWD_Prompt(NULL, 0, NULL) == -BAD_PARAM_ERROR);
    return faults;
}
