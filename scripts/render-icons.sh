#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Halvora developers
# SPDX-License-Identifier: MIT
# Renders the PNG twins of the drawings that need some, the application's icon and the plug-in's banner, and
# colours the one drawing of a bookmark folder.
#   scripts/render-icons.sh              writes them into the source tree, where they are committed
#   scripts/render-icons.sh --check DIR  writes them into DIR, and fails if one of the tree shows another picture
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

usage() { sed -n '4,7s/^# \{0,1\}//p' "$0" >&2; exit 2; }
check=
case ${1-} in
'') [ $# -eq 0 ] || usage; into=$PWD ;;
--check) [ $# -eq 2 ] || usage; mkdir -p "$2"; into=$(readlink -f "$2"); check=yes ;;
*) usage ;;
esac

if ! command -v rsvg-convert >/dev/null; then
    root=; [ "$(id -u)" -eq 0 ] || root=sudo
    $root apt-get update -q
    $root apt-get install -yq --no-install-recommends librsvg2-bin
fi

made=()
render() { # drawing, picture, width, height
    mkdir -p "$into/$(dirname "$2")"
    rsvg-convert --width "$3" --height "$4" --output "$into/$2" "$1"
    made+=("$2")
}

folder() { # colour's name, front, outline, upper edge of the front
    local drawing=resources/bookmarks/folder_$1.svg
    mkdir -p "$into/resources/bookmarks"
    sed -e "s/@BODY@/$2/; s/@EDGE@/$3/; s/@SHINE@/$4/" resources/bookmarks/folder.svg.in >"$into/$drawing"
    made+=("$drawing")
    render "$into/$drawing" "${drawing%.svg}.png" 16 16
    render "$into/$drawing" "${drawing%.svg}@2x.png" 32 32
}

for size in 16 32 48 64 128 256; do
    render host/resources/org.halvora.Halvora.svg "host/resources/app/${size}x$size.png" $size $size
done
render resources/images/login.svg resources/images/login100.png 450 100
render resources/images/login.svg resources/images/login200.png 900 200

# The outlines stand out from light and dark backgrounds alike, so the fronts may be as bright as their names.
folder orange '#f49e1e' '#c2660c' '#ffc876'
folder yellow '#f5cf2b' '#a67c00' '#ffee9c'
folder red '#ea5a52' '#d03b34' '#ffa49c'
folder gray '#a9b0b8' '#76808c' '#d9dee3'
folder green '#66c25e' '#3a8f3e' '#b2e8a6'
folder brown '#b9975a' '#96703a' '#e2c894'
folder cyan '#3cc3d6' '#12899c' '#a5eaf2'
folder blue '#62a0ee' '#3a78d0' '#b0d2ff'

[ -n "$check" ] || exit 0
status=0
for picture in "${made[@]}"; do
    cmp -s "$picture" "$into/$picture" || { echo "differs from its drawing: $picture" >&2; status=1; }
done
exit $status
