/* load_module MODULE [MODE [ARGUMENT]]: loads a module while it runs, as VBA or Python do, and says "loaded"
 * or "refused". Modes: cycle N: loads and gives it back N times (where a module stays in its process no more
 * than that); threads N: lets N threads come, call and go; both then print what the process holds of memory
 * (in KiB) and of handles, once early and once at the end; tests PATH: prints what ZUL_PowerUpTests gives and
 * the error code behind it, which was 6 before, from another folder and after PATH, the module's file, was
 * moved away; slots: takes all the slots of threads before it loads; time: prints how many microseconds went
 * by from the load to the first call's return, and in ZUL_PowerUpTests. */
#define _POSIX_C_SOURCE 200809L /* clock_gettime */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

typedef int (*VersionFunction)(void*, void*);
typedef int (*BytesFunction)(unsigned char*, int, const void*, int);

typedef int (*TestsFunction)(int);
typedef int (*WipeFunction)(void*, int);
typedef int (*CodeFunction)(void);

static VersionFunction version;
static BytesFunction bytes;
static TestsFunction tests;
static WipeFunction wipe;
static CodeFunction error_code;

#ifdef _WIN32
#include <windows.h>
#include <psapi.h>

#include "support/windows_handles.h"

static HMODULE module;

static int open_module(const char* path) {
    module = LoadLibraryA(path);
    return module != NULL;
}

static void find(const char* name, void* function) {
    const FARPROC found = GetProcAddress(module, name);
    memcpy(function, &found, sizeof found);
}

static double microseconds(void) {
    LARGE_INTEGER now, frequency;
    QueryPerformanceCounter(&now);
    QueryPerformanceFrequency(&frequency);
    return (double)now.QuadPart * 1e6 / (double)frequency.QuadPart;
}

static void unload(void) {
    FreeLibrary(module);
}

static void take_slots(void) {
    while (TlsAlloc() != TLS_OUT_OF_INDEXES)
        continue;
}

static int go_to_root(void) {
    return SetCurrentDirectoryA("\\");
}

static void print_holdings(const char* when) {
    PROCESS_MEMORY_COUNTERS counters;
    memset(&counters, 0, sizeof counters);
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    printf("%s memory %lu handles %ld\n", when, (unsigned long)(counters.PagefileUsage / 1024),
           own_handles());
}

static DWORD WINAPI on_thread(LPVOID unused) {
    unsigned char out[16];
    (void)unused;
    bytes(out, sizeof out, NULL, 0);
    return 0;
}

static int run_thread(void) {
    HANDLE thread = CreateThread(NULL, 0, on_thread, NULL, 0, NULL);
    if (thread == NULL)
        return 0;
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
    return 1;
}
#else
#include <dirent.h>
#include <dlfcn.h>
#include <pthread.h>
#include <time.h>
#include <unistd.h>

static void* module;

static int open_module(const char* path) {
    module = dlopen(path, RTLD_NOW | RTLD_LOCAL);
    return module != NULL;
}

static void find(const char* name, void* function) {
    void* const found = dlsym(module, name);
    memcpy(function, &found, sizeof found);
}

static double microseconds(void) {
    struct timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return (double)now.tv_sec * 1e6 + (double)now.tv_nsec / 1e3;
}

static void unload(void) {
    dlclose(module);
}

static void take_slots(void) {
    pthread_key_t key;
    while (pthread_key_create(&key, NULL) == 0)
        continue;
}

static int go_to_root(void) {
    return chdir("/") == 0;
}

static void print_holdings(const char* when) {
    char line[256];
    unsigned long memory = 0;
    int handles = 0;
    FILE* status = fopen("/proc/self/status", "r");
    DIR* folder;
    while (status != NULL && fgets(line, sizeof line, status) != NULL)
        if (strncmp(line, "VmData:", 7) == 0)
            memory = strtoul(line + 7, NULL, 10);
    if (status != NULL)
        fclose(status);
    folder = opendir("/proc/self/fd");
    while (folder != NULL && readdir(folder) != NULL)
        handles++;
    if (folder != NULL)
        closedir(folder);
    printf("%s memory %lu handles %d\n", when, memory, handles);
}

static void* on_thread(void* unused) {
    unsigned char out[16];
    (void)unused;
    bytes(out, sizeof out, NULL, 0);
    return NULL;
}

static int run_thread(void) {
    pthread_t thread;
    return pthread_create(&thread, NULL, on_thread, NULL) == 0 && pthread_join(thread, NULL) == 0;
}
#endif

static int load(const char* path) {
    if (!open_module(path))
        return 0;
    find("ZUL_Version", &version);
    find("RNG_Bytes", &bytes);
    find("ZUL_PowerUpTests", &tests);
    find("WIPE_Data", &wipe);
    find("ZUL_ErrorCode", &error_code);
    return version != NULL && bytes != NULL && tests != NULL && wipe != NULL && error_code != NULL;
}

static void print_tests(void) {
    const int result = tests(0);
    printf("%d %d\n", result, error_code());
}

static int run_tests(const char* path) {
    char moved[4096];
    snprintf(moved, sizeof moved, "%s.moved", path);
    wipe(NULL, 0);
    if (!go_to_root())
        return 2;
    print_tests();
    if (rename(path, moved) != 0)
        return 3;
    print_tests();
    return 0;
}

int main(int argc, char** argv) {
    const char* mode = argc > 2 ? argv[2] : "";
    const int times = argc > 3 ? atoi(argv[3]) : 0;
    const double start = microseconds();
    double loaded;
    int i;
    if (strcmp(mode, "slots") == 0)
        take_slots();
    if (argc < 2 || !load(argv[1])) {
        printf("refused\n");
        return 1;
    }
    i = version(NULL, NULL);
    loaded = microseconds();
    printf("loaded %d\n", i);
    if (strcmp(mode, "time") == 0) {
        const int failed = tests(0);
        printf("%.0f %.0f\n", loaded - start, microseconds() - loaded);
        return failed != 0;
    }
    if (strcmp(mode, "tests") == 0)
        return run_tests(argc > 3 ? argv[3] : argv[1]);
    for (i = 0; i < times; i++) {
        if (i == times / 10)
            print_holdings("early");
        if (strcmp(mode, "cycle") == 0) {
            unload();
            if (!load(argv[1]))
                return 2;
        } else if (!run_thread()) {
            return 2;
        }
    }
    if (times > 0)
        print_holdings("end");
    fflush(stdout);
    return 0;
}
