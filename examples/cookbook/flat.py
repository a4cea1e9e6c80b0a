"""What the Python files of the cookbook share: the library through ctypes."""
# [show]
import ctypes
import sys

zul = ctypes.CDLL(sys.argv[1])  # libzulcore.so or zulcore.dll


def call(function, *arguments):
    """A call that ends the program when it fails: lengths below 0, and every status but 0."""
    result = getattr(zul, function)(*arguments)
    if result < 0 or (result > 0 and function in STATUS):
        text = ctypes.create_string_buffer(512)
        zul.ZUL_LastError(text, 511)
        sys.exit(f"{function}: error {abs(result)} {text.value.decode()}")
    return result


def text_of(function, *arguments):
    """The text that a function writes to its first argument: first its length is asked for, then the text."""
    room = call(function, None, 0, *arguments)
    buffer = ctypes.create_string_buffer(room + 1)
    call(function, buffer, room, *arguments)
    return buffer.value


STATUS = {"SEAL_File", "SEAL_OpenFile", "SIG_Verify", "SIG_VerifyFile", "KEY_Save", "KEY_Match", "CERT_SelfSign", "CERT_Request",
          "CERT_Issue", "CERT_CheckName", "CERT_CheckPath", "P12_Pack", "P12_Unpack"}
# [end]
