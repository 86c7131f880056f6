#!/bin/sh
# SPDX-License-Identifier: Apache-2.0
# Install the shared and the static library, and build and run a small host against each in both ways.
set -eu
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
consumer=$VORPEL_SOURCE_DIR/tests/install/consumer

fail() {
    echo "install: $*" >&2
    exit 1
}

# quietly COMMAND...: what it prints matters only when it fails.
quietly() {
    "$@" >"$scratch/log" 2>&1 || { cat "$scratch/log"; fail "$*"; }
}

# Where no dictionary was built, the library has no word to offer.
expected=nothing
[ ! -e "$VORPEL_DATA/en_US.dic" ] || expected=the

# answers PROGRAM PREFIX: the host tells on standard error what the library made of "teh".
answers() {
    answer=$(LD_LIBRARY_PATH=$2/lib "$1" "$2/share/vorpel" 2>&1 >/dev/null)
    [ "$answer" = "$expected" ] || fail "$1 printed '$answer'"
}

# try_host NAME PREFIX [PKG_CONFIG_FLAG]
try_host() {
    quietly cmake -S "$consumer" -B "$scratch/$1" -G Ninja -DCMAKE_PREFIX_PATH="$2"
    quietly cmake --build "$scratch/$1"
    answers "$scratch/$1/consumer" "$2"

    flags=$(PKG_CONFIG_PATH=$2/lib/pkgconfig pkg-config --cflags --libs ${3:-} vorpel)
    # The flags are words of their own.
    quietly g++ -std=c++20 "$consumer/main.cpp" -o "$scratch/$1/plain" $flags
    answers "$scratch/$1/plain" "$2"
}

quietly cmake --install "$VORPEL_BUILD_DIR" --prefix "$scratch/shared_prefix"
try_host shared "$scratch/shared_prefix"
for header in $(cd "$scratch/shared_prefix/include" && find vorpel -name '*.h'); do
    echo "#include <$header>" >"$scratch/alone.cpp"
    quietly g++ -std=c++20 -fsyntax-only -I"$scratch/shared_prefix/include" "$scratch/alone.cpp"
done
inner=$(nm -DC --defined-only "$scratch/shared_prefix/lib/libvorpel.so" | grep -E ' [TDRB] .*wordengine::' || true)
[ -z "$inner" ] || fail "the library exports what is not its face: $inner"
if [ "$expected" = the ]; then
    quietly env -u VORPEL_DATA "$scratch/shared_prefix/bin/vorpel" suggest teh
fi

quietly cmake -S "$VORPEL_SOURCE_DIR" -B "$scratch/static_build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
    -DBUILD_SHARED_LIBS=OFF -DVORPEL_BUILD_TESTS=OFF
quietly cmake --build "$scratch/static_build"
quietly cmake --install "$scratch/static_build" --prefix "$scratch/static_prefix"
try_host static "$scratch/static_prefix" --static
