Option VBASupport 1
Option Explicit

Dim results As Integer
Dim heardCall As String

Sub Main
    results = FreeFile
    Open "RESULTS" For Output As #results
    ' An error that nobody catches would wait for somebody to read it.
    On Error GoTo Failed
    Dim euro As String, clef As String
    euro = "a" & ChrW(233) & ChrW(8364)
    clef = ChrW(&HD834) & ChrW(&HDD1E)
    Claim Utf8Hex(euro), "61c3a9e282ac", "two and three bytes"
    Claim Utf8Hex(clef & "z"), "f09d849e7a", "four bytes"
    Claim TextHex("61c3a9e282ac"), euro, "text"
    Claim TextHex("f09d849e7a"), clef & "z", "a text of two units"
    Claim TextHex("c3"), ChrW(65533), "a cut character"
    Claim TextHex("c0af41"), ChrW(65533) & ChrW(65533) & "A", "an overlong character"
    Claim TextHex("eda080"), ChrW(65533) & ChrW(65533) & ChrW(65533), "half of a character in UTF-8"
    Claim TextHex("f4908080"), String(4, ChrW(65533)), "beyond the last character"
    Claim Refusal("zero"), "6 BAD_PARAM_ERROR (6): a text with a zero character", "a zero character"
    Claim Refusal("half"), "8 INVALID_DATA_ERROR (8): a text with half of a character", "half of a character"
    Claim Refusal("odd"), "8 INVALID_DATA_ERROR (8): an odd number of hex digits", "odd hex"
    Claim Refusal("digit"), "8 INVALID_DATA_ERROR (8): not a hex digit", "a wrong digit"
    Claim Refusal("nobody"), "11 OUT_OF_RANGE_ERROR (11): a message has 1 to 10 recipients", "no recipient"
    Claim Refusal("eleven"), "11 OUT_OF_RANGE_ERROR (11): a message has 1 to 10 recipients", "eleven recipients"
    Claim Refusal("nameless"), "6 BAD_PARAM_ERROR (6): a certificate without a name", "a recipient without a name"
    Claim Refusal("none"), "", "no refusal"
    Claim zulErrorName(DECRYPT_ERROR) & zulErrorName(9999) & zulErrorName(-1), "DECRYPT_ERRORMISC_ERRORERROR", "names"
    Claim CStr(ZUL_EMSIG_GETALG), "32768", "bit 15"
    Claim CStr(ZUL_X509_VERSION1), "134217728", "bit 27"
    Dim report As String
    zulCheckPath "cert", "trusted", "others", "evidence", "conditions", report
    Claim heardCall, "CERT_CheckPath cert others trusted evidence conditions", "what may be trusted"
    Dim none() As Byte
    zulIssueCrl "crl", "issuer", none, "revoked", "description", "earlier"
    Claim heardCall, "CERT_IssueCRL crl issuer earlier revoked description", "a list"
    Claim CStr(zulLength(none)), "0", "an array without a size"
    Dim secret() As Byte
    secret = zulUtf8("abc")
    zulWipe secret
    ' Erase leaves the size to an argument here, and takes it away in Office.
    Claim Replace(zulHex(secret), "0", ""), "", "bytes that were wiped without the library"
    Print #results, "end"
    Close #results
    Exit Sub
Failed:
    Print #results, "FAULT error " & Err & " " & Error$
    Close #results
End Sub

Sub Claim(ByVal found As String, ByVal wanted As String, ByVal what As String)
    If found = wanted Then
        Print #results, "good " & what
    Else
        Print #results, "FAULT " & what & ": " & found
    End If
End Sub

' Stands for the library in calls whose arguments the test looks at.
Public Function Heard(ByVal callText As String) As Long
    heardCall = callText
End Function

Function Utf8Hex(ByVal source As String) As String
    Dim bytes() As Byte
    bytes = zulUtf8(source)
    Utf8Hex = zulHex(bytes)
End Function

Function TextHex(ByVal digits As String) As String
    Dim bytes() As Byte
    bytes = zulUnhex(UCase(digits))
    TextHex = zulTextOf(bytes, zulLength(bytes))
End Function

Function Refusal(ByVal what As String) As String
    Dim bytes() As Byte
    On Error GoTo Refused
    Select Case what
        Case "zero": bytes = zulUtf8("a" & ChrW(0))
        Case "half": bytes = zulUtf8(ChrW(&HD834) & "z")
        Case "odd": bytes = zulUnhex("abc")
        Case "digit": bytes = zulUnhex("0g")
        Case "nobody": zulCmsEncrypt "out", "in", ""
        Case "eleven": zulCmsEncrypt "out", "in", "1;2;3;4;5;6;7;8;9;10;11"
        Case "nameless": zulCmsEncrypt "out", "in", "1; ;3"
        Case Else: bytes = zulUnhex("00")
    End Select
    Exit Function
Refused:
    Refusal = CStr(Err.Number + 2147221504) & " " & Err.Description
End Function
