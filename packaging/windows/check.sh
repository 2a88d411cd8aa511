#!/usr/bin/env bash
# Runs what packaging/windows/build.sh --tests has built as Windows programs under Wine.
#   packaging/windows/check.sh [--quick]
#   packaging/windows/check.sh --targets     names what --quick needs, for build.sh
# --quick  the tests without Qt, those near the system, the acceptance cases of project files, a short journey: some
#          minutes. Without it: all tests, all cases, the long journey, and the packages if build/windows-kit/dist is there.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
cd "$here/../.."
source scripts/steps.sh
build=build/windows
pictures=build/windows-kit/journey
quick=
# Tests of what is near the system: files, locks, processes, the registry, one instance.
near=(tests/document/*_test.cpp tests/app/*_test.cpp
    tests/frame/{engine_process_windows,engine_runner,engine_runs,engine_files,engine_window}_test.cpp
    tests/frame/{document_life,settings,profile_file,profile_windows}_test.cpp)
near=("${near[@]#tests/}")
near=("${near[@]%.cpp}")
case ${1:-} in
    '') ;;
    --quick) quick=--quick ;;
    --targets)
        echo sbdstation sbdtool {project,sbdfile,sheets,results,panelmodel,book,search,page,tools}_tests \
            test_engine_{HOLM4_W_GIRDER_SECTION,HOLM4_W_CROSS,KELD_Support_Stiff_Diaphragm} "${near[@]//\//_}"
        exit 0
        ;;
    *) sed -n '2,6s/^# \?//p' "${BASH_SOURCE[0]}" >&2; exit 2 ;;
esac
export WINEPREFIX=$PWD/build/windows-kit/prefix

core_tests() {
    SBD_LAUNCH="$here/wine.sh" scripts/whole-tests.sh "$build"/tests/*_tests.exe
}

# Wine's desktop comes with the first window and goes a second behind the last one. Of two programs that make it at the
# same time one may be left without, and it holds the pipes of who made it. So it is made here, and stays as long as a
# program does that waits for its input; the end of Wine's server is its end too.
hold_desktop() {
    local log=build/windows-kit/desktop.log input=build/windows-kit/desktop.input try
    rm -f "$input"
    mkfifo "$input"
    "$here/wine.sh" cmd <>"$input" >/dev/null 2>&1 &
    for try in 1 2 3 4 5; do
        "$here/wine.sh" "$build/tests/document_engine_command_test.exe" >"$log" 2>&1 </dev/null || true
        grep -q -a 'window failed' "$log" || return 0
        sleep "$try"
    done
    cat "$log"
    return 1
}

window_tests() {
    local only=(-L qt) log=build/windows-kit/tests.log
    hold_desktop
    [[ -z $quick ]] || only=(-R "^($(IFS='|'; echo "${near[*]//\//\\.}"))\$")
    ctest --preset windows "${only[@]}" -j "$(($(nproc) + 1))" >"$log" 2>&1 || { grep -v ' Passed ' "$log"; return 1; }
    tail -n 3 "$log" | sed '/^$/d'
}

# The whole set takes a start of the tool for each case.
cases() {
    if [[ -n $quick ]]; then
        python3 ../shared/acceptance/run_project.py "$here/wine.sh" "$build/tools/sbdtool.exe" | tail -n 1
    else
        scripts/acceptance.sh ../shared/acceptance "$here/wine.sh" "$build/tools/sbdtool.exe"
    fi
}

"$here/wine.sh" cmd /c ver >/dev/null # makes the prefix
wineserver=/usr/lib/wine/wineserver
[[ -x $wineserver ]] || wineserver=$(command -v wineserver)
"$wineserver" --wait
"$wineserver" --persistent # a start of its own for each program takes seconds
"$here/wine.sh" cmd /c ver >/dev/null 2>&1 </dev/null # the services start, and hold nobody's pipe
trap '"$wineserver" --kill 2>/dev/null || true' EXIT
step "tests without Qt (Wine)" core_tests
step "tests with windows (Wine)" window_tests
[[ ! -d ../shared/acceptance ]] || step "acceptance cases (Wine)" cases
step "journey on the real window (Wine)" "$here/journey.sh" ${quick:+--quick} "$build" "$pictures"
if [[ -z $quick && -d build/windows-kit/dist ]]; then
    step "zip and installer (Wine)" "$here/check-package.sh" build/windows-kit/dist
fi
summary "steps under Wine"
