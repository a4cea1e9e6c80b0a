/* load_module MODULE [MODE [N]]: loads a module while it runs, as VBA or Python do, and says "loaded" or
 * "refused". Modes: cycle loads and unloads it N times, threads lets N threads come, call and go; both then
 * print what the process holds of memory (in KiB) and of handles, once early and once at the end. time prints
 * how many microseconds went by from the load to the first call's return, and in ZUL_PowerUpTests. */
#define _POSIX_C_SOURCE 200809L /* clock_gettime */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

typedef int (*VersionFunction)(void*, void*);
typedef int (*BytesFunction)(unsigned char*, int, const void*, int);

typedef int (*TestsFunction)(int);

static VersionFunction version;
static BytesFunction bytes;
static TestsFunction tests;

#ifdef _WIN32
#include <windows.h>
#include <psapi.h>

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

static void print_holdings(const char* when) {
    PROCESS_MEMORY_COUNTERS counters;
    DWORD handles = 0;
    memset(&counters, 0, sizeof counters);
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    GetProcessHandleCount(GetCurrentProcess(), &handles);
    printf("%s memory %lu handles %lu\n", when, (unsigned long)(counters.PagefileUsage / 1024),
           (unsigned long)handles);
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
    return version != NULL && bytes != NULL && tests != NULL;
}

int main(int argc, char** argv) {
    const char* mode = argc > 2 ? argv[2] : "";
    const int times = argc > 3 ? atoi(argv[3]) : 0;
    const double start = microseconds();
    double loaded;
    int i;
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
