#!/bin/sh
# Starts Kolibri for this user. The program expects its base folder; on a first start there is none yet.
set -e
mkdir -p "${KOLIBRI_HOME:-$HOME/Kolibri}"
exec /usr/lib/kolibri/kolibri "$@"
