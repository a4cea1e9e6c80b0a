// Seal FILE: encrypts a file for a recipient (sealed.age) and under a password (password.age), and opens both.
using System;
using Zulcore;

internal static class Program
{
    private static int Main(string[] words)
    {
        string file = words[0];
        // --8<-- [start:seal]
        using (Identity identity = Identity.Generate())
        {
            Seal.SealFile("sealed.age", file, identity.Recipient);
            Seal.OpenFile("opened_1", "sealed.age", identity);

            Seal.SealFileWithPassword("password.age", file, "correct horse", Raw.ZUL_SEAL_ARMOUR);
            Seal.OpenFileWithPassword("opened_2", "password.age", "correct horse");
        }
        // --8<-- [end:seal]
        string digest = Hash.ComputeFileHex(file);
        if (Hash.ComputeFileHex("opened_1") != digest || Hash.ComputeFileHex("opened_2") != digest)
        {
            Console.Error.WriteLine("not the same file");
            return 1;
        }
        Console.WriteLine("sealed and opened");
        return 0;
    }
}
