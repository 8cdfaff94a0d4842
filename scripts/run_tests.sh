#!/usr/bin/env bash
# Builds and tests the release and the sanitizer build, then checks that both left the work tree as it was.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
bash scripts/install_packages.sh --tests

# What the tree holds beside the commit, ignored files left out; empty outside a clone.
tree_state() { git status --porcelain 2>/dev/null || true; }

before=$(tree_state)
status=0
for preset in release asan; do
  echo "== $preset"
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" -j2
  ctest --preset "$preset" -j2 --output-on-failure || status=1
done

after=$(tree_state)
if [[ $before != "$after" ]]; then
  echo "run_tests.sh: building or testing changed the work tree:" >&2
  diff <(echo "$before") <(echo "$after") >&2 || true
  status=1
fi
exit "$status"
