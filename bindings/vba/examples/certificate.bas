Attribute VB_Name = "ExampleCertificate"
Option Explicit

' Makes a key and the certificate of a server, issued by an authority.
Public Sub ExampleCertificate()
    ' --8<-- [start:certificate]
    Dim authority() As Byte, server() As Byte, report As String
    zulKeyMake authority, "p-256"
    zulKeySave authority, "root.key", "correct horse"
    zulSelfSign "root.pem", authority, "C=AU;O=Example;CN=Example Root;profile=ca"

    zulKeyMake server, "p-256"
    zulIssueForKey "server.pem", "root.pem", authority, server, _
        "CN=www.example.com;dns=www.example.com;profile=server"
    zulWipe authority
    zulWipe server

    zulCheckPath "server.pem", "root.pem", "", "", "host=www.example.com;purpose=server", report
    Debug.Print zulCertQuery("server.pem", "subject"), zulCertQuery("server.pem", "dns")
    ' --8<-- [end:certificate]
End Sub
