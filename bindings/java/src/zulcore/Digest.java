package zulcore;

import static zulcore.Call.LIBRARY;
import static zulcore.Call.check;

import com.sun.jna.Memory;
import com.sun.jna.Pointer;
import java.io.IOException;
import java.io.InputStream;

/** A digest or MAC of data in pieces, ended once; closing wipes it. */
public final class Digest implements AutoCloseable {
    private static final int PIECE = 65536;

    private final boolean isMac;
    private Memory context;

    private Digest(boolean isMac, int size) {
        this.isMac = isMac;
        context = new Memory(check(size));
        context.clear();
    }

    /** "sha256", "sha3-512", "shake128" and others. */
    public static Digest hash(String algorithm) {
        try (Call call = new Call()) {
            Pointer alg = call.utf8(algorithm);
            Digest digest = new Digest(false, LIBRARY.HASH_Begin(null, 0, alg, 0));
            check(LIBRARY.HASH_Begin(digest.context, (int) digest.context.size(), alg, 0));
            return digest;
        }
    }

    public static Digest hmac(String algorithm, byte[] key) {
        try (Call call = new Call()) {
            Pointer alg = call.utf8(algorithm);
            Pointer secret = call.bytes(key);
            Digest digest = new Digest(true, LIBRARY.HMAC_Begin(null, 0, secret, key.length, alg, 0));
            check(LIBRARY.HMAC_Begin(digest.context, (int) digest.context.size(), secret, key.length, alg, 0));
            return digest;
        }
    }

    private Memory context() {
        if (context == null) {
            throw new ZulException(Zulcore.INVALID_DATA_ERROR, "the digest is closed");
        }
        return context;
    }

    public Digest add(byte[] data) {
        try (Call call = new Call()) {
            Pointer input = call.bytes(data);
            Call.checkStatus(isMac ? LIBRARY.HMAC_Add(context(), input, data.length)
                    : LIBRARY.HASH_Add(context(), input, data.length));
            return this;
        }
    }

    public Digest add(InputStream stream) throws IOException {
        byte[] piece = new byte[PIECE];
        try {
            for (int count = stream.read(piece); count >= 0; count = stream.read(piece)) {
                add(count == PIECE ? piece : java.util.Arrays.copyOf(piece, count));
            }
        } finally {
            java.util.Arrays.fill(piece, (byte) 0);
        }
        return this;
    }

    /** The whole digest. */
    public byte[] finish() {
        return finish(check(end(null, 0)));
    }

    /** Of shake128 and shake256 as many bytes as asked for; of others at most those. */
    public byte[] finish(int size) {
        if (size < 1) {
            throw new ZulException(Zulcore.OUT_OF_RANGE_ERROR, "a length below 1");
        }
        try (Call call = new Call()) {
            Memory room = call.room(size);
            return Call.copy(room, check(end(room, size)));
        }
    }

    private int end(Pointer output, int size) {
        return isMac ? LIBRARY.HMAC_End(output, size, context()) : LIBRARY.HASH_End(output, size, context());
    }

    @Override
    public void close() {
        if (context != null) {
            context.clear();
            context.close();
            context = null;
        }
    }
}
