#!/usr/bin/env bash
# Lets every open, write, close and rename of a run fail in turn, then ends the run at each of them. Whatever happens,
# an output file is the old one or the new one, whole, and only a run that was killed may leave its temporary file.
# Needs strace and the right to trace; without them nothing is tried.
#   tools/write_faults.sh [program]
set -uo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
program=$(realpath "${1:-$root/build/release/zaview}")
if ! strace -qq -o /dev/null true 2>/dev/null; then
  echo "skipped: no strace, or no right to trace"
  exit 0
fi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1

bad=0
runs=0
complain() {
  echo "FAILED: $1"
  bad=$((bad + 1))
}

set_up() {
  rm -rf try
  mkdir try
  cp "$root/samples/regular_head.out" try/run.out
  cat > try/s <<'SCRIPT'
WRITE_HISTORY MOT history.txt
WRITE_STAT TABLE MOT 3 "Heave" table.txt
WRITE_STAT MEAN MOT 3 "Heave" line.txt:APPEND
SCRIPT
  for name in history table line; do echo "the old $name" > "try/$name.txt"; done
}

run_traced() {
  (cd try && ASAN_OPTIONS=detect_leaks=0 strace -f -qq -o ../trace "$@" "$program" run.out -script s </dev/null >../log 2>&1
    exit $?) 2>/dev/null
}

set_up
(cd try && "$program" run.out -script s </dev/null >/dev/null) || complain "the run without a fault"
mv try good
set_up
mv try old

check() {  # what was tried, whether the temporary file may be left
  local name status=$3
  runs=$((runs + 1))
  for name in history table line; do
    cmp -s "try/$name.txt" "good/$name.txt" || cmp -s "try/$name.txt" "old/$name.txt" ||
      complain "$1: $name.txt is neither the old nor the new one"
  done
  cmp -s try/run.out old/run.out || complain "$1: run.out has changed"
  [[ $2 == kill ]] || ! compgen -G 'try/.zaview-*.part' >/dev/null || complain "$1: a temporary file is left"
  [[ $2 == kill ]] || ((status < 128)) || complain "$1: the run crashed, status $status"
  [[ $2 == kill ]] || ((status != 0)) || diff -rq -x '.zaview*' try good >/dev/null ||
    complain "$1: status 0, but not all is written"
}

inject() {  # call, what happens, kill or fail: at its first, second, .. time until the run has no further one
  local n status
  for ((n = 1; ; ++n)); do
    set_up
    run_traced -e "trace=$1" -e "inject=$1:$2:when=$n"
    status=$?
    grep -q 'INJECTED\|KILL' trace || return
    check "$1 number $n, $2" "$3" "$status"
  done
}

for call in openat write close rename ftruncate; do
  inject "$call" error=ENOSPC fail
  inject "$call" signal=KILL kill
done
inject write error=EINTR fail

echo "$runs runs with a fault, $bad of them wrong"
((bad == 0))
