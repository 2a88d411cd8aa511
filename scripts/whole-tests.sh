#!/usr/bin/env bash
# Runs test programs without windows as wholes, as many at a time as there are cores: for where a start takes longer than
# most tests, under sanitizers and under Wine.
#   [SBD_LAUNCH=what starts them] scripts/whole-tests.sh PROGRAM...
set -euo pipefail

one() {
    local name output
    name=$(basename "$1" .exe)
    if output=$(timeout 900 ${SBD_LAUNCH:-} "$1" --gtest_brief=1 --gtest_shuffle 2>&1 </dev/null); then
        echo "$name: $(grep -a -o '[0-9]* tests\.' <<<"$output" | tail -n 1)"
    else
        echo "$name: FAILED"
        tail -n 60 <<<"$output"
        return 1
    fi
}
export -f one

[[ $# -gt 0 ]] || { sed -n '2,4s/^# \?//p' "$0" >&2; exit 2; }
printf '%s\0' "$@" | xargs -0 -n 1 -P "$(nproc)" bash -c 'one "$0"'
