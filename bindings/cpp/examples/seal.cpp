// seal FILE: encrypts a file for a recipient (sealed.age) and under a password (password.age), and opens
// both.
#include <iostream>

#include "zulcore.hpp"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: seal FILE\n";
        return 2;
    }
    try {
        const char* file = argv[1];
        // --8<-- [start:seal]
        const zulcore::SecretText identity = zulcore::seal::make_identity();
        const std::string recipient = zulcore::seal::recipient(identity);

        zulcore::seal::seal_file("sealed.age", file, recipient);
        zulcore::seal::open_file("opened_1", "sealed.age", identity);

        zulcore::seal::seal_file_with_password("password.age", file, "correct horse", ZUL_SEAL_ARMOUR);
        zulcore::seal::open_file_with_password("opened_2", "password.age", "correct horse");
        // --8<-- [end:seal]
        const zulcore::Bytes digest = zulcore::hash_file(file);
        if (zulcore::hash_file("opened_1") != digest || zulcore::hash_file("opened_2") != digest) {
            std::cerr << "not the same file\n";
            return 1;
        }
        std::cout << "sealed for " << recipient << " and opened\n";
    } catch (const zulcore::Error& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
