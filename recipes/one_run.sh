#!/usr/bin/env bash
# one_run.sh RUN RESULTS: the row and the picture of one run. Status 0: it is finished, now or before.
set -uo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
run=$(realpath "$1") name=$(basename "$1" .out) program=${ZAVIEW:-zaview}
[[ $program != */* ]] || program=$(realpath "$program")
mkdir -p "$2" && cd "$2" || exit 1
[[ -e $name.done ]] && exit 0

rm -f "$name.failed"
date > "$name.started"
row=$(mktemp -u .row_XXXXXX)  # of a table the program cuts the name at a blank, which the run's may have
"$program" "$run" -v run "$name" -v row "$row" -script "$here/one_run.script" < /dev/null > "$name.log" 2>&1 &&
  mv "$row" "$name.row" 2>> "$name.log"
status=$?
if [[ $status -ne 0 ]]; then
  rm -f "$row"
  [[ $status -gt 128 ]] || echo "$status" > "$name.failed"
  exit "$status"
fi
date > "$name.done"
