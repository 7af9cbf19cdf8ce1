#!/bin/sh
# Renders the batch window's status images from their drawings, at single, double and triple scale, and
# with changed colours for dark windows. Run it after changing a drawing; the results are kept in the
# repository. Needs rsvg-convert (Debian: librsvg2-bin).
set -eu
cd "$(dirname "$0")/../client/resources/icons"

dark='s/#1e7b34/#6fd387/; s/#8a5a00/#f2b84b/; s/#b3261e/#ff8a80/; s/#ffffff/#1b1b1b/'

mkdir -p dark
for name in Fixed Multiple Error; do
  for scale in 1 2 3; do
    suffix="@${scale}x"
    [ "$scale" = 1 ] && suffix=""
    size=$((16 * scale))
    rsvg-convert --width=$size --height=$size --output="$name$suffix.png" "$name.svg"
    sed "$dark" "$name.svg" |
      rsvg-convert --width=$size --height=$size --output="dark/$name$suffix.png"
  done
done
