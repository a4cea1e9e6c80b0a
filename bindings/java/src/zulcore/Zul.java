package zulcore;

import static zulcore.Call.LIBRARY;
import static zulcore.Call.check;
import static zulcore.Call.checkStatus;

import com.sun.jna.Memory;
import com.sun.jna.Pointer;
import java.io.File;
import java.io.IOException;
import java.io.InputStream;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.Arrays;

/**
 * The usual functions. Names of files and certificates ("file or PEM") are texts; lists of them are joined by ";". What the
 * library refuses is thrown as {@link ZulException}.
 */
public final class Zul {
    private static final int PIECE = 65536;
    private static final int LONGEST_REPORT = 64 << 20;
    private static final int TAG_AND_NONCE = 28;
    private static final int TAG = 16;

    private Zul() {
    }

    /** The library itself, for what is not here. */
    public static Zulcore library() {
        return LIBRARY;
    }

    /** Throws for a negative result: for functions of the library that return a length. */
    public static int checkLength(int result) {
        return check(result);
    }

    /** Throws for any result but 0: for functions of the library that return a status. */
    public static void checkResult(int status) {
        checkStatus(status);
    }

    public static int version() {
        return LIBRARY.ZUL_Version(null, null);
    }

    // Digests

    public static byte[] hash(String algorithm, byte[] data) {
        try (Digest digest = Digest.hash(algorithm)) {
            return digest.add(data).finish();
        }
    }

    public static byte[] hashFile(String algorithm, Path file) throws IOException {
        try (Digest digest = Digest.hash(algorithm); InputStream stream = Files.newInputStream(file)) {
            return digest.add(stream).finish();
        }
    }

    public static byte[] hmac(String algorithm, byte[] key, byte[] data) {
        try (Digest digest = Digest.hmac(algorithm, key)) {
            return digest.add(data).finish();
        }
    }

    // Encryption with a key

    /** AES-256-GCM with a random nonce, which stands before the result. */
    public static byte[] encrypt(byte[] key, byte[] data, byte[] aad) {
        return encrypt("aes-256-gcm", key, data, aad, null);
    }

    public static byte[] decrypt(byte[] key, byte[] data, byte[] aad) {
        return decrypt("aes-256-gcm", key, data, aad, null);
    }

    /** A null nonce is a random one before the result. */
    public static byte[] encrypt(String algorithm, byte[] key, byte[] data, byte[] aad, byte[] nonce) {
        byte[] given = nonce == null ? new byte[0] : nonce;
        int option = nonce == null ? Zulcore.ZUL_AEAD_RANDOM_NONCE : 0;
        int size = Math.addExact(data.length, TAG_AND_NONCE);
        try (Call call = new Call()) {
            Memory room = call.room(size);
            return Call.copy(room, check(LIBRARY.AEAD_Encrypt(room, size, call.bytes(data), data.length, call.bytes(key),
                    key.length, call.bytes(given), given.length, call.bytes(aad), aad.length, call.utf8(algorithm),
                    option)));
        }
    }

    public static byte[] decrypt(String algorithm, byte[] key, byte[] data, byte[] aad, byte[] nonce) {
        byte[] given = nonce == null ? new byte[0] : nonce;
        int option = nonce == null ? Zulcore.ZUL_AEAD_RANDOM_NONCE : 0;
        int size = Math.max(data.length - TAG, 0);
        try (Call call = new Call()) {
            Memory room = call.room(size);
            return Call.copy(room, check(LIBRARY.AEAD_Decrypt(room, size, call.bytes(data), data.length, call.bytes(key),
                    key.length, call.bytes(given), given.length, call.bytes(aad), aad.length, call.utf8(algorithm),
                    option)));
        }
    }

    // Keys from passwords and from other keys

    public static byte[] pbkdf2(int size, byte[] password, byte[] salt, int iterations, String hash) {
        try (Call call = new Call()) {
            Memory room = call.room(size);
            return Call.copy(room, check(LIBRARY.KDF_Pbkdf2(room, size, call.bytes(password), password.length,
                    call.bytes(salt), salt.length, iterations, call.utf8(hash))));
        }
    }

    public static byte[] hkdf(int size, byte[] key, byte[] salt, byte[] info, String hash) {
        try (Call call = new Call()) {
            Memory room = call.room(size);
            return Call.copy(room, check(LIBRARY.KDF_Hkdf(room, size, call.bytes(key), key.length, call.bytes(salt),
                    salt.length, call.bytes(info), info.length, call.utf8(hash))));
        }
    }

    public static byte[] scrypt(int size, byte[] password, byte[] salt, int n, int r, int p) {
        try (Call call = new Call()) {
            Memory room = call.room(size);
            return Call.copy(room, check(LIBRARY.KDF_Scrypt(room, size, call.bytes(password), password.length,
                    call.bytes(salt), salt.length, n, r, p)));
        }
    }

    public static byte[] argon2id(int size, byte[] password, byte[] salt, int memoryKiB, int passes, int lanes) {
        try (Call call = new Call()) {
            Memory room = call.room(size);
            return Call.copy(room, check(LIBRARY.KDF_Argon2id(room, size, call.bytes(password), password.length,
                    call.bytes(salt), salt.length, memoryKiB, passes, lanes)));
        }
    }

    // Random numbers and wiping

    public static byte[] randomBytes(int count) {
        byte[] result = new byte[count];
        try (Call call = new Call()) {
            Memory room = call.room(PIECE);
            for (int done = 0; done < count; done += PIECE) {
                int piece = Math.min(PIECE, count - done);
                checkStatus(LIBRARY.RNG_Bytes(room, piece, null, 0));
                room.read(0, result, done, piece);
            }
        }
        return result;
    }

    /** A uniform number from lower to upper, both included. */
    public static int randomNumber(int lower, int upper) {
        if (lower > upper || (long) upper - lower >= 0xffffffffL) {
            throw new ZulException(Zulcore.OUT_OF_RANGE_ERROR, "no such range of numbers");
        }
        return LIBRARY.RNG_Number(lower, upper);
    }

    public static void wipe(byte[] data) {
        Arrays.fill(data, (byte) 0);
    }

    public static void wipeFile(String file) {
        try (Call call = new Call()) {
            checkStatus(LIBRARY.WIPE_File(call.name(file), 0));
        }
    }

    // Sealed files. Recipients and identities: keys "age1..." and "AGE-SECRET-KEY-1..." or names of files of them.

    /** An identity is a private key: write it where nobody else reads it. */
    public static String makeIdentity() {
        try (Call call = new Call()) {
            int length = check(LIBRARY.SEAL_MakeIdentity(null, 0, 0));
            Memory room = call.room(length);
            return Call.text(room, check(LIBRARY.SEAL_MakeIdentity(room, length, 0)));
        }
    }

    public static String recipient(String identity) {
        try (Call call = new Call()) {
            Pointer source = call.name(identity);
            int length = check(LIBRARY.SEAL_Recipient(null, 0, source));
            Memory room = call.room(length);
            return Call.text(room, check(LIBRARY.SEAL_Recipient(room, length, source)));
        }
    }

    public static void sealFile(String fileOut, String fileIn, String recipients, int options) {
        try (Call call = new Call()) {
            checkStatus(LIBRARY.SEAL_File(call.name(fileOut), call.name(fileIn), call.name(recipients), null, options));
        }
    }

    public static void sealFile(String fileOut, String fileIn, char[] password, int options) {
        try (Call call = new Call()) {
            checkStatus(LIBRARY.SEAL_File(call.name(fileOut), call.name(fileIn), null, call.secret(password), options));
        }
    }

    public static void openFile(String fileOut, String fileIn, String identities) {
        try (Call call = new Call()) {
            checkStatus(LIBRARY.SEAL_OpenFile(call.name(fileOut), call.name(fileIn), call.name(identities), null, 0));
        }
    }

    public static void openFile(String fileOut, String fileIn, char[] password) {
        try (Call call = new Call()) {
            checkStatus(LIBRARY.SEAL_OpenFile(call.name(fileOut), call.name(fileIn), null, call.secret(password), 0));
        }
    }

    /** A function that writes a file. */
    public interface FileWriter {
        void write(String file) throws IOException;
    }

    /**
     * Has a file written in a private folder that is removed, and gives what is in it:
     * output(file -&gt; Zul.selfSign(file, key, description)). It is not for secrets.
     */
    public static byte[] output(FileWriter writer) throws IOException {
        Path folder = Files.createTempDirectory("zulcore");
        Path file = folder.resolve("output");
        try {
            writer.write(file.toString());
            return Files.readAllBytes(file);
        } finally {
            Files.deleteIfExists(file);
            Files.delete(folder);
        }
    }

    // Certificates, requests and CRLs, described by keyword=value pairs: "CN=Alice;profile=client"

    public static void selfSign(String certOut, Key key, String description) {
        try (Call call = new Call()) {
            checkStatus(LIBRARY.CERT_SelfSign(call.name(certOut), key.pointer(), call.utf8(description), 0));
        }
    }

    public static void request(String requestOut, Key key, String description) {
        try (Call call = new Call()) {
            checkStatus(LIBRARY.CERT_Request(call.name(requestOut), key.pointer(), call.utf8(description), 0));
        }
    }

    /** For the subject of a request. */
    public static void issue(String certOut, String issuerCert, Key issuerKey, String request, String description) {
        try (Call call = new Call()) {
            checkStatus(LIBRARY.CERT_Issue(call.name(certOut), call.name(issuerCert), issuerKey.pointer(),
                    call.name(request), call.utf8OrNull(description), 0));
        }
    }

    /** For the owner of a key. */
    public static void issue(String certOut, String issuerCert, Key issuerKey, Key subjectKey, String description) {
        try (Call call = new Call()) {
            checkStatus(LIBRARY.CERT_Issue(call.name(certOut), call.name(issuerCert), issuerKey.pointer(),
                    subjectKey.pointer(), call.utf8OrNull(description), 0));
        }
    }

    /** Goes on from an earlier list. What is revoked, the description and the earlier list may be null. */
    public static void issueCrl(String crlOut, String issuerCert, Key issuerKey, String revoked, String description,
            String earlierCrl) {
        try (Call call = new Call()) {
            checkStatus(LIBRARY.CERT_IssueCRL(call.name(crlOut), call.name(issuerCert), issuerKey.pointer(),
                    call.nameOrNull(earlierCrl), call.utf8OrNull(revoked), call.utf8OrNull(description), 0));
        }
    }

    public static String certQuery(String cert, String query) {
        try (Call call = new Call()) {
            Pointer source = call.name(cert);
            Pointer word = call.utf8(query);
            int length = check(LIBRARY.CERT_Query(null, 0, source, word, 0));
            Memory room = call.room(length);
            return length == 0 ? "" : Call.text(room, check(LIBRARY.CERT_Query(room, length, source, word, 0)));
        }
    }

    /** A text for reading, or JSON with ZUL_CERT_JSON. */
    public static String certReport(String fileOrText, int options) {
        try (Call call = new Call()) {
            Pointer source = call.name(fileOrText);
            int length = check(LIBRARY.CERT_Report(null, 0, source, options));
            Memory room = call.room(length);
            return Call.text(room, check(LIBRARY.CERT_Report(room, length, source, options)));
        }
    }

    /** Throws unless the certificate is for a host, address or mailbox. */
    public static void checkName(String cert, String hostOrAddress) {
        try (Call call = new Call()) {
            checkStatus(LIBRARY.CERT_CheckName(call.name(cert), call.utf8(hostOrAddress), 0));
        }
    }

    /**
     * Throws unless the certificate can be relied on; gives the report, which is also appended to a given builder before
     * anything is thrown. A path ends at one of trusted and may lead through others. Lists are joined by ";", and all but
     * cert and trusted may be null.
     */
    public static String checkPath(String cert, String trusted, String others, String evidence, String conditions,
            int options, StringBuilder reportOut) {
        for (int size = 1 << 20;; size *= 8) {
            try (Call call = new Call()) {
                Memory room = call.room(size);
                int status = LIBRARY.CERT_CheckPath(room, size, call.name(cert), call.nameOrNull(others),
                        call.name(trusted), call.nameOrNull(evidence), call.utf8OrNull(conditions), options);
                // A text that fills so much of the room may have been cut.
                boolean isShort = status == Zulcore.SHORT_BUF_ERROR || room.indexOf(0, (byte) 0) > size / 2;
                if (isShort && size < LONGEST_REPORT) {
                    continue;
                }
                String report = room.getString(0, "UTF-8");
                if (reportOut != null) {
                    reportOut.append(report);
                }
                checkStatus(status);
                return report;
            }
        }
    }

    // PKCS #12 files, which Key.unpackP12 reads

    /** The key and the name may be null. */
    public static void p12Pack(String fileOut, String certs, Key key, char[] password, String name, int options) {
        try (Call call = new Call()) {
            checkStatus(LIBRARY.P12_Pack(call.name(fileOut), call.nameOrNull(certs), key == null ? null : key.pointer(),
                    call.secret(password), call.utf8OrNull(name), options));
        }
    }

    public static String p12List(String file, char[] password, int options) {
        try (Call call = new Call()) {
            Pointer source = call.name(file);
            Pointer secret = call.secret(password);
            int length = check(LIBRARY.P12_List(null, 0, source, secret, options));
            Memory room = call.room(length);
            return Call.text(room, check(LIBRARY.P12_List(room, length, source, secret, options)));
        }
    }

    // Messages (CMS) with RSA keys

    /** Certs: the signer's first. */
    public static void cmsSign(String fileOut, String fileIn, String certs, Key key) {
        try (Call call = new Call()) {
            checkStatus(LIBRARY.CMS_MakeSigData(call.name(fileOut), call.name(fileIn), call.name(certs), key.pointer(),
                    Zulcore.ZUL_HASH_SHA256));
        }
    }

    /** Throws unless the signature verifies. If the signer's certificate is null, anybody in the message can have signed. */
    public static void cmsVerify(String fileIn, String signerCert) {
        try (Call call = new Call()) {
            if (signerCert != null && signerCert.isEmpty()) {
                throw new ZulException(Zulcore.BAD_PARAM_ERROR, "an empty text for a certificate");
            }
            checkStatus(LIBRARY.CMS_VerifySigData(call.name(fileIn), call.nameOrNull(signerCert), null, 0));
        }
    }

    public static void cmsContent(String fileOut, String fileIn) {
        try (Call call = new Call()) {
            check(LIBRARY.CMS_ReadSigData(call.name(fileOut), call.name(fileIn), 0));
        }
    }

    /** Throws, and leaves no message, unless the owners of all certificates can read it; there may be ten. */
    public static void cmsEncrypt(String fileOut, String fileIn, String... certs) {
        if (certs.length < 1 || certs.length > 10) {
            throw new ZulException(Zulcore.OUT_OF_RANGE_ERROR, "a message has 1 to 10 recipients");
        }
        for (String cert : certs) {
            if (cert.isEmpty() || cert.contains(";")) {
                throw new ZulException(Zulcore.BAD_PARAM_ERROR, "a certificate without a name, or with a ';' in it");
            }
        }
        try (Call call = new Call()) {
            int served = check(LIBRARY.CMS_MakeEnvData(call.name(fileOut), call.name(fileIn),
                    call.name(String.join(";", certs)), null, 0, Zulcore.ZUL_CMS_CIPHER_AES256));
            if (served != certs.length) {
                try {
                    checkStatus(Zulcore.BAD_KEY_ERROR); // the library's text tells the certificate
                } finally {
                    new File(fileOut).delete();
                }
            }
        }
    }

    /** The certificate may be null. */
    public static void cmsDecrypt(String fileOut, String fileIn, Key key, String cert) {
        try (Call call = new Call()) {
            check(LIBRARY.CMS_ReadEnvData(call.name(fileOut), call.name(fileIn), call.nameOrNull(cert), key.pointer(),
                    0));
        }
    }
}
