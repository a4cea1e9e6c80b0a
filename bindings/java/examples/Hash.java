import java.nio.file.Path;
import java.util.HexFormat;
import zulcore.Zul;

/** Hash FILE: prints the SHA-256 digest of a file. */
public final class Hash {
    public static void main(String[] arguments) throws Exception {
        // --8<-- [start:hash]
        byte[] digest = Zul.hashFile("sha256", Path.of(arguments[0]));
        System.out.println(HexFormat.of().formatHex(digest));
        // --8<-- [end:hash]
    }
}
