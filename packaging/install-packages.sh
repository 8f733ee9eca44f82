#!/usr/bin/env bash
# Installs what of debian-packages.txt is missing; asks nothing and does nothing when all is there.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

command -v apt-get >/dev/null || { echo "No apt-get here: please install the packages of $here/debian-packages.txt by hand." >&2; exit 0; }

missing=()
while read -r package; do
  [[ -z $package || $package == \#* ]] && continue
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
done < "$here/debian-packages.txt"
[[ ${#missing[@]} -eq 0 ]] && exit 0

echo "Installing: ${missing[*]}"
as_root=()
[[ $(id -u) -eq 0 ]] || as_root=(sudo)
export DEBIAN_FRONTEND=noninteractive
"${as_root[@]}" apt-get update -q
"${as_root[@]}" apt-get install -y -q --no-install-recommends "${missing[@]}"
