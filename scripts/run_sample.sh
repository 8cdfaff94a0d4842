#!/usr/bin/env bash
# Builds the program and runs a first script on a sample: ends with the statistics of heave on the screen.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
scripts/install_packages.sh
cmake --preset release >/dev/null
cmake --build --preset release -j2 --target zaview

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp samples/regular_head.out "$work/run.out"
cat > "$work/first.script" <<'SCRIPT'
! Heave in a regular wave: all statistics, then one number
WRITE_STAT TABLE MOT 3 "Heave" heave.txt
WRITE_STAT SIG_AMP MOT 3 "Significant heave amplitude" heave_sig.txt
SCRIPT
cd "$work"
"$root/build/release/zaview" run.out -script first.script
echo
cat heave.txt
echo
cat heave_sig.txt
