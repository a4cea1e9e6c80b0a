// hash FILE: prints the SHA-256 and SHA3-256 digests of a file.
#include <iostream>

#include "zulcore.hpp"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: hash FILE\n";
        return 2;
    }
    try {
        const char* file = argv[1];
        // --8<-- [start:hash]
        std::cout << zulcore::hash_file_hex(file) << '\n';
        std::cout << zulcore::hash_file_hex(file, "sha3-256") << '\n';
        // --8<-- [end:hash]
    } catch (const zulcore::Error& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
