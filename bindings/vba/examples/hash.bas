Attribute VB_Name = "ExampleHash"
Option Explicit

' Prints the SHA-256 digest of a file.
Public Sub ExampleHash(ByVal fileName As String)
    ' --8<-- [start:hash]
    Debug.Print zulHashFileHex(fileName)
    ' --8<-- [end:hash]
End Sub
