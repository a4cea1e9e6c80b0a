#pragma once
/* The handles that this process holds. GetProcessHandleCount gives 0 under Wine, so the system's table of all
 * handles is counted. */
#include <windows.h>
#include <stdlib.h>

struct HandleEntry {
    void* object;
    ULONG_PTR process, handle;
    ULONG access;
    USHORT trace, type;
    ULONG attributes, reserved;
};

struct HandleTable {
    ULONG_PTR count, reserved;
    struct HandleEntry entries[1];
};

LONG NTAPI NtQuerySystemInformation(int kind, void* out, ULONG size, ULONG* needed);

static long own_handles(void) {
    const int extendedHandleInformation = 64;
    ULONG size = 1 << 16;
    long count = -1;
    while (count < 0 && size < 1 << 28) {
        struct HandleTable* const table = (struct HandleTable*)malloc(size);
        if (table == NULL)
            break;
        if (NtQuerySystemInformation(extendedHandleInformation, table, size, NULL) == 0) {
            ULONG_PTR i;
            count = 0;
            for (i = 0; i < table->count; i++)
                if (table->entries[i].process == GetCurrentProcessId())
                    count++;
        }
        free(table);
        size *= 2;
    }
    return count;
}
