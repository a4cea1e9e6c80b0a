import java.io.ByteArrayInputStream;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.Arrays;
import java.util.HashMap;
import java.util.HexFormat;
import java.util.Map;
import zulcore.Digest;
import zulcore.Key;
import zulcore.Zul;
import zulcore.ZulException;
import zulcore.Zulcore;

/** BindingsTest VECTORS: what bindings/java computes and refuses. */
public final class BindingsTest {
    private interface Action {
        void run() throws Exception;
    }

    private static final byte[] NONE = {};
    private static int faults;

    private static void claim(boolean good, String what) {
        if (!good) {
            faults++;
            System.out.println("FAULT: " + what);
        }
    }

    private static void refused(int code, String what, Action action) throws Exception {
        try {
            action.run();
            claim(false, what + ": not refused");
        } catch (ZulException error) {
            claim(error.code() == code && !error.text().isEmpty() && error.getMessage().startsWith(error.name()),
                    what + ": " + error.getMessage());
        }
    }

    private static byte[] ascii(String text) {
        return text.getBytes(StandardCharsets.US_ASCII);
    }

    private static final class Vector extends HashMap<String, String> {
        private static final long serialVersionUID = 1;

        byte[] bytes(String name) {
            return HexFormat.of().parseHex(getOrDefault(name, ""));
        }

        int number(String name) {
            return Integer.parseInt(get(name));
        }

        private void verify() {
            try (Key key = Key.read(new String(bytes("Key"), StandardCharsets.US_ASCII), null)) {
                key.verify(bytes("Signature"), bytes("Message"), get("Algorithm"), 0);
            }
        }

        private byte[] encrypt() {
            return Zul.encrypt(get("Algorithm"), bytes("Key"), bytes("Message"), bytes("Aad"), bytes("Nonce"));
        }

        private byte[] decrypt(byte[] message) {
            return Zul.decrypt(get("Algorithm"), bytes("Key"), message, bytes("Aad"), bytes("Nonce"));
        }

        private byte[] result() {
            int size = bytes("Result").length;
            switch (get("Kind")) {
                case "hash":
                    return Zul.hash(get("Algorithm"), bytes("Message"));
                case "hmac":
                    return Zul.hmac(get("Algorithm"), bytes("Key"), bytes("Message"));
                case "pbkdf2":
                    return Zul.pbkdf2(size, bytes("Password"), bytes("Salt"), number("Iterations"), get("Hash"));
                case "hkdf":
                    return Zul.hkdf(size, bytes("Key"), bytes("Salt"), bytes("Info"), get("Hash"));
                case "scrypt":
                    return Zul.scrypt(size, bytes("Password"), bytes("Salt"), number("N"), number("R"), number("P"));
                case "aead":
                    claim(Arrays.equals(decrypt(encrypt()), bytes("Message")), "decryption, " + this);
                    return encrypt();
                case "verify":
                    verify();
                    return NONE;
                default:
                    throw new IllegalStateException("a record of an unknown kind: " + this);
            }
        }

        void run() throws Exception {
            switch (get("Kind")) {
                case "verify-refused":
                    refused(number("Error"), "verification", this::verify);
                    break;
                case "aead-refused":
                    if (number("Error") == Zulcore.BAD_KEY_LEN_ERROR) {
                        refused(number("Error"), "a key", this::encrypt);
                    } else {
                        refused(number("Error"), "decryption", () -> decrypt(bytes("Message")));
                    }
                    break;
                default:
                    claim(Arrays.equals(result(), bytes("Result")), toString());
            }
        }
    }

    private static void vectors(Path file) throws Exception {
        int count = 0;
        for (String record : Files.readString(file).split("\n\n+")) {
            Vector vector = new Vector();
            for (String line : record.split("\n")) {
                int end = line.indexOf(" =");
                if (!line.startsWith("#") && end > 0) {
                    vector.put(line.substring(0, end), line.substring(end + 2).strip());
                }
            }
            if (!vector.isEmpty()) {
                vector.run();
                count++;
            }
        }
        claim(count > 30, "too few records");
    }

    private static void digests() throws Exception {
        try (Digest digest = Digest.hash("shake128")) {
            refused(Zulcore.OUT_OF_RANGE_ERROR, "no length", () -> digest.finish(0));
            digest.add(ascii("ab")).add(NONE).add(new ByteArrayInputStream(ascii("c")));
            claim(HexFormat.of().formatHex(digest.finish(8)).equals("5881092dd818bf5c"), "shake128 in pieces");
            refused(Zulcore.INVALID_DATA_ERROR, "an ended digest", () -> digest.add(ascii("c")));
        }
        Digest mac = Digest.hmac("sha256", ascii("Jefe"));
        mac.close();
        refused(Zulcore.INVALID_DATA_ERROR, "a closed digest", mac::finish);
    }

    private static void encryption() throws Exception {
        byte[] data = Zul.randomBytes(70000);
        byte[] key = Zul.randomBytes(32);
        claim(Arrays.equals(Zul.decrypt(key, Zul.encrypt(key, data, NONE), NONE), data), "a random nonce");
        byte[] empty = Zul.encrypt(key, NONE, ascii("aad"));
        claim(Zul.decrypt(key, empty, ascii("aad")).length == 0, "an empty message");
        refused(Zulcore.DECRYPT_ERROR, "other data beside it", () -> Zul.decrypt(key, empty, ascii("add")));
        refused(Zulcore.BAD_LENGTH_ERROR, "too short", () -> Zul.decrypt(key, NONE, NONE));
        refused(Zulcore.OUT_OF_RANGE_ERROR, "no range", () -> Zul.randomNumber(2, 1));
        claim(Zul.randomBytes(0).length == 0 && Zul.randomNumber(3, 3) == 3, "bounds of random numbers");
    }

    private static void keys() throws Exception {
        char[] password = "p\u00e9".toCharArray();
        try (Key mine = Key.generate("x25519"); Key theirs = Key.generate("X25519")) {
            mine.save("x.pem", password, "iterations=1000", Zulcore.ZUL_KEY_FORMAT_PEM);
            try (Key read = Key.read("x.pem", password); Key open = mine.publicKey()) {
                claim(read.isPrivate() && read.matches(open) && !read.matches(theirs), "a key saved and read");
                claim(Arrays.equals(mine.agree(theirs), theirs.agree(open)), "agreement");
                open.save("x.pub", null);
                claim(Key.read(Files.readString(Path.of("x.pub")), null).fingerprint().equals(mine.fingerprint()),
                        "a public key as text");
            }
            claim(mine.toString().equals("private x25519 key of 256 bits") && mine.curve().equals("x25519"), "" + mine);
            mine.check();
            mine.close();
            claim(mine.toString().equals("closed key"), "a closed key");
            refused(Zulcore.INVALID_DATA_ERROR, "a closed key", mine::publicKey);
            refused(Zulcore.BAD_PARAM_ERROR, "no password", () -> theirs.save("open.pem", null));
            refused(Zulcore.BAD_PARAM_ERROR, "a zero in a name", () -> theirs.saveUnencrypted("x\0y"));
            refused(Zulcore.BAD_PARAM_ERROR, "half of a character", () -> Key.generate("\ud834"));
        }
        claim(!Files.exists(Path.of("open.pem")), "an unencrypted key");
        refused(Zulcore.BAD_PARAM_ERROR, "a zero in a password", () -> Key.read("x.pem", "p\0q".toCharArray()));
        refused(Zulcore.DECRYPT_ERROR, "a wrong password", () -> Key.read("x.pem", "wrong".toCharArray()));
    }

    private static void certificates() throws Exception {
        try (Key root = Key.generate("rsa-2048"); Key leaf = Key.generate("rsa-2048")) {
            Zul.selfSign("root.pem", root, "CN=R\u00f6t;profile=ca");
            Zul.request("leaf.req", leaf, "CN=leaf;dns=leaf.example");
            Zul.issue("leaf.pem", "root.pem", root, "leaf.req", "profile=server;copy=subjectAltName;serial=77");
            claim(Zul.certQuery("root.pem", "subject").equals("CN=R\u00f6t"), "a subject in UTF-8");
            claim(Zul.certQuery("leaf.pem", "crl").isEmpty(), "an empty answer");
            claim(Zul.certReport("leaf.pem", Zulcore.ZUL_CERT_JSON).contains("\"leaf.example\""), "report");
            String[] file = new String[1];
            byte[] pem = Zul.output(name -> Zul.issue(file[0] = name, "root.pem", root, leaf, "CN=bytes"));
            claim(Zul.certQuery(new String(pem, StandardCharsets.US_ASCII), "subject").equals("CN=bytes"), "bytes");
            claim(!Files.exists(Path.of(file[0]).getParent()), "a folder that stays");
            Zul.checkName("leaf.pem", "leaf.example");
            claim(!Zul.checkPath("leaf.pem", "root.pem", null, null, "host=leaf.example", 0, null).isEmpty(), "a path");
            Zul.selfSign("other.pem", leaf, "CN=other;profile=ca");
            refused(Zulcore.ISSUER_ERROR, "an authority that is not trusted",
                    () -> Zul.checkPath("leaf.pem", "other.pem", "root.pem", null, null, 0, null));
            Zul.issueCrl("root.crl", "root.pem", root, "cert=leaf.pem", null, null);
            Zul.issueCrl("next.crl", "root.pem", root, null, "days=7", "root.crl");
            StringBuilder report = new StringBuilder();
            refused(Zulcore.BAD_KEY_ERROR, "a revoked certificate",
                    () -> Zul.checkPath("leaf.pem", "root.pem", null, "next.crl", null, Zulcore.ZUL_CERT_JSON, report));
            claim(report.toString().startsWith("{"), "the report of a refusal");
            refused(Zulcore.BAD_PARAM_ERROR, "a description", () -> Zul.selfSign("c", root, "CN=A;unknown=1"));

            char[] password = "secret".toCharArray();
            Zul.p12Pack("leaf.p12", "leaf.pem;root.pem", leaf, password, "Leaf", 0);
            try (Key unpacked = Key.unpackP12("leaf.p12", password, "certs.pem", 0)) {
                claim(unpacked.matches(leaf) && Zul.certQuery("certs.pem", "serialNumber").equals("77"), "PKCS #12");
            }
            claim(Zul.p12List("leaf.p12", password, 0).contains("\"Leaf\""), "a PKCS #12 list");

            Files.writeString(Path.of("abc"), "abc");
            Zul.cmsSign("abc.p7m", "abc", "leaf.pem", leaf);
            Zul.cmsVerify("abc.p7m", "leaf.pem");
            refused(Zulcore.BAD_PARAM_ERROR, "no signer by mistake", () -> Zul.cmsVerify("abc.p7m", ""));
            Zul.cmsContent("abc.read", "abc.p7m");
            Zul.cmsEncrypt("abc.env", "abc.read", "leaf.pem", "root.pem");
            try (Key elliptic = Key.generate("p-256")) {
                Zul.selfSign("ec.pem", elliptic, "CN=ec");
            }
            refused(Zulcore.BAD_KEY_ERROR, "a key that cannot encrypt",
                    () -> Zul.cmsEncrypt("none.env", "abc", "leaf.pem", "ec.pem"));
            claim(!Files.exists(Path.of("none.env")), "a message that not all can read");
            Zul.cmsDecrypt("abc.plain", "abc.env", leaf, "leaf.pem");
            claim(Files.readString(Path.of("abc.plain")).equals("abc"), "a message");
            leaf.verifyFile(leaf.signFile("abc", null, 0), "abc", null, 0);
            refused(Zulcore.SIGNATURE_ERROR, "another file",
                    () -> leaf.verifyFile(leaf.sign(ascii("abd")), "abc", null, 0));
        }
    }

    public static void main(String[] arguments) throws Exception {
        claim(Zul.version() > 0, "version");
        vectors(Path.of(arguments[0]));
        digests();
        encryption();
        keys();
        certificates();
        Files.writeString(Path.of("plain"), "plain");
        Zul.sealFile("plain.age", "plain", Zul.recipient(Zul.makeIdentity()), 0);
        refused(Zulcore.NO_MATCH_ERROR, "another identity",
                () -> Zul.openFile("plain.opened", "plain.age", Zul.makeIdentity()));
        Zul.wipeFile("plain");
        claim(!Files.exists(Path.of("plain")), "a wiped file");
        System.out.println(faults == 0 ? "good" : "bad");
        System.exit(faults == 0 ? 0 : 1);
    }
}
