#!/bin/sh
# SPDX-License-Identifier: Apache-2.0
# Install the shared and the static library, and build and run the examples against each in both ways.
set -eu
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
# Copied, so that nothing beside them in the tree can help them.
cp -r "$VORPEL_SOURCE_DIR/examples" "$scratch/examples"

fail() {
    echo "install: $*" >&2
    exit 1
}

# quietly COMMAND...: what it prints matters only when it fails.
quietly() {
    "$@" >"$scratch/log" 2>&1 || { cat "$scratch/log"; fail "$*"; }
}

# answers PREFIX PROGRAM EXPECTED [WORD...]: some line that the program prints begins with what is expected.
# Where no dictionary was built, it must say which one it misses.
answers() {
    prefix=$1 program=$2 expected=$3
    shift 3
    status=0
    printed=$(LD_LIBRARY_PATH=$prefix/lib "$program" "$prefix/share/vorpel" "$@" 2>&1) || status=$?
    if [ -e "$VORPEL_DATA/en_US.dic" ]; then
        [ $status = 0 ] || fail "$program ended with $status: $printed"
    else
        [ $status = 1 ] || fail "$program ended with $status without a dictionary"
        expected="${program##*/}: $prefix/share/vorpel/en_US.dic: No such file or directory"
    fi
    printf '%s\n' "$printed" | grep -q -e "^$expected" || fail "$program printed '$printed', not '$expected'"
}

# try_example PREFIX FOLDER SOURCE EXPECTED [WORD...]: by CMake, and by one line with $compile and $static.
try_example() {
    prefix=$1 folder=$2 source=$3 expected=$4
    shift 4
    name=${source%.*}
    built=$prefix-$folder
    quietly cmake -S "$scratch/examples/$folder" -B "$built" -G Ninja -DCMAKE_PREFIX_PATH="$prefix"
    quietly cmake --build "$built"
    answers "$prefix" "$built/$name" "$expected" "$@"

    mkdir "$built/plain"
    flags=$(PKG_CONFIG_PATH=$prefix/lib/pkgconfig pkg-config --cflags --libs $static vorpel)
    # The flags are words of their own.
    quietly $compile -Wall -Wextra -Werror "$scratch/examples/$folder/$source" -o "$built/plain/$name" $flags
    answers "$prefix" "$built/plain/$name" "$expected" "$@"
}

# try_examples PREFIX [PKG_CONFIG_FLAG]
try_examples() {
    static=${2:-}
    compile="cc -std=c99 -pedantic"
    try_example "$1" c words.c "teh -> the " en teh
    compile="g++ -std=c++20"
    try_example "$1" cpp banner.cpp "how are you  | " en how aer yuo
}

shared=$scratch/shared
quietly cmake --install "$VORPEL_BUILD_DIR" --prefix "$shared"
try_examples "$shared"
for header in $(cd "$shared/include" && find vorpel -name '*.h'); do
    echo "#include <$header>" >"$scratch/alone.cpp"
    quietly g++ -std=c++20 -fsyntax-only -I"$shared/include" "$scratch/alone.cpp"
done
nm -DC --defined-only "$shared/lib/libvorpel.so" | sed 's/^[0-9a-f]* . //; s/@@*VORPEL_[0-9.]*$//' | LC_ALL=C sort -u \
    >"$scratch/symbols.txt"
diff "$VORPEL_SOURCE_DIR/tests/install/exported_symbols.txt" "$scratch/symbols.txt" >&2 ||
    fail "the library exports other symbols than those kept in tests/install/exported_symbols.txt"
if [ -e "$VORPEL_DATA/en_US.dic" ]; then
    quietly env -u VORPEL_DATA "$shared/bin/vorpel" suggest teh
fi

quietly cmake -S "$VORPEL_SOURCE_DIR" -B "$scratch/static_build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
    -DBUILD_SHARED_LIBS=OFF -DVORPEL_BUILD_TESTS=OFF -DVORPEL_DATA_DIR="$VORPEL_DATA"
quietly cmake --build "$scratch/static_build"
quietly cmake --install "$scratch/static_build" --prefix "$scratch/static"
try_examples "$scratch/static" --static
