#!/usr/bin/env bash
# Builds everything and runs all tests: with windows (preset dev), then without Qt (preset core).
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
source scripts/steps.sh
jobs=$(nproc)

# Output of a build or a test run is of interest when it fails.
build_preset() {
    cmake --preset "$1" >"build/$1.configure.log" 2>&1 || { cat "build/$1.configure.log"; return 1; }
    cmake --build --preset "$1" -j "$jobs" >"build/$1.build.log" 2>&1 || { tail -n 60 "build/$1.build.log"; return 1; }
}
# Some tests wait, so that one more than there are cores has something to do.
test_preset() {
    ctest --preset "$1" -j "$((jobs + 1))" >"build/$1.test.log" 2>&1 || { grep -v ' Passed ' "build/$1.test.log"; return 1; }
    tail -n 3 "build/$1.test.log" | sed '/^$/d'
}

mkdir -p build
step "packages" scripts/setup.sh dev
step "includes follow the arrows" scripts/check-includes.sh
step "no value follows the locale" scripts/check-locale.sh
step "classes are named alike" scripts/check-names.sh
step "sources are laid out alike" scripts/check-format.sh
step "build with windows (dev)" build_preset dev
step "tests (dev)" test_preset dev
step "build without Qt (core)" build_preset core
step "tests without Qt (core)" scripts/whole-tests.sh build/core/tests/*_tests # each by itself is in dev
summary "steps"
