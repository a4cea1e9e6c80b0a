#!/bin/sh
# python_wheel_test.sh ROOT MODULE: the wheels are reproducible and whole, and one installs without a network and works.
set -eu
root=$1 module=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
unset ZULCORE_LIBRARY PYTHONPATH || true
export SOURCE_DATE_EPOCH=1700000000 PYTHONDONTWRITEBYTECODE=1 PIP_DISABLE_PIP_VERSION_CHECK=1

# Of the wheel for Windows only the layout is seen here, so any file does for the library.
printf 'MZ' >zulcore.dll
for folder in one two; do
    "$root/bindings/python/package.sh" $folder "$module" zulcore.dll >/dev/null
done
diff -r one two
mkdir unpacked
for wheel in one/*-win_amd64.whl one/*-manylinux_2_*_x86_64.whl; do
    /usr/bin/python3 -m wheel unpack -d unpacked "$wheel" # compares every file with RECORD
done
cmp unpacked/zulcore-*/zulcore/libzulcore.so "$module"
cmp unpacked/zulcore-*/zulcore/zulcore.dll zulcore.dll

/usr/bin/python3 -m venv --system-site-packages venv
venv/bin/pip install -q --no-index one/*-manylinux_2_*_x86_64.whl
venv/bin/python "$root/bindings/python/tests/python_test.py" "$root"

# setuptools leaves folders in the sources.
cp -r "$root/bindings/python" sources
venv/bin/pip wheel -q --no-index --no-build-isolation --no-deps -w built ./sources
venv/bin/pip install -q --no-index --force-reinstall built/zulcore-*-none-any.whl
ZULCORE_LIBRARY=$module venv/bin/python -c 'import zulcore; print(zulcore.hash_hex(b"abc"))' | grep '^ba7816bf'
