#!/usr/bin/env bash
# Runs a Windows program under Wine, in a Wine prefix of its own, beside the DLLs that it was built with.
#   packaging/windows/wine.sh PROGRAM.exe [argument]...
# Also the emulator of the cross build, for what CMake and CTest start.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
work=$root/build/windows-kit

export WINEPREFIX=${WINEPREFIX:-$work/prefix}
export WINEDEBUG=${WINEDEBUG:--all}
# No Mono, no browser, nothing in this desktop's menus; and no debugger, for which a program that crashes would wait
# minutes on a busy machine: engines that crash are part of the tests.
export WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe=;winedbg.exe="
windows_path() { printf 'Z:%s' "${1//\//\\}"; }
export WINEPATH="$(windows_path "$work/qt/bin");$(windows_path "$work/libraries/bin")"

wine=/usr/lib/wine/wine64
[[ -x $wine ]] || wine=$(command -v wine64 || command -v wine)
mkdir -p "$(dirname "$WINEPREFIX")"
if [[ ! -f $WINEPREFIX/system.reg ]]; then
    # Several programs may come at once; the first one makes the prefix.
    (
        flock 9
        [[ -f $WINEPREFIX/system.reg ]] || {
            "$wine" wineboot --init
            "$wine" reg add 'HKCU\Software\Wine' /v Version /d win10 /f # a new prefix says that it is Windows 7
        } >/dev/null 2>&1
        wineserver=$(dirname "$wine")/wineserver
        [[ -x $wineserver ]] || wineserver=$(command -v wineserver)
        "$wineserver" --wait
    ) 9>"$WINEPREFIX.lock"
fi
exec "$wine" "$@"
