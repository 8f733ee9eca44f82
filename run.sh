#!/usr/bin/env bash
# Installs what is missing, builds, makes a sample school where there is no database yet, and starts the program.
# Without a display it walks through the windows on a virtual screen, and leaves their pictures and the lists of the day
# as PDF in out/.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

packaging/install-packages.sh
cmake --preset release
cmake --build --preset release -- -j"$(nproc)" kolibri kolibri-db kolibri-rundgang
bin=$PWD/build/release/bin

if [[ -z ${DISPLAY:-} && -z ${WAYLAND_DISPLAY:-} ]]; then
  mkdir -p out
  # A school of its own, so that the walk never writes into the office's data.
  KOLIBRI_HOME=$(mktemp -d)
  export KOLIBRI_HOME
  trap 'rm -rf "$KOLIBRI_HOME"' EXIT
  "$bin/kolibri-db" beispiel "$KOLIBRI_HOME" >/dev/null
  xvfb-run -a -s '-screen 0 1366x768x24' "$bin/kolibri-rundgang" out
  exit
fi

base=${KOLIBRI_HOME:-$HOME/Kolibri}
mkdir -p "$base"
settings=$base/ProgramData/einstellungen.txt
# Where the settings already name a folder, the program itself says what it finds there.
if [[ ! -e $settings && ! -e $base/KOLIBRI_Daten.mdb ]]; then
  "$bin/kolibri-db" beispiel "$base"
fi
exec "$bin/kolibri"
