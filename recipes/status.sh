#!/usr/bin/env bash
# status.sh RESULTS: how many runs are finished, failed, killed or running. Status 0: all are finished.
set -euo pipefail
shopt -s nullglob

cd "$1"
finished=(*.done) failed=(*.failed) open=()
for file in *.started; do
  name=${file%.started}
  [[ -e $name.done || -e $name.failed ]] || open+=("$name")
done
echo "${#finished[@]} finished, ${#failed[@]} failed, ${#open[@]} killed or running"
for file in "${failed[@]}"; do echo "failed: ${file%.failed} (status $(cat "$file"), see $1/${file%.failed}.log)"; done
for name in "${open[@]}"; do echo "killed or running: $name"; done
[[ ${#failed[@]} -eq 0 && ${#open[@]} -eq 0 ]]
