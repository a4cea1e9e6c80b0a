package zulcore;

import com.sun.jna.Memory;
import com.sun.jna.Native;
import com.sun.jna.Platform;
import com.sun.jna.Pointer;
import java.io.File;
import java.nio.ByteBuffer;
import java.nio.CharBuffer;
import java.nio.charset.CharacterCodingException;
import java.nio.charset.Charset;
import java.nio.charset.CharsetEncoder;
import java.nio.charset.StandardCharsets;
import java.util.ArrayList;
import java.util.List;

/** The native memory of one call, which is wiped and freed at its end, and how results are read. */
final class Call implements AutoCloseable {
    static final Zulcore LIBRARY = load();

    private static final Charset NAMES = Charset.forName(System.getProperty("sun.jnu.encoding", "UTF-8"));
    private static final int LONGEST_DETAIL = 511;

    private final List<Memory> memories = new ArrayList<>();

    // Beside the classes, then by name, then where the system looks.
    private static Zulcore load() {
        String file = Platform.isWindows() ? "zulcore.dll" : "libzulcore.so";
        try {
            File beside = new File(new File(Call.class.getProtectionDomain().getCodeSource().getLocation().toURI())
                    .getParentFile(), file);
            if (beside.exists()) {
                return Native.load(beside.getPath(), Zulcore.class);
            }
        } catch (java.net.URISyntaxException | RuntimeException unknown) {
            // Classes that come from elsewhere have nothing beside them.
        }
        String named = System.getenv("ZULCORE_LIBRARY");
        if (named != null && !named.isEmpty() && !new File(named).isAbsolute()) {
            throw new UnsatisfiedLinkError("ZULCORE_LIBRARY has to be a full path: " + named);
        }
        return Native.load(named != null && !named.isEmpty() ? named : "zulcore", Zulcore.class);
    }

    /** Room for a text of that many bytes and a zero byte, or for that many bytes. */
    Memory room(int size) {
        Memory memory = new Memory((long) size + 1);
        memories.add(memory);
        memory.clear();
        return memory;
    }

    Pointer bytes(byte[] data) {
        Memory memory = room(data.length);
        memory.write(0, data, 0, data.length);
        return memory;
    }

    /** A text in UTF-8. */
    Pointer utf8(String text) {
        return text(CharBuffer.wrap(text), StandardCharsets.UTF_8);
    }

    Pointer utf8OrNull(String text) {
        return text == null || text.isEmpty() ? null : utf8(text);
    }

    /** A password; null stays null. */
    Pointer secret(char[] password) {
        return password == null ? null : text(CharBuffer.wrap(password), StandardCharsets.UTF_8);
    }

    /** The name of a file, in the system's encoding, or PEM. */
    Pointer name(String file) {
        return text(CharBuffer.wrap(file), NAMES);
    }

    Pointer nameOrNull(String file) {
        return file == null || file.isEmpty() ? null : name(file);
    }

    // A text for the library ends at its first zero byte: one with such a byte inside would be cut.
    private Pointer text(CharBuffer characters, Charset charset) {
        // Room for the longest encoding: an encoder that makes its own leaves the smaller ones behind.
        CharsetEncoder encoder = charset.newEncoder();
        ByteBuffer encoded = ByteBuffer.allocate(
                Math.toIntExact((long) Math.ceil((double) characters.remaining() * encoder.maxBytesPerChar())));
        byte[] bytes = encoded.array();
        try {
            if (encoder.encode(characters, encoded, true).isError() || encoder.flush(encoded).isError()) {
                throw new ZulException(Zulcore.BAD_PARAM_ERROR, "a text that " + charset + " cannot write");
            }
            encoded.flip();
            for (int i = 0; i < encoded.limit(); i++) {
                if (bytes[i] == 0) {
                    throw new ZulException(Zulcore.BAD_PARAM_ERROR, "a text with a zero byte");
                }
            }
            Memory memory = room(encoded.limit());
            memory.write(0, bytes, 0, encoded.limit());
            return memory;
        } finally {
            java.util.Arrays.fill(bytes, (byte) 0);
        }
    }

    /** For functions that return a length: throws for a negative result. */
    static int check(int result) {
        if (result < 0) {
            throw failure(result);
        }
        return result;
    }

    /** For functions that return a status: throws for any result but 0. */
    static void checkStatus(int result) {
        if (result != 0) {
            throw failure(result);
        }
    }

    private static ZulException failure(int result) {
        try (Memory memory = new Memory(LONGEST_DETAIL + 1)) {
            memory.clear();
            LIBRARY.ZUL_LastError(memory, LONGEST_DETAIL);
            byte[] detail = memory.getByteArray(0, (int) memory.indexOf(0, (byte) 0));
            return new ZulException(Math.abs(result), decoded(detail));
        }
    }

    // Names of files in it are as they were given: on Windows in the code page.
    private static String decoded(byte[] detail) {
        try {
            return StandardCharsets.UTF_8.newDecoder().decode(ByteBuffer.wrap(detail)).toString();
        } catch (CharacterCodingException isName) {
            return new String(detail, NAMES);
        }
    }

    static String errorText(int code) {
        int length = LIBRARY.ZUL_ErrorLookup(null, 0, code);
        try (Memory memory = new Memory(length + 1)) {
            memory.clear();
            LIBRARY.ZUL_ErrorLookup(memory, length + 1, code);
            return memory.getString(0, "UTF-8");
        }
    }

    static byte[] copy(Pointer memory, int length) {
        return memory.getByteArray(0, length);
    }

    static String text(Pointer memory, int length) {
        return new String(copy(memory, length), StandardCharsets.UTF_8);
    }

    @Override
    public void close() {
        for (Memory memory : memories) {
            memory.clear();
            memory.close();
        }
        memories.clear();
    }
}
