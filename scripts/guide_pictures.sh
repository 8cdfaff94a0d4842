#!/usr/bin/env bash
# Makes all pictures of the guide and the gallery anew, in docs/pictures: those of the guide by its own commands, those of
# the gallery by samples/gallery.script, the menus by a tool. Takes a build folder (build/run unless told). Pictures above
# 60 kB get 256 colours (ffmpeg).
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=$(realpath "${1:-$root/build/run}")
pictures=$root/docs/pictures
cmake --build "$build" --target zaview run_writer menu_pictures >/dev/null
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/made"

"$root/tools/check_guide.py" "$root/docs/guide.md" "$build/zaview" "$work/made"

cp "$root"/samples/* "$work"
cd "$work"
for i in 4 5 6 7 8 9 10; do "$build/tools/run_writer" --sample sea_$i .; done
"$build/zaview" sea_1.out sea_2.out sea_3.out -quiet -script gallery.script >gallery.log 2>&1 || { cat gallery.log; exit 1; }
for step in *0001.png; do mv "$step" "${step%0001.png}.png"; done
mv ./*.png made

# The file selector shows where the runs are.
mkdir /tmp/zaview_runs
trap 'rm -rf "$work" /tmp/zaview_runs' EXIT
cp "$root"/samples/* /tmp/zaview_runs
(cd /tmp/zaview_runs && "$build/tools/menu_pictures" . "$work/made") >menus.log 2>&1 || { cat menus.log; exit 1; }

for picture in made/*.png; do
  [ "$(stat -c %s "$picture")" -gt 60000 ] || continue
  ffmpeg -loglevel error -y -i "$picture" -vf \
    'split[a][b];[a]palettegen=max_colors=256:reserve_transparent=0[p];[b][p]paletteuse=dither=none' few.png
  mv few.png "$picture"
done
rm -f "$pictures"/*.png
cp made/*.png "$pictures"
cd "$root/docs"
for name in $(cat ./*.md ../README.md | grep -o 'pictures/[a-z0-9_]*\.png' | sort -u); do
  [ -e "$name" ] || { echo "no $name"; exit 1; }
done
du -sh "$pictures"
