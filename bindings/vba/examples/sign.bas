Attribute VB_Name = "ExampleSign"
Option Explicit

' Signs a message and verifies the signature.
Public Sub ExampleSign()
    ' --8<-- [start:sign]
    Dim mine() As Byte, theirs() As Byte, message() As Byte, signature() As Byte
    message = zulUtf8("Pay Alice 100")
    zulKeyMake mine, "ed25519"
    signature = zulSign(mine, message)
    zulKeyPublic theirs, mine ' what the receiver has
    zulVerify theirs, signature, message ' raises if it does not verify
    zulWipe mine
    Debug.Print "good signature"
    ' --8<-- [end:sign]
End Sub
