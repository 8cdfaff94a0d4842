#!/usr/bin/env bash
# one_run.sh RUN RESULTS: the row and the picture of one run. Status 0: it is finished, now or before.
set -uo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
run=$1 results=$2
name=$(basename "$run" .out)
mkdir -p "$results"
[[ -e $results/$name.done ]] && exit 0

rm -f "$results/$name.failed"
date > "$results/$name.started"
ZAVIEW=${ZAVIEW:-zaview}
"$ZAVIEW" "$run" -v run "$name" -v out "$results" -script "$here/one_run.script" < /dev/null > "$results/$name.log" 2>&1
status=$?
if [[ $status -ne 0 ]]; then
  [[ $status -gt 128 ]] || echo "$status" > "$results/$name.failed"
  exit "$status"
fi
date > "$results/$name.done"
