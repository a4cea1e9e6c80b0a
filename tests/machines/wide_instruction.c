/* wide_instruction: one instruction of AVX2, which a processor without it refuses. */
int main(void) {
    __asm__ volatile("vpaddd %%ymm0, %%ymm0, %%ymm0" : : : "memory");
    return 0;
}
