# shellcheck shell=bash
# What the journeys of this folder begin with. To be sourced by a script that is called with STATION OUT_FOLDER:
#   needs PROGRAM...     leaves the journey, and says so, where one is not installed
#   on_a_bus             starts the script again with a message bus of its own
#   begin                a home of its own, and an end that clears up: pictures in `out`, processes in `started`
# The program is `station`, the tree `root`; keys, pictures and waits are those of the journeys under Wine.
set -euo pipefail
export LC_ALL=C.UTF-8
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
if [[ $# -ne 2 ]]; then
    sed -n '2,/^[^#]/s/^# \?//p' "$0" >&2
    exit 2
fi
station=$(realpath "$1")
mkdir -p "$2"
out=$(cd "$2" && pwd)
source "$root/packaging/windows/desktop.sh"

skip() {
    echo "skipped: $*"
    exit 0
}
needs() {
    local program
    for program in "$@"; do
        command -v "$program" >/dev/null || skip "there is no $program"
    done
}
on_a_bus() {
    if [[ -z ${JOURNEY_BUS:-} ]]; then
        JOURNEY_BUS=1 exec dbus-run-session -- "$0" "$station" "$out"
    fi
}

started=()
end_of_journey() {
    local code=$?
    trap - EXIT
    [[ $code -eq 0 || -z ${DISPLAY:-} ]] || picture failed || true
    [[ ${#started[@]} -eq 0 ]] || kill "${started[@]}" 2>/dev/null || true
    stop_desktop
    rm -rf "$home"
    exit $code
}
begin() {
    home=$(mktemp -d)
    trap end_of_journey EXIT
    unset QT_QPA_PLATFORM
    export HOME=$home XDG_RUNTIME_DIR=$home/run
    mkdir -p "$XDG_RUNTIME_DIR"
    chmod 700 "$XDG_RUNTIME_DIR"
}
is_gone() { ! kill -0 "$1" 2>/dev/null; }
# start_station PROJECT BLOCK CELL: the program with the cursor in the cell.
start_station() {
    "$station" --block "$2" --cell "$3" "$1" >"$out/station.log" 2>&1 &
    station_pid=$!
    started+=("$station_pid")
    wait_active "*$(basename "$1")*" 30
    settle
}
end_station() {
    keys ctrl+q
    wait_until 10 'the program has ended' is_gone "$station_pid"
}
