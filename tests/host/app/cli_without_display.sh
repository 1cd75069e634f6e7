#!/bin/sh
# The program answers --help, --version and mistakes with no display and no Qt platform at all.
# Usage: cli_without_display.sh PATH/TO/nivalis
set -u
nivalis=$1
failed=0
check() { # expected-status expected-stream-pattern arguments...
    want=$1 pattern=$2
    shift 2
    output=$(env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM XDG_CONFIG_HOME=/nonexistent \
        "$nivalis" "$@" 2>&1)
    status=$?
    if [ "$status" -ne "$want" ] || ! printf '%s\n' "$output" | grep -q -- "$pattern"; then
        echo "FAIL: nivalis $*: status $status (want $want), output:"
        printf '%s\n' "$output" | head -5
        failed=1
    fi
}
check 0 '^Usage: nivalis \[OPTION\]' --help
check 0 '^Usage: nivalis \[OPTION\]' -h
check 0 '^nivalis [0-9][0-9.]*$' --version
check 2 "^nivalis: unknown command 'foo'" foo
check 2 "^nivalis: unknown option '--bogus'" --bogus
check 0 '^Settings and the values they accept:' config --help
check 2 '^Usage: nivalis config list' config
exit $failed
