package zulcore;

/** What a call of the library refuses. The message has all of it. */
public final class ZulException extends RuntimeException {
    private static final long serialVersionUID = 1;

    private final int code;
    private final String text;
    private final String detail;

    ZulException(int code, String detail) {
        this(code, Call.errorText(code), detail);
    }

    private ZulException(int code, String text, String detail) {
        super(Zulcore.errorName(code) + " (" + code + "): " + text + (detail.isEmpty() ? "" : ": " + detail));
        this.code = code;
        this.text = text;
        this.detail = detail;
    }

    /** One of the constants of {@link Zulcore}. */
    public int code() {
        return code;
    }

    /** "DECRYPT_ERROR" */
    public String name() {
        return Zulcore.errorName(code);
    }

    /** The general text of the code. */
    public String text() {
        return text;
    }

    /** What this call had to say; often empty. */
    public String detail() {
        return detail;
    }
}
