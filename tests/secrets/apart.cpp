#include "secrets/apart.h"

#include <cpuid.h>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sys/mman.h>

extern "C" void zul_switch_stack(void (*function)(void*), void* argument, void* top, secrets::Registers* out,
                                 long hasXsave);

// The registers that a function preserves are the caller's, so rbx and r12 serve.
__asm__(R"(
.pushsection .text
.globl zul_switch_stack
.type zul_switch_stack, @function
zul_switch_stack:
    push %rbx
    push %rbp
    push %r12
    push %r13
    push %r14
    push %r15
    mov %rsp, %rbx
    mov %rcx, %r12
    mov %r8, %r13
    mov %rdi, %rax
    mov %rsi, %rdi
    mov %rdx, %rsp
    call *%rax
    mov %rax, 0(%r12)
    mov %rcx, 8(%r12)
    mov %rdx, 16(%r12)
    mov %rsi, 24(%r12)
    mov %rdi, 32(%r12)
    mov %r8, 40(%r12)
    mov %r9, 48(%r12)
    mov %r10, 56(%r12)
    mov %r11, 64(%r12)
    mov $-1, %eax
    mov $-1, %edx
    test %r13, %r13
    jz 1f
    xsave64 128(%r12)
    jmp 2f
1:  fxsave64 128(%r12)
2:  fninit
    mov %rbx, %rsp
    pop %r15
    pop %r14
    pop %r13
    pop %r12
    pop %rbp
    pop %rbx
    ret
.size zul_switch_stack, .-zul_switch_stack
.popsection
)");

namespace secrets {

static_assert(offsetof(Registers, extended) == 128);

static uint8_t* lowest = nullptr;

void apart_make() {
    constexpr size_t kGuard = 1 << 16;
    void* const memory =
        mmap(nullptr, kApartStack + 2 * kGuard, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    lowest = static_cast<uint8_t*>(memory) + kGuard;
    if (memory == MAP_FAILED || mprotect(lowest, kApartStack, PROT_READ | PROT_WRITE) != 0) {
        perror("mmap");
        _Exit(3);
    }
}

uint8_t* apart_stack() {
    return lowest;
}

void run_apart(void (*function)(void*), void* argument, Registers* registers) {
    unsigned a = 0, b = 0, c = 0, d = 0;
    const bool hasXsave = __get_cpuid(1, &a, &b, &c, &d) != 0 && (c & bit_OSXSAVE) != 0;
    memset(registers, 0, sizeof *registers);
    madvise(lowest, kApartStack, MADV_DONTNEED);
    zul_switch_stack(function, argument, lowest + kApartStack - 256, registers, hasXsave ? 1 : 0);
}

} // namespace secrets
