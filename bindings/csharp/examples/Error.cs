// Error: reads a key that is not there, and tells why that fails.
using System;
using Zulcore;

internal static class Program
{
    private static int Main()
    {
        // --8<-- [start:error]
        try
        {
            using (Key key = Key.Read("no_such_file.pem"))
            {
                Console.WriteLine(key);
            }
        }
        catch (ZulException error)
        {
            Console.WriteLine("{0}, {1}: {2}", error.Name, error.Code, error.Text);
            Console.WriteLine(error.Detail);  // what this call had to say, often nothing
            Console.WriteLine(error.Message); // all of it
            return error.Code == Raw.OPEN_ERROR ? 0 : 1;
        }
        // --8<-- [end:error]
        return 1;
    }
}
