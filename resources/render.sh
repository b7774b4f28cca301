#!/usr/bin/env bash
# Renders the drawings in svg/ to the committed pictures in images/. For whoever changes a drawing; the build needs
# only the pictures. Wants rsvg-convert (librsvg2-bin) and convert (imagemagick).
set -euo pipefail
cd "$(dirname "$0")"
mkdir -p images

# render SVG WIDTH PNG: without times and program names inside, so that the same drawing gives the same bytes.
render() {
    rsvg-convert --width "$2" --keep-aspect-ratio "svg/$1.svg" |
        convert png:- -strip -define png:exclude-chunks=date,time "png32:$3"
}

for drawing in svg/*.svg; do
    name=$(basename "$drawing" .svg)
    case $name in
        Icon*) continue ;;
        logo) width=200 ;;
        *) width=32 ;;
    esac
    render "$name" "$width" "images/$name.png"
    render "$name" "$((2 * width))" "images/$name@2x.png"
done

# The small sizes of the application's icon have a drawing of their own, with a bolder line.
sizes=$(mktemp -d)
trap 'rm -r "$sizes"' EXIT
for size in 16 24; do render Icon_small "$size" "$sizes/$size.png"; done
for size in 32 48 64 256; do render Icon "$size" "$sizes/$size.png"; done
cp "$sizes/256.png" images/Icon.png
convert "$sizes"/{16,24,32,48,64,256}.png images/Icon.ico
