// error: reads a key that is not there, and tells why that fails.
#include <iostream>

#include "zulcore.hpp"

int main() {
    // --8<-- [start:error]
    try {
        const auto key = zulcore::Key::read("no_such_file.pem");
        std::cout << key << '\n';
    } catch (const zulcore::Error& error) {
        std::cout << error.name() << ", " << error.code() << ": " << error.text() << '\n';
        std::cout << error.detail() << '\n'; // what this call had to say, often nothing
        std::cout << error.what() << '\n';   // all of it
        return error.code() == OPEN_ERROR ? 0 : 1;
    }
    // --8<-- [end:error]
    return 1;
}
