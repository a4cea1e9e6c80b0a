"""Help, suggestions, completions and manual pages of the command-line tool."""
import glob
import os
import re
import subprocess
import unittest

from tool_harness import TOOL, ToolTest, main, openssl, read, write, zul
from terminal import Terminal


def commands(tool, above=()):
    """The names of all commands, as the help of those above lists them."""
    text = tool.done(*above, "--help").decode()
    names = re.findall(r"(?m)^  (\S+) ", text.split("\nCommands:\n")[1].split("\n\n")[0]) if "\nCommands:\n" in text else []
    for name in names:
        yield (*above, name)
        yield from commands(tool, (*above, name))


class Help(ToolTest):
    def test_help_is_that_of_the_option(self):
        self.assertEqual(self.done("help"), self.done("--help"))
        for command in ("hash", "cert", "cert issue", "cms certs make", "help"):
            with self.subTest(command):
                self.assertEqual(self.done("help", *command.split()), self.done(*command.split(), "--help"))
        for topic, says in (("exit-codes", b"wrong arguments"), ("environment", b"NO_COLOR"), ("formats", b"PEM")):
            self.assertIn(says, self.done("help", topic))
        self.wrong_usage("Did you mean 'issue'?", "help", "cert", "isue")

    def test_every_command_has_an_example(self):
        for command in commands(self):
            with self.subTest(command):
                text = self.done(*command, "--help").decode()
                if "\nCommands:\n" not in text:
                    self.assertRegex(text, rf"Examples?:\n(.*\n)*  zul {' '.join(command)}")
                self.assertLess(max(map(len, text.splitlines())), 120)

    SIMILAR = {"hsah": "'hash'", "vrify": "'verify'", "sing": "'sign'", "cret": "'cert'", "thumb": "'cert thumb'", "ecnode": "'encode' or 'decode'",
               "sho": None, "key mkae": "'make'", "key conv": "'convert'", "show": "'key show', 'cert show' or 'request show'",
               "hash sha256 --lenght=5": "'--length'", "seal --recipient-file x": "'--recipients-file'",
               "cert self --pasword secret": "'--password'", "hash md5 -k secret": None, "blubber": None, "seal --armuor": "'--armour' or '--armor'"}

    def test_suggestions(self):
        for line, names in self.SIMILAR.items():
            with self.subTest(line):
                message = zul(*line.split()).stderr.decode()
                self.assertNotIn("secret", message)
                self.assertEqual(re.findall(r"Did you mean (.*)\?", message), [names] if names else [])


def powershell_faults(script):
    """What a reader of PowerShell would stumble over: a string or a bracket without its end."""
    rest = re.sub(r"'(?:[^']|'')*'|\"[^\"\n]*\"|#[^\n]*", "", script)
    while (shorter := re.sub(r"\([^][(){}]*\)|\[[^][(){}]*\]|\{[^][(){}]*\}", "", rest)) != rest:
        rest = shorter
    return re.findall(r"""['"][^\n]*|[][(){}]""", rest)


class Shells(ToolTest):
    """Programs of this machine read what the tool writes."""
    # a line: what completes its last word, or the kind of it
    LINES = {"ha": "hash", "key ": "make show convert match check", "hash --le": "--length", "hash --text sha51": "sha512 sha512-256",
             "hash --length 5 md": "md2 md5", "ca revoke --reason k": "keyCompromise", "rsa-encrypt -p ": "oaep v1.5",
             "encrypt -a 3des-c": "3des-cbc 3des-cfb 3des-ctr", "cert query a.pem subjectN": "subjectName", "error 99": "9999",
             "cert self --usage digitalSignature,keyE": "digitalSignature,keyEncipherment", "help cert is": "issue",
             "cms certs e": "extract", "help exit": "exit-codes", "hash -- --le": "", "random --number 1 6 ": "",
             "hmac --key-file ": "file", "hash --check ": "file", "mail sign --as ": "message text attachment", "hash sha256 ": "file", "ca list ": "folder", "pfx make a b ": "file"}

    def setUp(self):
        if len(TOOL) > 1:
            self.skipTest("its output is that of the native tool")
        super().setUp()

    def test_bash(self):
        write("zul.bash", self.done("completions bash"))
        write("probe", b"""source ./zul.bash
compopt() { shown+=" $*"; }
while IFS= read -r line; do
    read -ra COMP_WORDS <<< "zul $line"
    [[ $line == *' ' ]] && COMP_WORDS+=('')
    COMP_CWORD=$((${#COMP_WORDS[@]} - 1)) shown=
    _zul
    echo "${COMPREPLY[*]:-$shown}"
done
""")
        kinds = {"file": "", "folder": "+o default -o dirnames", "": "+o default"}
        lines = {**self.LINES, "hmac --key-file = ": "file", "cert self --usage = keyE": "keyEncipherment"}
        found = subprocess.run(["bash", "probe"], input="".join(line + "\n" for line in lines).encode(), capture_output=True, check=True)
        self.assertEqual(found.stderr, b"")
        for (line, words), reply in zip(lines.items(), found.stdout.decode().splitlines(), strict=True):
            with self.subTest(line):
                self.assertEqual(sorted(reply.split()), sorted(kinds.get(words, words).split()))

    def test_bash_at_its_prompt(self):
        """Names of files and folders are left to the shell, which quotes them."""
        write("zul.bash", self.done("completions bash"))
        write("my file.key", b"")
        os.mkdir("pki dir")
        lines = {"ha\tsha256 m\t": "<hash><sha256><my file.key>", "hmac --key-file=m\t": "<hmac><--key-file=my file.key>",
                 "ca list p\t": "<ca><list><pki dir/>", "ca revoke --reason=keyC\t": "<ca><revoke><--reason=keyCompromise>"}
        with Terminal(["bash", "--norc", "--noprofile", "-i"], 120, TERM="dumb", INPUTRC="/dev/null") as shell:
            shell.send(b"PS1=; source ./zul.bash; zul() { printf '<%s>' \"$@\"; echo END; }; echo REA''DY\n")
            shell.until(b"READY")
            for line, words in lines.items():
                shell.send(f"zul {line}\n".encode())
                self.assertEqual(shell.until(rb"(<[^\n]*)END")[1].decode(), words)
            shell.send(b"exit\n")

    def test_every_offered_word_is_taken(self):
        """With whatever else the command demands: a key where one is needed, and any file for the rest."""
        write("ec.pem", openssl("genpkey", "-algorithm", "EC", "-pkeyopt", "ec_paramgen_curve:P-256"))
        offered = re.findall(r"(?m)^    '(zul [^']*) (\S+)'(?:\[0-9\]\*)?\) .*kind=(?:word|list) words='([^']*)'", self.done("completions bash").decode())
        self.assertGreater(len(offered), 40)
        for command, parameter, words in offered:
            demanded = []
            for word in words.split() if parameter.startswith("--") or parameter.isdigit() else ():
                given = [*command.split()[1:], *([] if parameter.isdigit() else [parameter]), word, *["--length=7"] * word.startswith("shake")]
                while needed := re.search(r": (\S+) is required", message := zul(*given, *demanded, stdin=b"x").stderr.decode()):
                    self.assertLess(len(demanded), 12)
                    demanded += [needed[1]] * needed[1].startswith("-") + ["ec.pem" if "key" in needed[1] else "CN=a" if "subject" in needed[1] else "in.bin"]
                with self.subTest(" ".join(given)):
                    self.assertNotRegex(message, r"unknown|no command|no error|names no|nothing of the name|--\w+ is |[a-z]+s: \S+, \S+")

    def test_fish(self):
        write("zul.fish", self.done("completions fish"))
        write("one.key", b"")
        os.mkdir("two")
        kinds = {"file": "in.bin one.key two/ zul.fish", "folder": "two/"}
        lines = {**self.LINES, "hmac --key-file=on": "--key-file=one.key", "ca revoke --reason=k": "--reason=keyCompromise"}
        for line, words in lines.items():
            with self.subTest(line):
                found = subprocess.run(["fish", "--no-config", "-c", "source zul.fish; complete -C $argv[1]", "zul " + line],
                                       capture_output=True, check=True)
                self.assertEqual(found.stderr, b"")
                self.assertEqual(sorted(reply.split("\t")[0] for reply in found.stdout.decode().splitlines()),
                                 sorted(kinds.get(words, words).split()))

    def test_zsh(self):
        """A shell in a terminal of its own completes each line as far as it goes."""
        write("_zul", self.done("completions zsh"))
        write("one.key", b"")
        lines = {"zul ha": "zul hash ", "zul hash --len": "zul hash --length=", "zul key con": "zul key convert ",
                 "zul cms certs e": "zul cms certs extract ", "zul ca revoke --reason keyC": "zul ca revoke --reason keyCompromise ",
                 "zul hash sha256 on": "zul hash sha256 one.key ", "zul hmac --key-file=on": "zul hmac --key-file=one.key ",
                 "zul help cert is": "zul help cert issue ", "zul rsa-encrypt -p oa": "zul rsa-encrypt -p oaep "}
        subprocess.run(["zsh", "-n", "_zul"], check=True)
        with Terminal(["zsh", "-f", "-i"], TERM="dumb", ZDOTDIR=os.getcwd()) as shell:
            shell.send(b"PS1=; fpath=($PWD $fpath); autoload -Uz compinit; compinit -u -D; "
                       b"show() { zle -I; print -r -- \"<$BUFFER>\"; BUFFER= }; zle -N show; bindkey '^X' show; echo REA''DY\n")
            shell.until(b"READY")
            for line, completed in lines.items():
                with self.subTest(line):
                    shell.send(line.encode() + b"\t\x18")
                    self.assertEqual(shell.until(b"<(zul [^<>]*)>")[1].decode(), completed)
            shell.send(b"exit\n")

    def test_powershell(self):
        script = self.done("completions powershell").decode()
        self.assertEqual(powershell_faults(script), [])
        self.assertEqual(powershell_faults(script.replace("''", "'", 1) + "}") == [], False)
        self.assertIn("$zulValues['zul seal -R'] = '1 file'\n", script)

    def test_manual_pages(self):
        os.mkdir("man")
        self.done("man", "man")
        every = {"zul.1", *("-".join(("zul", *command)) + ".1" for command in commands(self))}
        self.assertEqual(set(os.listdir("man")), every)
        pages = sorted(glob.glob("man/*.1"))
        lint = subprocess.run(["mandoc", "-T", "lint", "-W", "warning", *pages], capture_output=True)
        self.assertEqual(lint.stdout + lint.stderr, b"")
        roff = subprocess.run(["groff", "-ww", "-man", "-Tutf8", *pages], capture_output=True, check=True)
        self.assertEqual(roff.stderr, b"")
        page = subprocess.run(["mandoc", "-T", "utf8", "man/zul-cert-self.1"], capture_output=True, check=True).stdout.decode()
        page = re.sub(".\b", "", page)
        for part in ("--subject NAME", "-k, --key-file FILE", "Old forms (RSA keys alone)", "zul cert self -k test.key -s CN=localhost", "zul-cert-issue(1)", "EXIT STATUS"):
            self.assertIn(part, page)
        self.assertEqual(self.done("man --page cert self"), read("man/zul-cert-self.1"))


if __name__ == "__main__":
    main()
