package zulcore;

import static zulcore.Call.LIBRARY;
import static zulcore.Call.checkStatus;

import com.sun.jna.Memory;
import com.sun.jna.Pointer;

/**
 * A key of any kind. It is wiped when it is closed and means nothing outside of this process. Threads may use it at once,
 * but none may close it while another one uses it.
 */
public final class Key implements AutoCloseable {
    private static final int LONGEST = 90000;

    private Memory text;

    // A key string is read into room for the longest at once: a query would derive the key of an encrypted file twice.
    private Key(Memory room, int length) {
        Call.check(length);
        text = new Memory(length + 1);
        text.clear();
        text.getByteBuffer(0, length).put(room.getByteBuffer(0, length));
    }

    /** "rsa" (3072 bits), "rsa-4096", "p-256", "p-384", "p-521", "ed25519" or "x25519". */
    public static Key generate(String kind) {
        try (Call call = new Call()) {
            Memory room = call.room(LONGEST);
            return new Key(room, LIBRARY.KEY_Make(room, LONGEST, call.utf8(kind), 0));
        }
    }

    /** From a file or PEM of a key, certificate or request. The password may be null. */
    public static Key read(String fileOrText, char[] password) {
        try (Call call = new Call()) {
            Memory room = call.room(LONGEST);
            return new Key(room, LIBRARY.KEY_Read(room, LONGEST, call.name(fileOrText), call.secret(password), 0));
        }
    }

    /** A key of a PKCS #12 file, whose certificates are written to certsOut unless that is null. */
    public static Key unpackP12(String file, char[] password, String certsOut, int number) {
        try (Call call = new Call()) {
            Memory room = call.room(LONGEST);
            checkStatus(LIBRARY.P12_Unpack(call.nameOrNull(certsOut), room, LONGEST, call.name(file),
                    call.secret(password), number));
            return new Key(room, (int) room.indexOf(0, (byte) 0));
        }
    }

    /** The key string for functions of {@link Zulcore}; valid until the key is closed. */
    public Pointer pointer() {
        if (text == null) {
            throw new ZulException(Zulcore.INVALID_DATA_ERROR, "the key is closed");
        }
        return text;
    }

    @Override
    public void close() {
        if (text != null) {
            text.clear();
            text.close();
            text = null;
        }
    }

    /** Writes PEM: a public key as it is (the password is null), a private key encrypted under a password. */
    public void save(String file, char[] password) {
        if (password == null && isPrivate()) {
            throw new ZulException(Zulcore.BAD_PARAM_ERROR, "a private key without a password");
        }
        save(file, password, null, Zulcore.ZUL_KEY_FORMAT_PEM);
    }

    public void saveUnencrypted(String file) {
        save(file, null, null, Zulcore.ZUL_KEY_FORMAT_PEM);
    }

    /** Parameters of the encryption and options as KEY_Save has them. */
    public void save(String file, char[] password, String parameters, int options) {
        try (Call call = new Call()) {
            checkStatus(LIBRARY.KEY_Save(call.name(file), pointer(), call.secret(password), call.utf8OrNull(parameters),
                    options));
        }
    }

    public Key publicKey() {
        try (Call call = new Call()) {
            Memory room = call.room(LONGEST);
            return new Key(room, LIBRARY.KEY_Public(room, LONGEST, pointer()));
        }
    }

    /** "algorithm", "curve", "bits", "isPrivate", "fingerprint" and others. */
    public String query(String item) {
        try (Call call = new Call()) {
            Pointer word = call.utf8(item);
            boolean isNumber = Call.check(LIBRARY.KEY_Query(null, 0, pointer(), word, Zulcore.ZUL_QUERY_GETTYPE)) == 1;
            int length = Call.check(LIBRARY.KEY_Query(null, 0, pointer(), word, 0));
            if (isNumber || length == 0) {
                return isNumber ? Integer.toString(length) : "";
            }
            Memory room = call.room(length);
            return Call.text(room, Call.check(LIBRARY.KEY_Query(room, length, pointer(), word, 0)));
        }
    }

    public String algorithm() {
        return query("algorithm");
    }

    public String curve() {
        return query("curve");
    }

    public int bits() {
        return Integer.parseInt(query("bits"));
    }

    public boolean isPrivate() {
        return query("isPrivate").equals("1");
    }

    public String fingerprint() {
        return query("fingerprint");
    }

    /** Whether this private key belongs to a public one. */
    public boolean matches(Key other) {
        int status = LIBRARY.KEY_Match(pointer(), other.pointer());
        if (status != Zulcore.NO_MATCH_ERROR) {
            checkStatus(status);
        }
        return status == 0;
    }

    /** Throws unless the key's values are valid and belong together. */
    public void check() {
        checkStatus(LIBRARY.KEY_Check(pointer(), 0));
    }

    public byte[] sign(byte[] data) {
        return sign(data, null, 0);
    }

    /** The algorithm may be null: that of the kind of key. */
    public byte[] sign(byte[] data, String algorithm, int options) {
        try (Call call = new Call()) {
            Pointer alg = call.utf8OrNull(algorithm);
            Pointer input = call.bytes(data);
            int length = Call.check(LIBRARY.SIG_Sign(null, 0, input, data.length, pointer(), alg, options));
            Memory room = call.room(length);
            return Call.copy(room, Call.check(
                    LIBRARY.SIG_Sign(room, length, input, data.length, pointer(), alg, options)));
        }
    }

    public byte[] signFile(String file, String algorithm, int options) {
        try (Call call = new Call()) {
            Pointer alg = call.utf8OrNull(algorithm);
            Pointer input = call.name(file);
            int length = Call.check(LIBRARY.SIG_SignFile(null, 0, input, pointer(), alg, options));
            Memory room = call.room(length);
            return Call.copy(room, Call.check(LIBRARY.SIG_SignFile(room, length, input, pointer(), alg, options)));
        }
    }

    /** Throws unless the signature verifies. */
    public void verify(byte[] signature, byte[] data) {
        verify(signature, data, null, 0);
    }

    public void verify(byte[] signature, byte[] data, String algorithm, int options) {
        try (Call call = new Call()) {
            checkStatus(LIBRARY.SIG_Verify(call.bytes(signature), signature.length, call.bytes(data), data.length,
                    pointer(), call.utf8OrNull(algorithm), options));
        }
    }

    public void verifyFile(byte[] signature, String file, String algorithm, int options) {
        try (Call call = new Call()) {
            checkStatus(LIBRARY.SIG_VerifyFile(call.bytes(signature), signature.length, call.name(file), pointer(),
                    call.utf8OrNull(algorithm), options));
        }
    }

    /** The secret shared with the owner of another key: derive a key from it with {@link Zul#hkdf}. */
    public byte[] agree(Key other) {
        try (Call call = new Call()) {
            int length = Call.check(LIBRARY.KEY_Agree(null, 0, pointer(), other.pointer(), 0));
            Memory room = call.room(length);
            return Call.copy(room, Call.check(LIBRARY.KEY_Agree(room, length, pointer(), other.pointer(), 0)));
        }
    }

    /** Kind and bits, never the key. */
    @Override
    public String toString() {
        if (text == null) {
            return "closed key";
        }
        return (isPrivate() ? "private " : "public ") + algorithm() + " key of " + bits() + " bits";
    }
}
