#!/usr/bin/env bash
# Builds the program alone and runs a first script on a sample: leaves a picture, ends with a table of confidence intervals
# on the screen.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
bash scripts/install_packages.sh
cmake -S . -B build/run -G Ninja -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_FLAGS_RELEASE=-O3 -DZAVIEW_TESTS=OFF >/dev/null
cmake --build build/run --target zaview

# Runs in the build folder, where what it writes can be looked at; the names on the screen stay short.
mkdir -p build/run/sample
cp samples/irregular_head.out samples/first.script build/run/sample/
cd build/run/sample
../zaview irregular_head.out -script first.script </dev/null
