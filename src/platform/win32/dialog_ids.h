// The dialogs' controls, for dialogs.rc too.
#define ZUL_PASSWORD_LABEL 2000
#define ZUL_PASSWORD_EDIT 2001
#define ZUL_ENTROPY_PROGRESS 1000
#define ZUL_ENTROPY_PROMPT 1001
#define ZUL_ENTROPY_MESSAGE 1002
