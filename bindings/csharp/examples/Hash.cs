// Hash FILE: prints the SHA-256 and SHA3-256 digests of a file.
using System;
using Zulcore;

internal static class Program
{
    private static int Main(string[] words)
    {
        try
        {
            string file = words[0];
            // --8<-- [start:hash]
            Console.WriteLine(Hash.ComputeFileHex(file));
            Console.WriteLine(Hash.ComputeFileHex(file, "sha3-256"));
            // --8<-- [end:hash]
            return 0;
        }
        catch (ZulException error)
        {
            Console.Error.WriteLine(error.Message);
            return 1;
        }
    }
}
