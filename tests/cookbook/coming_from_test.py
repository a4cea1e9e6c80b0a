#!/usr/bin/env python3
"""coming_from_test.py PAGE TOOL: runs every command in the tables of the page, those of other programs too, each in a copy
of a folder with the files that they name. A command that names a file as new has to make it."""
import concurrent.futures
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

page, tool = (pathlib.Path(name).resolve() for name in sys.argv[1:])
SETUP = r"""
echo "a report" >report.pdf
echo secret >password.txt
head -c 32 /dev/urandom >aes.key
base64 report.pdf >report.b64
zul ca init pki --name "C=AU;O=Example" --no-password
cp pki/ca.pem pki/ca.key pki/root.pem .
zul ca issue pki --dns www.example.com --no-password -o server
cat server.pem ca.pem root.pem >chain.pem
zul ca issue pki --profile email --email alice@example.com --type rsa-2048 --no-password -o alice
openssl crl -inform DER -in pki/ca.crl -out ca.crl.pem
cp pki/ca.crl .
zul request make -k alice.key -s "C=AU;CN=Alice" alice.req
for name in key peer; do openssl genpkey -algorithm EC -pkeyopt ec_paramgen_curve:P-256 -out $name.pem; done
openssl genpkey -algorithm RSA -out rsa.pem
openssl genpkey -algorithm ED25519 -out ed.pem
for name in key peer rsa; do openssl pkey -in $name.pem -pubout -out $name.pub; done
openssl dgst -sha256 -sign key.pem -out report.sig report.pdf
openssl cms -sign -binary -nodetach -signer alice.pem -inkey alice.key -certfile ca.pem -in report.pdf -outform DER \
    -out report.p7m
openssl cms -encrypt -binary -in report.pdf -outform DER -out secret.p7m alice.pem
openssl pkcs12 -export -in alice.pem -inkey alice.key -passout file:password.txt -out alice.p12
cp alice.p12 secret.p12
printf 'cn = "localhost"\ndns_name = "localhost"\nexpiration_days = 30\ntls_www_server\nsigning_key\n' >server.cfg
"""


def run(command, folder):
    environment = {**os.environ, "PATH": f"{tool.parent}{os.pathsep}{os.environ['PATH']}", "key": "00" * 32, "iv": "01" * 16}
    return subprocess.run(["bash", "-euc", command], cwd=folder, env=environment, stdin=subprocess.DEVNULL, text=True,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=120, errors="replace",
                          start_new_session=True)


def answered(command):
    """Where the tool would ask for a password, a file answers."""
    if "--password" in command or not re.match(r"zul (key make|key convert --encrypt|pfx (make|list|extract))", command):
        return command
    return command + (" --new-password-file" if "convert" in command else " --password-file") + " password.txt"


def fault_of(command, prepared):
    if command.startswith("openssl ca "):  # which needs a configuration of its own
        return None
    with tempfile.TemporaryDirectory() as scratch:
        folder = shutil.copytree(prepared, scratch + "/work")
        done = run(answered(command), folder)
        outputs = [word for word in re.findall(r"(?<!\S)new\.?\w*", command) if "." in word]
        missing = [name for name in outputs if not os.path.exists(f"{folder}/{name}")]
    if done.returncode or missing:
        return f"{command}\n  status {done.returncode}, missing {missing}\n{done.stdout}"


commands = []
for row in page.read_text().splitlines():
    if cells := re.findall(r"`((?:openssl|certtool|zul) [^`]+)`", row) if row.startswith("|") else None:
        commands += cells
        if len(cells) != 2:
            sys.exit(f"not two commands: {row}")
with tempfile.TemporaryDirectory() as prepared:
    if (done := run(SETUP, prepared)).returncode:
        sys.exit(done.stdout)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        faults = [fault for fault in pool.map(lambda command: fault_of(command, prepared), sorted(set(commands))) if fault]
print(*faults, f"{len(commands)} commands, {len(faults)} faults", sep="\n")
sys.exit(not commands or bool(faults))
