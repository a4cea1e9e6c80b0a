import static java.nio.charset.StandardCharsets.UTF_8;

import zulcore.Key;

/** Signs a message and verifies the signature. */
public final class Sign {
    public static void main(String[] arguments) {
        // --8<-- [start:sign]
        byte[] message = "Pay Alice 100".getBytes(UTF_8);
        try (Key mine = Key.generate("ed25519"); Key theirs = mine.publicKey()) { // what the receiver has
            byte[] signature = mine.sign(message);
            theirs.verify(signature, message); // throws if it does not verify
            System.out.println("good signature by " + theirs);
        }
        // --8<-- [end:sign]
    }
}
