/* expect.h: what the examples of the functions check beside what the reference shows of them. */
#ifndef EXPECT_H
#define EXPECT_H

#include <stdio.h>
#include <string.h>

#include "zulcore.h"

static int faults;

static inline void expect(const char* what, int isTrue) {
    char text[512] = "";
    if (isTrue)
        return;
    ZUL_LastError(text, sizeof text - 1);
    printf("not as expected: %s (error %d %s)\n", what, ZUL_ErrorCode(), text);
    faults++;
}

static inline int write_file(const char* name, const void* data, size_t length) {
    FILE* file = fopen(name, "wb");
    int isGood = file != NULL && fwrite(data, 1, length, file) == length;
    return file != NULL && fclose(file) == 0 && isGood;
}

static inline int file_begins(const char* name, const char* text) {
    char begin[64] = "";
    FILE* file = fopen(name, "rb");
    size_t count = file != NULL ? fread(begin, 1, strlen(text), file) : 0;
    return file != NULL && fclose(file) == 0 && count == strlen(text) && memcmp(begin, text, count) == 0;
}

static inline int same_file(const char* one, const char* other) {
    char digests[2][65];
    return HASH_HexFromFile(digests[0], 64, one, ZUL_HASH_SHA256) == 64 &&
           HASH_HexFromFile(digests[1], 64, other, ZUL_HASH_SHA256) == 64 &&
           strcmp(digests[0], digests[1]) == 0;
}

#endif
