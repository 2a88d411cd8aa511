# shellcheck shell=bash
# Sourced by test.sh and .ci/run: named steps with their times, and a summary at the end.

# One object serves all build folders: presets with the same flags compile a file once.
export CCACHE_NOHASHDIR=1

steps_names=()
steps_times=()
steps_results=()

# step NAME COMMAND...: runs the command, whatever came before, and keeps how it ended.
step() {
    local name=$1 start=$SECONDS result=ok
    shift
    echo "== $name"
    # Not in a condition: errexit inside the command shall hold.
    set +e
    (set -e; "$@")
    local code=$?
    set -e
    [[ $code -eq 0 ]] || result="FAILED ($code)"
    steps_names+=("$name")
    steps_times+=("$((SECONDS - start))")
    steps_results+=("$result")
}

# Prints the steps and, as the last line, "N passed, N failed"; fails if a step did.
summary() {
    local i passed=0 failed=0
    echo
    for i in "${!steps_names[@]}"; do
        printf '%5d s  %-44s %s\n' "${steps_times[i]}" "${steps_names[i]}" "${steps_results[i]}"
        if [[ ${steps_results[i]} == ok ]]; then
            passed=$((passed + 1))
        else
            failed=$((failed + 1))
        fi
    done
    printf '%5d s  in all\n' "$SECONDS"
    echo "$1: $passed passed, $failed failed"
    [[ $failed -eq 0 ]]
}
