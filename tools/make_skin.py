#!/usr/bin/python3
"""Renders drawings (SVG) to the pictures that the program reads.

    tools/make_skin.py SOURCE-FOLDER TARGET-FOLDER [--png] [NAME ...]

Every NAME.svg of the source folder, or the named ones, becomes NAME.gif in the target folder: no transparency, a
palette of its own, colours spread by error diffusion. With --png a drawing without a key colour becomes NAME.png
instead, with soft edges.

A drawing may say in its outermost element

    data-key="#rrggbb"   what lies outside the shape gets exactly this colour, and nothing else has it; the shape's
                         edge is cut at half coverage
    data-edge="#rrggbb"  the edge is soft instead, blended towards this colour: for pictures on light ground

Needs rsvg-convert and Pillow (Debian: librsvg2-bin, python3-pil).
"""
import io
import re
import subprocess
import sys
from pathlib import Path

from PIL import Image, ImageChops

SOFT_FROM = 64  # least coverage, of 255, that a soft edge keeps


def rendered(drawing: Path) -> Image.Image:
    png = subprocess.run(["rsvg-convert", "--format=png", str(drawing)], check=True, capture_output=True).stdout
    return Image.open(io.BytesIO(png)).convert("RGBA")


def attribute(drawing: Path, name: str):
    found = re.search(name + r'="#([0-9a-fA-F]{6})"', drawing.read_text(encoding="utf-8"))
    return tuple(bytes.fromhex(found[1])) if found else None


def over(picture: Image.Image, ground) -> Image.Image:
    flat = Image.new("RGBA", picture.size, ground + (255,))
    flat.alpha_composite(picture)
    return flat.convert("RGB")


def best_palette(picture: Image.Image, colours: int) -> Image.Image:
    """At most that many colours. Few colours stay exact; gradients are spread."""
    known = picture.getcolors(colours)
    if known:
        return picture.quantize(colours, method=Image.Quantize.MEDIANCUT, dither=Image.Dither.NONE)
    palette = picture.quantize(colours, method=Image.Quantize.MEDIANCUT, kmeans=3)
    return picture.quantize(colours, palette=palette, dither=Image.Dither.FLOYDSTEINBERG)


def keyed(picture: Image.Image, key, edge) -> Image.Image:
    """A palette picture whose last entry is the key colour, used outside the shape and nowhere else."""
    coverage = picture.getchannel("A")
    least = SOFT_FROM if edge else 128
    inside = coverage.point(lambda a: 255 if a >= least else 0)
    shape = over(picture, edge) if edge else picture.convert("RGB")
    # Outside the shape stands one of its own colours while the palette is chosen, so none is spent on it.
    filler = shape.resize((1, 1), Image.Resampling.BOX, box=inside.getbbox())
    shape = Image.composite(shape, filler.resize(shape.size), inside)
    result = best_palette(shape, 255)
    palette = (result.getpalette() + [0] * 768)[:765]
    for entry in range(0, 765, 3):
        if tuple(palette[entry : entry + 3]) == key:  # one step beside it can't be told apart by eye
            palette[entry + 1] = max(palette[entry + 1] - 2, 0) if key[1] > 1 else key[1] + 2
    result.putpalette(palette + list(key))
    result.paste(255, mask=ImageChops.invert(inside))
    return result


def make(drawing: Path, target: Path, png: bool) -> None:
    picture = rendered(drawing)
    key = attribute(drawing, "data-key")
    if key or not png:
        edge = attribute(drawing, "data-edge")
        gif = keyed(picture, key, edge) if key else best_palette(over(picture, (255, 255, 255)), 256)
        gif.save(target / (drawing.stem + ".gif"), optimize=False)
    else:
        picture.save(target / (drawing.stem + ".png"), optimize=True)


def main() -> None:
    words = [word for word in sys.argv[1:] if not word.startswith("--")]
    if len(words) < 2:
        sys.exit(__doc__)
    source, target = Path(words[0]), Path(words[1])
    target.mkdir(parents=True, exist_ok=True)
    for drawing in sorted(source.glob("*.svg")):
        if len(words) == 2 or drawing.stem in words[2:]:
            make(drawing, target, "--png" in sys.argv)
            print(target / drawing.stem)


if __name__ == "__main__":
    main()
