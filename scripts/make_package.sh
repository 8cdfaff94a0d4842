#!/usr/bin/env bash
# Builds the Debian package of the program, its manual, guide and samples: build/package/zaview_VERSION_ARCHITECTURE.deb.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
bash scripts/install_packages.sh --package
cmake -S . -B build/package -G Ninja -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_FLAGS_RELEASE=-O3 -DZAVIEW_TESTS=OFF \
      -DCMAKE_INSTALL_PREFIX=/usr >/dev/null
cmake --build build/package --target zaview run_writer
(cd build/package && cpack -G DEB)
ls build/package/zaview_*.deb
