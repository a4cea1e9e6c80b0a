import zulcore.Key;
import zulcore.ZulException;
import zulcore.Zulcore;

/** Catches and prints an error. */
public final class Error {
    public static void main(String[] arguments) {
        // --8<-- [start:error]
        try (Key key = Key.read("missing.pem", null)) {
            System.out.println(key);
        } catch (ZulException error) {
            if (error.code() == Zulcore.OPEN_ERROR) {
                System.out.println("no such file: " + error.getMessage());
            } else {
                System.out.println(error.name() + " " + error.code() + ": " + error.text() + " " + error.detail());
            }
        }
        // --8<-- [end:error]
    }
}
