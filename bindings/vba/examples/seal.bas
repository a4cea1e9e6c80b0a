Attribute VB_Name = "ExampleSeal"
Option Explicit

' Encrypts a file for a recipient and under a password, and opens both again.
Public Sub ExampleSeal(ByVal fileName As String)
    ' --8<-- [start:seal]
    Dim identity() As Byte
    zulMakeIdentity identity ' the private key: keep it
    zulSealFile "sealed.age", fileName, zulRecipient(identity)
    zulOpenFileWithIdentity "opened_1", "sealed.age", identity
    zulWipe identity

    zulSealFileWithPassword "password.age", fileName, "correct horse", ZUL_SEAL_ARMOUR
    zulOpenFileWithPassword "opened_2", "password.age", "correct horse"
    ' --8<-- [end:seal]
End Sub
