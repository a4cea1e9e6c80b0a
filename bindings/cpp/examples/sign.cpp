// sign: signs a message and checks the signature, of the message and of another one.
#include <iostream>

#include "zulcore.hpp"

int main() {
    try {
        // --8<-- [start:sign]
        const auto key = zulcore::Key::generate("ed25519");
        const zulcore::Bytes signature = key.sign("Meet me at noon.");

        // Whoever has the public key can check it; a wrong signature is an exception.
        const auto known = zulcore::Key::read(key.public_pem());
        known.verify(signature, "Meet me at noon.");
        // --8<-- [end:sign]
        std::cout << "good signature: " << zulcore::to_hex(signature) << '\n';
        known.verify(signature, "Meet me at nine.");
        std::cerr << "a wrong signature was taken\n";
        return 1;
    } catch (const zulcore::Error& error) {
        std::cout << "another message: " << error.what() << '\n';
        return error.code() == SIGNATURE_ERROR ? 0 : 1;
    }
}
