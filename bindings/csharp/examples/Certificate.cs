// Certificate: makes a key (server_key.pem) and a certificate (server.pem), and looks at it.
using System;
using Zulcore;

internal static class Program
{
    private static int Main()
    {
        // --8<-- [start:certificate]
        using (Key key = Key.Generate("p-256"))
        {
            key.Save("server_key.pem", "correct horse");
            Cert.SelfSignFile("server.pem", key, "C=AU;O=Example;CN=www.example.com;dns=www.example.com;profile=server");

            Console.WriteLine(key);
            Console.WriteLine(Cert.Query("server.pem", "subject"));
            Cert.CheckName("server.pem", "www.example.com");
        }
        // --8<-- [end:certificate]
        using (Key key = Key.Read("server_key.pem", "correct horse"))
        using (Key certified = Key.Read("server.pem"))
        {
            return key.Matches(certified) ? 0 : 1;
        }
    }
}
