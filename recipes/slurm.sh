#!/usr/bin/env bash
# slurm.sh RUNS RESULTS [AT_ONCE]: all runs of a folder as a Slurm job array, AT_ONCE tasks at a time (20), and a job that
# makes the table and the page when all have ended. RUNS and RESULTS are seen by all nodes. What is finished isn't done again.
set -euo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
runs=$(cd "$1" && pwd)
mkdir -p "$2"
results=$(cd "$2" && pwd) at_once=${3:-20}
list=$results/runs.list
find "$runs" -maxdepth 1 -name '*.out' | sort | while read -r run; do
  [[ -e $results/$(basename "$run" .out).done ]] || echo "$run"
done > "$list"
count=$(wc -l < "$list")
options=(--parsable --export=ALL --output=/dev/null)
after=()
if [[ $count -gt 0 ]]; then
  array=$(sbatch "${options[@]}" --job-name=zaview --array="1-$count%$at_once" --wrap \
    "\"$here/one_run.sh\" \"\$(sed -n \"\${SLURM_ARRAY_TASK_ID}p\" \"$list\")\" \"$results\"")
  after=(--dependency="afterany:$array")
  echo "array job $array: $count runs"
fi
echo "collecting job $(sbatch "${options[@]}" --job-name=zaview_table "${after[@]}" --wrap \
  "\"$here/collect.sh\" \"$runs\" \"$results\" > \"$results/collect.log\" 2>&1")"
