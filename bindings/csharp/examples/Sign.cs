// Sign: signs a message and checks the signature, of the message and of another one.
using System;
using System.Text;
using Zulcore;

internal static class Program
{
    private static int Main()
    {
        // --8<-- [start:sign]
        byte[] message = Encoding.UTF8.GetBytes("Meet me at noon.");
        using (Key key = Key.Generate("ed25519"))
        using (Key known = Key.Read(key.PublicPem())) // what others have of it
        {
            byte[] signature = key.Sign(message);
            known.Verify(signature, message);
            Console.WriteLine("good signature: " + Zul.ToHex(signature));

            try
            {
                known.Verify(signature, Encoding.UTF8.GetBytes("Meet me at nine."));
            }
            catch (ZulException error) when (error.Code == Raw.SIGNATURE_ERROR)
            {
                Console.WriteLine("another message: " + error.Message);
                return 0;
            }
        }
        // --8<-- [end:sign]
        Console.Error.WriteLine("a wrong signature was taken");
        return 1;
    }
}
