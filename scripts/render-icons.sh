#!/usr/bin/env bash
# Renders the application icon's PNG sizes from its drawing. The PNGs are kept
# in the repository beside the SVG, so a build needs no SVG renderer; run this
# again after changing the drawing and commit what it writes.
#   needs rsvg-convert (Debian: librsvg2-bin)
set -euo pipefail

icons="$(cd "$(dirname "$0")/.." && pwd)/dist/icons"
id=org.larderkeep.Larderkeep

command -v rsvg-convert >/dev/null || { echo "rsvg-convert is missing (apt-get install librsvg2-bin)" >&2; exit 1; }
for size in 48 128 256; do
  rsvg-convert --width "$size" --height "$size" --keep-aspect-ratio \
    "$icons/$id.svg" --output "$icons/$id-$size.png"
  echo "$icons/$id-$size.png"
done
