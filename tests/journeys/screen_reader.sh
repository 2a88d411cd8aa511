#!/usr/bin/env bash
# A journey with the bus of screen readers: what one is told of the grid while keys are pressed.
#   tests/journeys/screen_reader.sh STATION OUT_FOLDER
# Needs Debian's at-spi2-core python3-pyatspi dbus-daemon xvfb openbox xdotool imagemagick; without them the journey says so
# and ends well.
source "$(dirname "${BASH_SOURCE[0]}")/journey.sh"
bus=/usr/libexec/at-spi-bus-launcher
needs "$bus" dbus-run-session Xvfb openbox xdotool import
/usr/bin/python3 -c 'import pyatspi' 2>/dev/null || skip 'there is no pyatspi'
on_a_bus
begin

cp "$root"/examples/plate4/plate4.{sbd,abd} "$home"
start_desktop 1366x900
"$bus" --launch-immediately >"$out/bus.log" 2>&1 &
started+=($!)
export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
start_station "$home/plate4.sbd" 313 3,6
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
