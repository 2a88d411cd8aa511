#!/usr/bin/env bash
# A journey with the bus of screen readers: what one is told of the grid while keys are pressed.
#   tests/journeys/screen_reader.sh STATION OUT_FOLDER
# Needs Debian's at-spi2-core python3-pyatspi dbus-daemon xvfb openbox xdotool imagemagick; without them the journey says so
# and ends well.
set -euo pipefail
export LC_ALL=C.UTF-8
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$(cd "$here/../.." && pwd)
[[ $# -eq 2 ]] || { sed -n '2,5s/^# \?//p' "${BASH_SOURCE[0]}" >&2; exit 2; }
bus=/usr/libexec/at-spi-bus-launcher
for program in "$bus" dbus-run-session Xvfb openbox xdotool import; do
    command -v "$program" >/dev/null || { echo "skipped: there is no $program"; exit 0; }
done
/usr/bin/python3 -c 'import pyatspi' 2>/dev/null || { echo 'skipped: there is no pyatspi'; exit 0; }
station=$(realpath "$1")
mkdir -p "$2"
out=$(cd "$2" && pwd)
[[ -n ${JOURNEY_BUS:-} ]] || JOURNEY_BUS=1 exec dbus-run-session -- "${BASH_SOURCE[0]}" "$station" "$out"

source "$root/packaging/windows/desktop.sh"
home=$(mktemp -d)
started=()
end_of_journey() {
    local code=$?
    trap - EXIT
    [[ ${#started[@]} -eq 0 ]] || kill "${started[@]}" 2>/dev/null || true
    stop_desktop
    rm -rf "$home"
    exit $code
}
trap end_of_journey EXIT
cp "$root"/examples/plate4/plate4.{sbd,abd} "$home"
unset QT_QPA_PLATFORM
export HOME=$home XDG_RUNTIME_DIR=$home/run
mkdir -p "$XDG_RUNTIME_DIR"
chmod 700 "$XDG_RUNTIME_DIR"
start_desktop 1366x900
"$bus" --launch-immediately >"$out/bus.log" 2>&1 &
started+=($!)
QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 "$station" --block 313 --cell 3,6 "$home/plate4.sbd" >"$out/station.log" 2>&1 &
started+=($!)
wait_active '*plate4.sbd*' 30
settle
timeout 60 /usr/bin/python3 - <<'END'
import subprocess
import sys
import threading
import time
import pyatspi


def find(node, depth=0):
    """The table of the block on show."""
    if node is None or depth > 20:
        return None
    if node.getRole() == pyatspi.ROLE_TABLE and node.name.startswith("313"):
        return node
    for i in range(min(node.childCount, 60)):
        found = find(node.getChildAtIndex(i), depth + 1)
        if found:
            return found
    return None


table = find(pyatspi.Registry.getDesktop(0))
if table is None:
    sys.exit("there is no table of 313")
cells = table.queryTable()
cell, fixed = cells.getAccessibleAt(2, 5), cells.getAccessibleAt(0, 4)
print(table.name, cells.nRows, "rows", cells.nColumns, "columns")
for told in (cell, fixed):
    print("  %r: %s" % (told.name, told.description))
failed = [] if "単位 mm" in cell.description and "3 行目" in cell.description else ["unit and row"]
if "固定" not in fixed.description or "自動計算" not in fixed.description:
    failed.append("固定, and what the row is")

heard = []
pyatspi.Registry.registerEventListener(lambda e: heard.append((e.source.name, e.source.description)) if e.detail1 else None,
                                       "object:state-changed:focused")


def press():
    time.sleep(1)
    for key in ("Down", "Right", "Down"):
        subprocess.run(["xdotool", "key", key], check=False)
        time.sleep(0.5)
    time.sleep(0.5)
    pyatspi.Registry.stop()


threading.Thread(target=press).start()
pyatspi.Registry.start()
for name, description in heard:
    print("  heard %r: %s" % (name, description))
places = list(dict.fromkeys(description.split("、単位")[0] for _, description in heard))
if places != ["幅1 (mm)、4 行目", "厚1 (mm)、4 行目", "厚1 (mm)、5 行目"]:
    failed.append("each cell that the keys lead to")
sys.exit("not told: " + ", ".join(failed) if failed else 0)
END
echo "done in $SECONDS s"
