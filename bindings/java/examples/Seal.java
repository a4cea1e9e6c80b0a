import java.nio.file.Files;
import java.nio.file.Path;
import zulcore.Zul;
import zulcore.Zulcore;

/** Seal FILE: encrypts a file for a recipient and under a password, and opens both again. */
public final class Seal {
    public static void main(String[] arguments) throws Exception {
        String file = arguments[0];
        // --8<-- [start:seal]
        String identity = Zul.makeIdentity(); // the private key: keep it
        Zul.sealFile("sealed.age", file, Zul.recipient(identity), 0);
        Zul.openFile("opened_1", "sealed.age", identity);

        char[] password = "correct horse".toCharArray();
        Zul.sealFile("password.age", file, password, Zulcore.ZUL_SEAL_ARMOUR);
        Zul.openFile("opened_2", "password.age", password);
        // --8<-- [end:seal]
        for (String opened : new String[] {"opened_1", "opened_2"}) {
            if (Files.mismatch(Path.of(file), Path.of(opened)) >= 0) {
                throw new AssertionError(opened);
            }
        }
        System.out.println("sealed and opened");
    }
}
