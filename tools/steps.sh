# SPDX-License-Identifier: Apache-2.0
# Sourced by run and check, with `log` naming the file that the noise goes to.
mkdir -p "$(dirname "$log")"
: >"$log"

# step NAME COMMAND...: quiet when all is well; otherwise the end of the noise, and the end of the program.
step() {
    name=$1
    shift
    printf '%s ... ' "$name"
    started=$(date +%s)
    printf '\n== %s\n' "$name" >>"$log"
    if "$@" >>"$log" 2>&1; then
        echo "ok ($(($(date +%s) - started)) s)"
    else
        printf 'FAILED\n\nThe end of %s:\n' "$log"
        sed -n "/^== $name\$/,\$p" "$log" | tail -n 60
        printf '\nFailed: %s\n' "$name"
        exit 1
    fi
}
