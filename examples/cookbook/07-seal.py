# A file that one person alone can open.
from flat import call, text_of

with open("report.txt", "wb") as file:
    file.write(b"a report")
# [show]
identity = text_of("SEAL_MakeIdentity", 0)
recipient = text_of("SEAL_Recipient", identity)
call("SEAL_File", b"report.txt.age", b"report.txt", recipient, None, 0)
call("SEAL_OpenFile", b"opened.txt", b"report.txt.age", identity, None, 0)
# [end]
with open("opened.txt", "rb") as file:
    assert file.read() == b"a report"
