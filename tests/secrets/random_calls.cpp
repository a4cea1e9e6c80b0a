// The random generator and the prompts.
#include <cstring>

#include "secrets/secrets_test.h"

namespace secrets {

void check_random(bool withPrompts) {
    Byte* const out = take(70000);
    fresh();
    const Byte* const seed = plant("a seed", 30);
    for (const int size : {8, 20, 333, 20000}) {
        CALL(RNG_Bytes, "draws", 0, out, size, seed, 30);
        plant_bytes("random bytes", out, static_cast<size_t>(size < 2000 ? size : 2000));
        plant_bytes("last random bytes", out + size - 8, 8);
        LOOK(RNG_Bytes, "draws");
    }
    CHECK(RNG_Bytes, "too many", -PRNG_ERR_TOOBIG, out, 65537, seed, 30);
    CHECK(RNG_Test, "tests", kAny, "report.txt", 0);

    Byte* const file = plant("a seed file", 64);
    write_file("seed", file, 64);
    size_t size = 0;
    CALL(RNG_Initialize, "a seed file", 0, "seed", 0);
    plant_bytes("the new seed file", read_file("seed", &size), 64);
    LOOK(RNG_Initialize, "a seed file");
    CALL(RNG_UpdateSeedFile, "a seed file", 0, "seed", 0);
    plant_bytes("the newest seed file", read_file("seed", &size), 64);
    LOOK(RNG_UpdateSeedFile, "a seed file");
    write_file("short", file, 40);
    CHECK(RNG_UpdateSeedFile, "a short file", -PRNG_ERR_FILE_READ, "short", 0);

    if (!withPrompts)
        return;
    char* const text = reinterpret_cast<char*>(take(600));
    fresh();
    const char* const password = plant_text("what is typed", 40);
    type_text(password);
    CHECK(PWD_PromptEx, "a password", 40, text, 600, "Caption", "Prompt");
    type_text(password);
    CHECK(PWD_Prompt, "a password", 40, text, 600, nullptr);
    type_text(password);
    CHECK(PWD_PromptEx, "is cut", 9, text, 10, "Caption", "Prompt");
    type_keys();
    CALL(RNG_BytesWithPrompt, "keys", 0, out, 200, "Prompt", 0);
    plant_bytes("random bytes", out, 200);
    LOOK(RNG_BytesWithPrompt, "keys");
    type_keys();
    CALL(RNG_MakeSeedFile, "keys", 0, "seed", "Prompt", 0);
    plant_bytes("the seed file", read_file("seed", &size), 64);
    LOOK(RNG_MakeSeedFile, "keys");
}

} // namespace secrets
