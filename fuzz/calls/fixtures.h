#pragma once
// One object of every kind, made by the library itself in the working folder, and texts that its functions
// meet.
#include <string>
#include <vector>

namespace endurance {

struct Fixtures {
    struct Object {
        std::string name;
        std::string content;
    };
    std::vector<Object> files;
    std::vector<std::string> privateKeys, publicKeys; // key strings
    std::vector<std::string> texts;                   // PEM texts of objects
    std::string identity, recipient;
};

// make_fixtures ends the process with a message if a call fails.
Fixtures make_fixtures();

// restore_folder removes every file that is none of the objects, and writes the objects anew.
void restore_folder(const Fixtures& fixtures);

} // namespace endurance
