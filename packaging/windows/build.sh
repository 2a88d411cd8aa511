#!/usr/bin/env bash
# Builds the program and the tools for 64-bit Windows on Debian, and packs them into build/windows-kit/dist.
#   packaging/windows/build.sh [--qt ARCHIVE-OR-FOLDER] [--tests [TARGET...]]
# --qt     a Qt for Windows (packaging/windows/qt.sh); without it, one is made from Debian's source package.
#          Also taken from the environment: SBD_WINDOWS_QT.
# --tests  builds what packaging/windows/check.sh runs, less optimised, and packs nothing.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
cd "$here/../.."
qt=${SBD_WINDOWS_QT:-}
preset=windows-release
targets=()
while [[ $# -gt 0 ]]; do
    case $1 in
        --qt) qt=${2:?--qt takes an archive or a folder}; shift ;;
        --tests) preset=windows ;;
        [!-]*) targets+=("$1") ;;
        *) sed -n '2,7s/^# \?//p' "${BASH_SOURCE[0]}" >&2; exit 2 ;;
    esac
    shift
done
export CCACHE_NOHASHDIR=1 # one object serves all build folders

scripts/setup.sh windows
mkdir -p build/windows-kit
"$here/qt.sh" ${qt:+"$qt"}
"$here/libraries.sh"
cmake --preset "$preset" >"build/windows-kit/$preset.log" 2>&1 || { cat "build/windows-kit/$preset.log"; exit 1; }
cmake --build --preset "$preset" ${targets:+--target "${targets[@]}"} >"build/windows-kit/$preset.log" 2>&1 || {
    tail -n 60 "build/windows-kit/$preset.log"
    exit 1
}
[[ $preset == windows ]] || "$here/package.sh" "build/$preset" build/windows-kit/dist
