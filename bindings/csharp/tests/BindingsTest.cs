// BindingsTest.exe VECTORS FOLDER: what the classes of the assembly do. FOLDER is for files and is empty.
// BindingsTest.exe: prints the path of the module that was loaded.
using System;
using System.Collections.Generic;
using System.IO;
using System.Linq;
using System.Reflection;
using System.Runtime.InteropServices;
using System.Text;
using Zulcore;

internal static class BindingsTest
{
    private static string folder;
    private static int failures;

    private static int Main(string[] words)
    {
        if (words.Length == 0)
        {
            Console.WriteLine(Zul.ModulePath);
            return 0;
        }
        folder = words[1];
        Action[] tests = { () => Vectors(words[0]), EveryFunctionBinds, Texts, AeadWithRandomNonce, Errors, Refusals, Closed, Wiped, Keys, Sealed,
                           Certificates, Messages };
        foreach (Action test in tests)
        {
            try
            {
                test();
            }
            catch (Exception error)
            {
                Expect(false, test.Method.Name + ": " + error);
            }
        }
        Console.WriteLine(failures == 0 ? "all good" : failures + " failures");
        return failures == 0 ? 0 : 1;
    }

    private static void Expect(bool isTrue, string what)
    {
        if (!isTrue)
        {
            failures++;
            Console.WriteLine("FAILED: " + what);
        }
    }

    private static void Same<T>(T found, T expected, string what)
    {
        Expect(Equals(found, expected), what + ": " + found + ", not " + expected);
    }

    // The code that a call fails with; 0 if it does not.
    private static int CodeOf(Action call)
    {
        try
        {
            call();
            return 0;
        }
        catch (ZulException error)
        {
            return error.Code;
        }
    }

    private static bool Throws<T>(Action call) where T : Exception
    {
        try
        {
            call();
            return false;
        }
        catch (T)
        {
            return true;
        }
    }

    private static byte[] Utf8(string text)
    {
        return Encoding.UTF8.GetBytes(text);
    }

    private static string PathOf(string name)
    {
        return Path.Combine(folder, name);
    }

    private static string Written(string name, string content)
    {
        File.WriteAllText(PathOf(name), content);
        return PathOf(name);
    }

    private static IEnumerable<Dictionary<string, string>> Records(string file)
    {
        var record = new Dictionary<string, string>();
        foreach (string line in File.ReadAllLines(file).Concat(new[] { "" }))
        {
            int sign = line.IndexOf('=');
            if (line == "" && record.Count > 0)
            {
                yield return record;
                record = new Dictionary<string, string>();
            }
            else if (sign > 0 && line[0] != '#')
            {
                record[line.Substring(0, sign).Trim()] = line.Substring(sign + 1).Trim();
            }
        }
    }

    private static void Vectors(string file)
    {
        int count = 0;
        foreach (Dictionary<string, string> record in Records(file))
        {
            count++;
            Func<string, byte[]> hex = name => Zul.FromHex(record[name]);
            Func<string, int> number = name => int.Parse(record[name]);
            string kind = record["Kind"], what = "vector " + count + ", " + kind;
            string algorithm = record.ContainsKey("Algorithm") ? record["Algorithm"] : "";
            switch (kind)
            {
                case "hash":
                case "hmac":
                    byte[] message = hex("Message");
                    byte[] whole = kind == "hash" ? Hash.Compute(message, algorithm)
                                                  : Hmac.Compute(hex("Key"), message, algorithm);
                    Same(Zul.ToHex(whole), record["Result"], what);
                    using (var pieces = kind == "hash" ? new Hash(algorithm) : (PieceByPiece)new Hmac(hex("Key"), algorithm))
                    {
                        pieces.Add(message, 0, message.Length / 2);
                        Hash copy = kind == "hash" ? ((Hash)pieces).Copy() : null;
                        pieces.Add(new MemoryStream(message, message.Length / 2, message.Length - message.Length / 2));
                        Same(Zul.ToHex(pieces.End()), record["Result"], what + " in pieces");
                        Same(CodeOf(() => pieces.Add(message)), Raw.INVALID_DATA_ERROR, what + " after its end");
                        if (copy != null)
                        {
                            copy.Add(message, message.Length / 2, message.Length - message.Length / 2);
                            Same(Zul.ToHex(copy.End()), record["Result"], what + " copied");
                        }
                    }
                    break;
                case "pbkdf2":
                    Same(Zul.ToHex(Kdf.Pbkdf2(hex("Password"), hex("Salt"), hex("Result").Length, number("Iterations"),
                                              record["Hash"])), record["Result"], what);
                    break;
                case "hkdf":
                    Same(Zul.ToHex(Kdf.Hkdf(hex("Key"), hex("Result").Length, hex("Salt"), hex("Info"), record["Hash"])),
                         record["Result"], what);
                    break;
                case "scrypt":
                    Same(Zul.ToHex(Kdf.Scrypt(hex("Password"), hex("Salt"), hex("Result").Length, number("N"), number("R"),
                                              number("P"))), record["Result"], what);
                    break;
                case "aead":
                    byte[] sealedData = Aead.Encrypt(hex("Key"), hex("Message"), hex("Aad"), hex("Nonce"), algorithm);
                    Same(Zul.ToHex(sealedData), record["Result"], what);
                    Same(Zul.ToHex(Aead.Decrypt(hex("Key"), sealedData, hex("Aad"), hex("Nonce"), algorithm)),
                         record["Message"], what);
                    break;
                case "aead-refused":
                    Same(CodeOf(() => Aead.Decrypt(hex("Key"), hex("Message"), hex("Aad"), hex("Nonce"), algorithm)),
                         number("Error"), what);
                    break;
                case "verify":
                case "verify-refused":
                    using (Key key = Key.Read(Encoding.ASCII.GetString(hex("Key"))))
                    {
                        Same(CodeOf(() => key.Verify(hex("Signature"), hex("Message"), algorithm)),
                             kind == "verify" ? 0 : number("Error"), what);
                    }
                    break;
                default:
                    Expect(false, what);
                    break;
            }
        }
        Expect(count > 25, "vectors in the file");
    }

    private static void EveryFunctionBinds()
    {
        const BindingFlags hidden = BindingFlags.Static | BindingFlags.NonPublic;
        MethodInfo bind = typeof(Raw).Assembly.GetType("Zulcore.Module").GetMethod("Bind", hidden);
        var names = new HashSet<string>();
        foreach (FieldInfo slot in typeof(Raw).GetFields(hidden))
        {
            string name = slot.Name.Remove(slot.Name.LastIndexOf('_'));
            Expect(bind.MakeGenericMethod(slot.FieldType).Invoke(null, new object[] { null, name }) != null, name);
            names.Add(name);
        }
        Expect(names.Count >= 158, names.Count + " functions");
    }

    private static void Texts()
    {
        Same(Zul.ToHex(Zul.FromHex("00ffA5")), "00ffa5", "hex");
        Same(Zul.ToBase64(Utf8("any carnal pleas")), "YW55IGNhcm5hbCBwbGVhcw==", "base64");
        Same(Zul.ToHex(Zul.FromBase64("AP+l")), "00ffa5", "base64 to bytes");
        Same(Zul.ToHex(new byte[0]) + Zul.ToBase64(new byte[0]) + Zul.FromHex("").Length, "0", "nothing");
        Expect(!Zul.RandomBytes(70000).SequenceEqual(Zul.RandomBytes(70000)), "random bytes");
        Expect(Zul.RandomBytes(70000).Skip(65536).Any(one => one != 0), "the random bytes of a second call");
        Same(Zul.RandomNumber(-3, -3), -3, "a random number");
        Same(CodeOf(() => Zul.RandomNumber(2, 1)), Raw.OUT_OF_RANGE_ERROR, "no range");
        Same(CodeOf(() => Zul.RandomNumber(int.MinValue, int.MaxValue)), Raw.OUT_OF_RANGE_ERROR, "too large a range");
        Same(new Hash("shake128").End(50).Length, 50, "shake128");
        Zul.SelfTest();
        byte[] bytes = { 1, 2, 3 };
        Zul.Wipe(bytes);
        Expect(bytes.All(one => one == 0), "wiped bytes");
        byte[] algorithm = Utf8("sha256\0");
        Same(Raw.HASH_Begin(null, 0, algorithm, 0), new byte[Raw.HASH_Begin(null, 0, algorithm, 0)].Length, "raw arrays");
    }

    private static void AeadWithRandomNonce()
    {
        byte[] key = Zul.RandomBytes(32), aad = Utf8("header");
        foreach (string message in new[] { "", "secret" })
        {
            byte[] data = Aead.Encrypt(key, Utf8(message), aad);
            Same(data.Length, message.Length + 28, "the length of a cipher text");
            Same(Encoding.UTF8.GetString(Aead.Decrypt(key, data, aad)), message, "decrypted");
            data[data.Length - 1] ^= 1;
            Same(CodeOf(() => Aead.Decrypt(key, data, aad)), Raw.DECRYPT_ERROR, "a changed tag of '" + message + "'");
        }
    }

    private static void Errors()
    {
        try
        {
            using (Key key = Key.Generate("p-256"))
            {
                Cert.SelfSign(key, "CN=a;colour=red");
            }
            Expect(false, "a description that is wrong");
        }
        catch (ZulException error)
        {
            Same(error.Code, 6, "the code");
            Same(error.Name, "BAD_PARAM_ERROR", "the name");
            Expect(error.Text != "" && error.Detail.Contains("colour"), "text and detail");
            Same(error.Message, "BAD_PARAM_ERROR: " + error.Text + " (" + error.Detail + ")", "the message");
        }
    }

    private static void Refusals()
    {
        using (Key key = Key.Generate("ed25519"))
        {
            string unused = PathOf("unused");
            var calls = new Dictionary<string, KeyValuePair<int, Action>>();
            Action<string, int, Action> add = (what, code, call) => calls[what] = new KeyValuePair<int, Action>(code, call);
            add("zero byte in a name", Raw.BAD_PARAM_ERROR, () => new Hash("sha256\0x"));
            add("zero byte in a file's name", Raw.BAD_PARAM_ERROR, () => key.Save(unused + "\0x", "secret"));
            add("zero byte in a password", Raw.BAD_PARAM_ERROR, () => key.Save(unused, "a\0b"));
            add("zero byte in a password's bytes", Raw.BAD_PARAM_ERROR, () => key.Save(unused, new byte[] { 65, 0, 66 }));
            add("empty password", Raw.BAD_PARAM_ERROR, () => key.Save(unused, ""));
            add("private key without a password", Raw.BAD_PARAM_ERROR, () => key.Save(unused));
            add("sealed under an empty password", Raw.BAD_PARAM_ERROR, () => Seal.SealFileWithPassword(unused, unused, ""));
            add("no such file", Raw.OPEN_ERROR, () => Hash.ComputeFile(PathOf("none")));
            add("no such kind", Raw.NOT_SUPPORTED_ERROR, () => Key.Generate("p-257"));
            add("no such digest", Raw.NOT_SUPPORTED_ERROR, () => new Hash("sha257"));
            foreach (KeyValuePair<string, KeyValuePair<int, Action>> call in calls)
            {
                Same(CodeOf(call.Value.Value), call.Value.Key, call.Key);
            }
            Expect(!File.Exists(unused), "refused calls write nothing");
            foreach (string text in new[] { "AGE-SECRET-KEY-1", "identity.txt", "AGE-SECRET-KEY-1\0" })
            {
                Same(CodeOf(() => Identity.Of(text)), Raw.BAD_KEY_ERROR, "no identity");
            }
            Expect(Throws<ArgumentNullException>(() => key.Sign(null)), "no data");
            Expect(Throws<ArgumentNullException>(() => key.Agree(null)), "no key");
            Expect(Throws<ArgumentOutOfRangeException>(() => new Hash().Add(new byte[4], 2, int.MaxValue)), "beyond the array");
            Expect(Throws<ArgumentOutOfRangeException>(() => Zul.RandomBytes(-1)), "a negative count");
            Expect(Throws<ArgumentException>(() => key.Save(unused, "\ud800")), "half a character");
        }
    }

    private static void Closed()
    {
        Key key = Key.Generate("x25519");
        Identity identity = Identity.Generate();
        string recipient = identity.Recipient;
        using (Identity again = Identity.Of(identity.Reveal()))
        {
            Same(again.Recipient, recipient, "an identity of its bytes");
        }
        var hash = new Hash();
        foreach (IDisposable thing in new IDisposable[] { key, identity, hash, key })
        {
            thing.Dispose();
        }
        Expect(Throws<ObjectDisposedException>(() => key.PublicKey()), "a closed key");
        Expect(Throws<ObjectDisposedException>(() => { string none = identity.Recipient; }), "a closed identity");
        Expect(Throws<ObjectDisposedException>(() => hash.Add(new byte[1])), "a closed digest");
        Same(key + ", " + identity, "closed key, closed identity", "what closed ones show");
    }

    // A key string and an identity are in this process's memory while they are open, and nowhere after.
    private static void Wiped()
    {
        Key key = Key.Generate("ed25519");
        Identity identity = Identity.Generate();
        byte[] masked = new byte[40], maskedIdentity = identity.Reveal();
        key.Use(address =>
        {
            for (int i = 0; i < masked.Length; i++)
            {
                masked[i] = (byte)(Marshal.ReadByte(address, 20 + i) ^ 0xA5);
            }
            return 0;
        });
        for (int i = 0; i < maskedIdentity.Length; i++)
        {
            maskedIdentity[i] ^= 0xA5;
        }
        Expect(IsInMemory(masked) && IsInMemory(maskedIdentity), "open secrets are found");
        key.Dispose();
        identity.Dispose();
        Expect(!IsInMemory(masked), "a closed key is wiped");
        Expect(!IsInMemory(maskedIdentity), "a closed identity is wiped");
    }

    // Whether memory holds bytes, given masked so that they are not found there themselves.
    private static bool IsInMemory(byte[] masked)
    {
        byte[] part = new byte[1 << 20];
        using (var memory = new FileStream("/proc/self/mem", FileMode.Open, FileAccess.Read))
        {
            foreach (string line in File.ReadAllLines("/proc/self/maps"))
            {
                string[] words = line.Split(new[] { ' ', '-' }, 4);
                if (!words[2].StartsWith("rw") || line.Contains("/dev/"))
                {
                    continue;
                }
                long at = Convert.ToInt64(words[0], 16), end = Convert.ToInt64(words[1], 16);
                while (at < end)
                {
                    int count;
                    try
                    {
                        memory.Position = at;
                        count = memory.Read(part, 0, (int)Math.Min(part.Length, end - at));
                    }
                    catch (IOException)
                    {
                        break; // unmapped meanwhile
                    }
                    bool isFound = Holds(part, count, masked);
                    Array.Clear(part, 0, part.Length); // or the next look would find this copy
                    if (isFound)
                    {
                        return true;
                    }
                    at += count > masked.Length && at + count < end ? count - masked.Length : Math.Max(count, 1);
                }
            }
        }
        return false;
    }

    private static bool Holds(byte[] part, int count, byte[] masked)
    {
        for (int i = 0; i + masked.Length <= count; i++)
        {
            int matched = 0;
            while (matched < masked.Length && (part[i + matched] ^ masked[matched]) == 0xA5)
            {
                matched++;
            }
            if (matched == masked.Length)
            {
                return true;
            }
        }
        return false;
    }

    private static void Keys()
    {
        string data = Written("data", "data"), file = PathOf("key"), plain = PathOf("plain");
        var kinds = new Dictionary<string, string> { { "p-256", "private p-256 key, 256 bits" },
                                                     { "ed25519", "private ed25519 key, 256 bits" },
                                                     { "rsa-1024", "private rsa key, 1024 bits" } };
        foreach (KeyValuePair<string, string> kind in kinds)
        {
            using (Key key = Key.Generate(kind.Key), other = Key.Generate("p-384"))
            {
                Same(key.ToString(), kind.Value, "what a key shows");
                key.Check();
                key.Save(file, "s\u00e9cret", "kdf=scrypt;n=2");
                key.SaveUnencrypted(plain, 0);
                Same(CodeOf(() => Key.Read(file)), Raw.BAD_PARAM_ERROR, "read without a password");
                Same(CodeOf(() => Key.Read(file, "wrong")), Raw.DECRYPT_ERROR, "a wrong password");
                using (Key again = Key.Read(file, Utf8("s\u00e9cret")), known = Key.Read(key.PublicPem()), read = Key.Read(plain))
                {
                    Expect(again.IsPrivate && !known.IsPrivate && again.Matches(known) && read.Matches(known), "matches");
                    Expect(!again.Matches(other), "another key does not match");
                    Same(known.Fingerprint, key.Fingerprint, "fingerprint");
                    known.Verify(key.Sign(Utf8("data")), Utf8("data"));
                    known.VerifyFile(key.SignFile(data), data);
                    Same(CodeOf(() => known.VerifyFile(key.Sign(Utf8("else")), data)), Raw.SIGNATURE_ERROR, "another file");
                    Same(CodeOf(() => known.Sign(Utf8("data"))), Raw.INVALID_DATA_ERROR, "signed with a public key");
                }
            }
        }
        using (Key alice = Key.Generate("x25519"), bob = Key.Generate("x25519"))
        {
            Same(Zul.ToHex(alice.Agree(bob.PublicKey())), Zul.ToHex(bob.Agree(alice.PublicKey())), "agreed secrets");
        }
    }

    private static void Sealed()
    {
        string content = Written("content", "content"), target = PathOf("sealed"), opened = PathOf("opened");
        using (Identity identity = Identity.Generate(), other = Identity.Generate())
        {
            Seal.SealFile(target, content, identity.Recipient, Raw.ZUL_SEAL_ARMOUR);
            Seal.OpenFile(opened, target, identity);
            Same(File.ReadAllText(opened), "content", "opened");
            Same(CodeOf(() => Seal.OpenFile(opened, target, other)), Raw.NO_MATCH_ERROR, "another identity");
            Same(identity.ToString(), "identity of " + identity.Recipient, "what an identity shows");
        }
        Zul.WipeFile(opened);
        Expect(!File.Exists(opened), "a wiped file");
    }

    private static void Certificates()
    {
        using (Key rootKey = Key.Generate("p-256"), key = Key.Generate("ed25519"))
        {
            string root = Cert.SelfSign(rootKey, "CN=Root;profile=ca");
            string request = Cert.Request(key, "CN=J\u00fcrgen;dns=www.example.com");
            string leaf = Cert.Issue(root, rootKey, request, "copy=subjectAltName;profile=server");
            string direct = Cert.Issue(root, rootKey, key, "CN=Code;profile=code;serial=77");
            Same(Cert.Query(leaf, "subject"), "CN=J\u00fcrgen", "the subject");
            Same(Cert.Query(leaf, "tlsFeature"), "", "what is not there");
            Expect(Cert.Report(leaf, Raw.ZUL_CERT_JSON).Contains("www.example.com"), "the report");
            Cert.CheckName(leaf, "www.example.com");
            Same(CodeOf(() => Cert.CheckName(leaf, "example.org")), Raw.NO_MATCH_ERROR, "another name");

            string crl = Cert.IssueCrl(root, rootKey, "serial=77", "days=7");
            Expect(Cert.CheckPath(leaf, root, evidence: crl, conditions: "host=www.example.com").Contains("CN=Root"), "a path");
            try
            {
                Cert.CheckPath(direct, root, evidence: crl, options: Raw.ZUL_CERT_JSON);
                Expect(false, "a revoked certificate");
            }
            catch (PathException error)
            {
                Same(error.Code, Raw.BAD_KEY_ERROR, "the code of a revoked certificate");
                Expect(error.Report.StartsWith("{") && error.Detail != "", "its report");
            }

            string file = PathOf("all.p12");
            P12.Pack(file, leaf + ";" + root, key, "secret", "server", Raw.ZUL_P12_LEGACY);
            using (Key unpacked = P12.UnpackKey(file, "secret"))
            {
                Expect(unpacked.Matches(key), "the key of a PKCS #12 file");
            }
            Same(Cert.Query(P12.UnpackCertificates(file, "secret"), "sha256"), Cert.Query(leaf, "sha256"), "its certificate");
            Expect(P12.List(file, "secret").Contains("kind=key"), "its list");
            Same(CodeOf(() => P12.UnpackKey(file, "wrong")), Raw.DECRYPT_ERROR, "its wrong password");
            Expect(Ocsp.Request(root, leaf).Length > 50, "an OCSP request");
        }
    }

    private static void Messages()
    {
        string text = "Meet me at n\u00f6on.", file = Written("in", text), signed = PathOf("signed"), secret = PathOf("secret");
        using (Key key = Key.Generate("rsa-2048"), otherKey = Key.Generate("ed25519"))
        {
            string certificate = Cert.SelfSign(key, "CN=Alice"), other = Cert.SelfSign(otherKey, "CN=Bob");
            Cms.SignText(signed, text, certificate, key);
            Cms.Verify(signed, certificate);
            Same(CodeOf(() => Cms.Verify(signed, other)), Raw.NO_MATCH_ERROR, "another signer");
            Same(CodeOf(() => Cms.Verify(signed, "")), Raw.BAD_PARAM_ERROR, "no signer by mistake");
            Same(CodeOf(() => Ocsp.Request("", certificate)), Raw.BAD_PARAM_ERROR, "a request without an issuer");
            Same(CodeOf(() => Ocsp.Read(signed, "")), Raw.BAD_PARAM_ERROR, "a response without an issuer");
            Same(Encoding.UTF8.GetString(Cms.Read(signed)), text, "the content of a message");
            string detached = Cms.SignDigest(Hash.ComputeFile(file), certificate, key);
            Cms.Verify(detached, certificate, Hash.ComputeFile(file));
            Same(CodeOf(() => Cms.Verify(detached, certificate, Hash.Compute(new byte[1]))), Raw.SIGNATURE_ERROR,
                 "another content");
            Cms.EncryptFile(secret, file, new[] { certificate });
            Same(Encoding.UTF8.GetString(Cms.Decrypt(secret, key)), text, "a decrypted message");
            try
            {
                Cms.EncryptFile(secret, file, new[] { certificate, other });
                Expect(false, "a recipient without an RSA key");
            }
            catch (ZulException error)
            {
                Same(error.Code, Raw.BAD_KEY_ERROR, "a recipient without an RSA key");
                Expect(error.Detail != "", "the library tells the certificate");
            }
            Expect(!File.Exists(secret), "a message that not all can read is removed");
        }
    }
}
