#!/usr/bin/env bash
# Makes the pictures of the guide (frame/guide/*.png) and docs/first-bridge.md anew, by going through the steps of
# frame/guide/first_bridge.txt in the window. Look at the pictures before they are committed.
#   scripts/guide-pictures.sh [BUILD]      BUILD: folder of a build with tests, build/dev if not given
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
build=${1:-build/dev}
cmake --build "$build" --target app_first_bridge_test
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
TMPDIR=/tmp SBD_GUIDE=$PWD QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 HOME=$home XDG_CONFIG_HOME=$home/config \
    XDG_STATE_HOME=$home/state XDG_RUNTIME_DIR=$home \
    "$build/tests/app_first_bridge_test" itsStepsAreTrue thePageOfTheDocsIsTheGuide
du -cb frame/guide/*.png | tail -1
echo "Build again: the pictures stand in the program."
