#!/usr/bin/env python3
"""put_picture.py INSTRUCTIONS.rtf PICTURE.png WIDTH: lays the picture, WIDTH pixels wide, into the instructions.

It takes the place of the picture that is there, or stands in a paragraph of its own after the first one (the title).
Needs python3-pil; the picture is brought to 64 colours, which is enough for flat drawings and keeps the file small.
"""
import io
import pathlib
import re
import sys

from PIL import Image

TWIPS = 15  # a pixel
LINE = 120  # hexadecimal digits a line


def as_rtf(path, width):
    picture = Image.open(path).convert("RGB")
    height = round(picture.height * width / picture.width)
    picture = picture.resize((width, height), Image.LANCZOS).quantize(64)
    packed = io.BytesIO()
    picture.save(packed, "PNG", optimize=True)
    digits = packed.getvalue().hex()
    lines = "\n".join(digits[i:i + LINE] for i in range(0, len(digits), LINE))
    size = f"\\picwgoal{width * TWIPS}\\pichgoal{height * TWIPS}"
    return f"{{\\pict\\pngblip{size}\n{lines}}}"


def main(instructions, picture, width):
    file = pathlib.Path(instructions)
    text = file.read_text()
    group = as_rtf(picture, int(width))
    if "{\\pict" in text:
        text = re.sub(r"\{\\pict[^}]*\}", lambda _: group, text)
    else:
        text = text.replace("\\par\n", "\\par\n" + group + "\\par\n", 1)
    file.write_text(text)


if __name__ == "__main__":
    if len(sys.argv) != 4:
        sys.exit(__doc__.splitlines()[0])
    main(*sys.argv[1:])
