// certificate: makes a key (server_key.pem) and a certificate (server.pem), and looks at it.
#include <iostream>

#include "zulcore.hpp"

int main() {
    try {
        // --8<-- [start:certificate]
        const auto key = zulcore::Key::generate("p-256");
        key.save("server_key.pem", "correct horse");
        zulcore::cert::self_sign_file("server.pem", key,
                                      "C=AU;O=Example;CN=www.example.com;dns=www.example.com;profile=server");

        std::cout << key << '\n';
        std::cout << zulcore::cert::query("server.pem", "subject") << '\n';
        zulcore::cert::check_name("server.pem", "www.example.com");
        // --8<-- [end:certificate]
        if (!zulcore::Key::read("server_key.pem", "correct horse")
                 .matches(zulcore::Key::read("server.pem"))) {
            std::cerr << "another key\n";
            return 1;
        }
    } catch (const zulcore::Error& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
