#!/usr/bin/env bash
# go_test.sh ROOT MODULE: compiles bindings/go, its tests and examples, and runs them, without the network.
set -euo pipefail
root=$1 folder=$(dirname "$2")
export GOCACHE=$PWD/cache GOPATH=$PWD/path GOPROXY=off GOFLAGS=-mod=mod GO111MODULE=on GOTOOLCHAIN=local
export CGO_LDFLAGS="-L$folder -Wl,-rpath,$folder" ZUL_VECTORS=$root/tests/data/bindings/vectors.txt
work=$PWD
cd "$root/bindings/go"
[ -z "$(gofmt -l .)" ]
go vet ./...
mkdir -p "$work/bin"
go build -o "$work/bin/" ./examples/...
go test -count=1 ./tests

cd "$work"
printf abc >message
[ "$(bin/hash message)" = ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad ]
bin/seal message
bin/certificate | grep -q 'good certificate of CN=www.example.com'
bin/sign | grep -q 'good signature by public ed25519 key of 256 bits'
bin/error | grep -q 'no such file: OPEN_ERROR (1)'
