#!/usr/bin/env bash
# recipes_test.sh PROGRAM RUN_WRITER RECIPES: three runs of which one is damaged and one is killed at first; what is told of
# them, and that they alone are done again. Names have blanks.
set -euo pipefail

program=$1 run_writer=$2 recipes=$3 runs="all runs" results="what came out"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
fail() { echo "recipes_test: $1" >&2; cat status >&2; exit 1; }

mkdir "$runs"
for i in 1 2 3; do "$run_writer" --sample sea_$i "$runs" > /dev/null && mv "$runs/sea_$i.out" "$runs/sea $i.out"; done
head -c 3000 "$runs/sea 2.out" > cut && mv "$runs/sea 2.out" whole && mv cut "$runs/sea 2.out"
printf '#!/bin/bash\n[[ $1 == *"sea 3"* ]] && kill -9 $$\nexec "%s" "$@"\n' "$program" > dying && chmod +x dying

for i in 1 2 3; do ZAVIEW=./dying "$recipes/one_run.sh" "$runs/sea $i.out" "$results" 2> /dev/null || true; done
ZAVIEW=$program "$recipes/collect.sh" "$runs" "$results" > status && fail "not all are finished"
grep -q '^1 finished, 1 failed, 1 killed or running$' status || fail "wrong counts"
grep -q '^failed: sea 2 ' status && grep -q '^killed or running: sea 3$' status || fail "wrong names"
[[ $(wc -l < "$results/table.csv") -eq 2 ]] || fail "not one row"

mv whole "$runs/sea 2.out"
touch -d '2000-01-01' "$results/sea 1.row"
for i in 1 2 3; do ZAVIEW=$program "$recipes/one_run.sh" "$runs/sea $i.out" "$results"; done
ZAVIEW=$program "$recipes/collect.sh" "$runs" "$results" > status || fail "not all are finished"
[[ $(wc -l < "$results/table.csv") -eq 4 && -s $results/page.pdf ]] || fail "no table or no page"
[[ $(date -r "$results/sea 1.row" +%Y) -eq 2000 ]] || fail "what was finished was done again"

rm "$runs/sea 1.out"
ZAVIEW=$program "$recipes/collect.sh" "$runs" "$results" > status 2>&1 && fail "a page without its run"
grep -q "see $results/page.log\$" status || fail "why there is no page isn't told"
