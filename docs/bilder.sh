#!/usr/bin/env bash
# Makes the pictures of the manual and of README.md anew, with the program as it is built: docs/bilder.sh
# A picture blatt-NAME.png is the first sheet of the list NAME, any other one that of a window.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
bin=$here/../build/release/bin
widest=800
sheet_width=320

[[ -x $bin/kolibri-rundgang ]] || { echo "Please build first: cmake --build --preset release" >&2; exit 1; }

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export KOLIBRI_HOME=$scratch/Kolibri
mkdir "$KOLIBRI_HOME"
"$bin/kolibri-db" beispiel "$KOLIBRI_HOME" >/dev/null
xvfb-run -a -s '-screen 0 1366x768x24' "$bin/kolibri-rundgang" --breite "$widest" "$scratch/out" 2>"$scratch/messages" ||
  { cat "$scratch/messages" >&2; exit 1; }

rm -rf "$here/bilder"
mkdir "$here/bilder"
grep -oh 'bilder/[a-z0-9-]*\.png' "$here/handbuch.md" "$here/../README.md" | sort -u | while read -r used; do
  name=$(basename "$used" .png)
  if [[ $name == blatt-* ]]; then
    pdftoppm -png -f 1 -singlefile -scale-to-x "$sheet_width" -scale-to-y -1 \
      "$scratch/out/liste-${name#blatt-}.pdf" "$here/bilder/$name"
  else
    cp "$scratch/out/$name.png" "$here/bilder/"
  fi
done
echo "Pictures: $(ls "$here/bilder" | wc -l), $(du -sh --apparent-size "$here/bilder" | cut -f1)"
