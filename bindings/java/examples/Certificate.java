import zulcore.Key;
import zulcore.Zul;

/** Makes a key and the certificate of a server, issued by an authority. */
public final class Certificate {
    public static void main(String[] arguments) {
        // --8<-- [start:certificate]
        try (Key authority = Key.generate("p-256"); Key server = Key.generate("p-256")) {
            authority.save("root.key", "correct horse".toCharArray());
            Zul.selfSign("root.pem", authority, "C=AU;O=Example;CN=Example Root;profile=ca");
            Zul.issue("server.pem", "root.pem", authority, server,
                    "CN=www.example.com;dns=www.example.com;profile=server");
        }

        Zul.checkPath("server.pem", "root.pem", null, null, "host=www.example.com;purpose=server", 0, null);
        System.out.println(Zul.certQuery("server.pem", "subject") + ", " + Zul.certQuery("server.pem", "dns"));
        // --8<-- [end:certificate]
    }
}
