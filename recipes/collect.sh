#!/usr/bin/env bash
# collect.sh RUNS RESULTS: one table and a page of pictures of all runs that are finished; tells of the others.
set -euo pipefail
shopt -s nullglob

runs=$(realpath "$1") results=$2 program=${ZAVIEW:-zaview}
[[ $program != */* ]] || program=$(realpath "$program")
readonly ROWS=5 ACROSS=4
readonly PER_PAGE=$((ROWS * ACROSS))

finished=("$results"/*.done)
[[ ${#finished[@]} -gt 0 ]] || { echo "collect.sh: no run is finished" >&2; exit 1; }
{
  echo "run,half width,low,significant heave,high"
  for file in "${finished[@]}"; do cat "${file%.done}.row"; done
} > "$results/table.csv.part"
mv "$results/table.csv.part" "$results/table.csv"

# A page a process: runs that were read stay in memory until it ends.
rm -f "$results"/page*.pdf
for ((first = 0; first < ${#finished[@]}; first += PER_PAGE)); do
  page=page.pdf
  ((${#finished[@]} <= PER_PAGE)) || page=page_$((first / PER_PAGE + 1)).pdf
  {
    echo "PICTURE_STYLE REPORT"
    echo "WINDOW_SIZE 400 300"
    echo "PLOT_PAGE $ROWS $ACROSS $page"
    for file in "${finished[@]:first:PER_PAGE}"; do
      echo "READ \"$runs/$(basename "$file" .done).out\""
      echo "PLOT_HISTORY MOT 3"
    done
  } > "$results/page.script"
  (cd "$results" && "$program" -script page.script < /dev/null > page.log 2>&1) ||
    { echo "collect.sh: no $page, see $results/page.log" >&2; exit 1; }
done
"$(dirname "${BASH_SOURCE[0]}")/status.sh" "$results"
