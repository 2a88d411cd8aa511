#!/usr/bin/env bash
# Kills the program while it saves (250 times), keeps copies (12 times) and runs engines (at 12 moments, of a check and of
# a run), and looks whether anything is lost. Some minutes; the tests have a short form of it.
#   scripts/kill-proofs.sh [PROGRAM]
# PROGRAM is build/dev/tests/frame_kill_proof_test unless given. SBD_TEST_SEED=NUMBER repeats the moments of a proof.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
program=${1:-build/dev/tests/frame_kill_proof_test}
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
export SBD_KILLS=whole QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 HOME=$home QTEST_FUNCTION_TIMEOUT=3600000
unset XDG_STATE_HOME XDG_CONFIG_HOME
"$program" -maxwarnings 0
