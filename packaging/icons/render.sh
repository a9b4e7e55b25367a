#!/bin/sh
# Renders the PNG sizes of the icon from its two drawings (needs rsvg-convert, from librsvg2-bin).
# The PNGs are committed, so that building the program needs no SVG tool.
set -e
cd "$(dirname "$0")"
for size in 16 22 24; do
    mkdir -p "${size}x${size}"
    rsvg-convert -w $size -h $size tolvisk-small.svg -o "${size}x${size}/tolvisk.png"
done
for size in 32 48 64 128 256; do
    mkdir -p "${size}x${size}"
    rsvg-convert -w $size -h $size tolvisk.svg -o "${size}x${size}/tolvisk.png"
done
