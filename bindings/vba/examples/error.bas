Attribute VB_Name = "ExampleError"
Option Explicit

' Catches and prints an error.
Public Sub ExampleError()
    ' --8<-- [start:error]
    Dim key() As Byte
    On Error GoTo Failed
    zulKeyRead key, "missing.pem"
    Exit Sub
Failed:
    Select Case Err.Number - vbObjectError
        Case OPEN_ERROR: Debug.Print "no such file: " & Err.Description
        Case DECRYPT_ERROR: Debug.Print "a wrong password: " & Err.Description
        Case Else: Err.Raise Err.Number
    End Select
    ' --8<-- [end:error]
End Sub
