# shellcheck shell=bash
# Sourced by test.sh and .ci/run: named steps with their times, and a summary at the end.

# One object serves all build folders: presets with the same flags compile a file once.
export CCACHE_NOHASHDIR=1

steps_names=()
steps_times=()
steps_results=()
steps_said=$(mktemp -d)

# step NAME COMMAND...: runs the command, whatever came before, and keeps how it ended and what it said.
step() {
    local name=$1 start=$SECONDS result=ok copier turn
    local said=$steps_said/${#steps_names[@]}
    shift
    echo "== $name"
    mkfifo "$said.pipe"
    tee "$said" <"$said.pipe" &
    copier=$!
    # Not in a condition: errexit inside the command shall hold.
    set +e
    (set -e; "$@") >"$said.pipe" 2>&1
    local code=$?
    # All that was said stands before the next step; a service that the command left behind may hold the pipe for ever.
    for ((turn = 0; turn < 40; ++turn)); do
        kill -0 "$copier" 2>/dev/null || break
        sleep 0.05
    done
    set -e
    [[ $code -eq 0 ]] || result="FAILED ($code)"
    steps_names+=("$name")
    steps_times+=("$((SECONDS - start))")
    steps_results+=("$result")
}

# Prints what failed steps said last, the steps and, as the last line, "N passed, N failed"; fails if a step did.
summary() {
    local i passed=0 failed=0
    for i in "${!steps_names[@]}"; do
        if [[ ${steps_results[i]} != ok ]]; then
            echo
            echo "== once more, the end of: ${steps_names[i]}"
            tail -n 40 "$steps_said/$i"
        fi
    done
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
    rm -rf "$steps_said"
    echo "$1: $passed passed, $failed failed"
    [[ $failed -eq 0 ]]
}
