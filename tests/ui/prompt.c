/* prompt WHAT ...: asks the user through the module and prints the result, the recorded error and what came
 * back.
 *
 *   password SIZE CAPTION PROMPT
 *   interrupted SIZE CAPTION PROMPT (the same, after a prompt that WM_QUIT has ended, or with a timer's
 *     signal every hundredth of a second and a handler of SIGPIPE, SIGINT, SIGTSTP and SIGCONT)
 *   bytes LENGTH PROMPT OPTIONS
 *   seed FILE PROMPT OPTIONS
 *
 * "-" is a null pointer, and as PROMPT of a password it stands for PWD_Prompt. On Windows with DESKTOP in the
 * environment all this is done on a desktop of that name. */
#define _DEFAULT_SOURCE /* signal leaves a handler in place */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "zulcore.h"

#ifdef _WIN32
#include <windows.h>

/* The module asks for windows as it is loaded, so that it is too late to change the desktop here. */
static void start_on_desktop(char* name) {
    STARTUPINFOA start = {.cb = sizeof start, .lpDesktop = name};
    PROCESS_INFORMATION process;
    DWORD status = 3;
    CreateDesktopA(name, NULL, NULL, 0, GENERIC_ALL, NULL);
    SetEnvironmentVariableA("DESKTOP", NULL);
    if (CreateProcessA(NULL, GetCommandLineA(), NULL, NULL, TRUE, 0, NULL, NULL, &start, &process)) {
        WaitForSingleObject(process.hProcess, INFINITE);
        GetExitCodeProcess(process.hProcess, &status);
    }
    exit((int)status);
}

static int interrupted(char* password) {
    MSG message;
    PostQuitMessage(7);
    const int result = PWD_Prompt(password, 100, NULL);
    while (GetMessageA(&message, NULL, 0, 0) > 0)
        continue;
    return result == -1 && message.wParam == 7;
}
#else
#include <signal.h>
#include <sys/time.h>

static void on_signal(int number) {
    (void)number;
}

static int interrupted(char* password) {
    static const int numbers[] = {SIGALRM, SIGPIPE, SIGINT, SIGTSTP, SIGCONT};
    const struct itimerval timer = {{0, 10000}, {0, 10000}};
    (void)password;
    for (size_t i = 0; i < sizeof numbers / sizeof numbers[0]; i++)
        signal(numbers[i], on_signal);
    return setitimer(ITIMER_REAL, &timer, NULL) == 0;
}
#endif

static const char* text(const char* argument) {
    return strcmp(argument, "-") == 0 ? NULL : argument;
}

int main(int argc, char** argv) {
    static char password[600] = "untouched";
    static unsigned char bytes[65537];
    int result = -9999, used = 0;
    if (argc != 5)
        return 2;
#ifdef _WIN32
    if (getenv("DESKTOP") != NULL)
        start_on_desktop(getenv("DESKTOP"));
#endif

    const char what = argv[1][0];
    if (what == 'i' && !interrupted(password))
        return 3;
    if (what == 'p' || what == 'i') {
        const char* prompt = text(argv[4]);
        result = prompt == NULL ? PWD_Prompt(password, atoi(argv[2]), text(argv[3]))
                                : PWD_PromptEx(password, atoi(argv[2]), text(argv[3]), prompt);
    } else if (what == 'b') {
        result = RNG_BytesWithPrompt(bytes, atoi(argv[2]), text(argv[3]), atoi(argv[4]));
    } else if (what == 's') {
        result = RNG_MakeSeedFile(text(argv[2]), text(argv[3]), atoi(argv[4]));
    }
    const int code = ZUL_ErrorCode();
    for (size_t i = 0; i < sizeof bytes; i++)
        used += bytes[i] != 0;
    printf("result=%d code=%d password=[%s] used=%d", result, code, password, used);
    if (what == 's' && result == 0)
        printf(" initialize=%d", RNG_Initialize(argv[2], 0));
    printf("\n");
    return 0;
}
