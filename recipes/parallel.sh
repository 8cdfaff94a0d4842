#!/usr/bin/env bash
# parallel.sh RUNS RESULTS [JOBS]: all runs of a folder on this machine, JOBS at a time (the number of processors), by
# GNU parallel; then the table and the page. What is finished isn't done again.
set -uo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
runs=$1 results=$2 jobs=${3:-$(nproc)}
command -v parallel > /dev/null || { echo "parallel.sh: GNU parallel is not here (apt install parallel)" >&2; exit 1; }
mkdir -p "$results"
find "$runs" -maxdepth 1 -name '*.out' | sort |
  parallel --quote --will-cite --jobs "$jobs" --joblog "$results/jobs.log" "$here/one_run.sh" {} "$results"
"$here/collect.sh" "$runs" "$results"
