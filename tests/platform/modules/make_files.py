#!/usr/bin/env python3
"""Writes what the test modules are made of into the current folder: all.rc, with every string number up to 4603 and
then a given script, and the small icons, cursors, bitmaps and damaged pictures that it names. The tests know the same
rules: string n is "Text n", with the exceptions below.

    make_files.py PICTURE SCRIPT      PICTURE is a sound JPEG file
"""
import pathlib
import struct
import sys

SPECIAL = {
    2: "",
    100: "Größe é ñ Ω Ж 漢",
    101: "😀𝄞",
    102: "x" * 255,
    103: "x" * 256,
    104: "x" * 254 + "😀",
    105: "y" * 20000,
    106: r"a\\nb",
    107: r"a\\Nb",
    108: r"a\nb",
    109: "x" * 254 + r"\\n",
    110: 'say ""yes""',
    111: " blanks ",
}


def write_script(name: str, more: str) -> None:
    lines = ["LANGUAGE 0, 0", "STRINGTABLE", "BEGIN"]
    lines += [f'    {n} "{SPECIAL.get(n, f"Text {n}")}"' for n in range(1, 4604)]
    lines += ["END", "", more]
    pathlib.Path(name).write_text("\n".join(lines), encoding="utf-8")


def dib(width: int, height: int, bits: int, rows: bytes, header_height: int | None = None, colours: bytes = b"") -> bytes:
    return struct.pack("<IiiHHIIiiII", 40, width, header_height or height, 1, bits, 0, len(rows), 0, 0,
                       len(colours) // 4, 0) + colours + rows


def icon_image(side: int, bgra: bytes) -> bytes:
    mask = bytes((side + 31) // 32 * 4 * side)
    return dib(side, side, 32, bgra * (side * side) + mask, 2 * side)


def icon_file(images: list[tuple[int, bytes]], kind: int, third: int, fourth: int) -> bytes:
    """Third and fourth: planes and bits of an icon, the hot spot of a cursor."""
    offset = 6 + 16 * len(images)
    head, data = struct.pack("<HHH", 0, kind, len(images)), b""
    for side, image in images:
        head += struct.pack("<BBBBHHII", side % 256, side % 256, 0, 0, third, fourth, len(image), offset + len(data))
        data += image
    return head + data


def bitmap_file(picture: bytes, pixels_at: int) -> bytes:
    return struct.pack("<2sIHHI", b"BM", 14 + len(picture), 0, 0, 14 + pixels_at) + picture


def write(name: str, content: bytes) -> None:
    pathlib.Path(name).write_bytes(content)


def main() -> None:
    jpeg = pathlib.Path(sys.argv[1]).read_bytes()
    write_script("all.rc", pathlib.Path(sys.argv[2]).read_text(encoding="utf-8"))
    write("sound.jpg", jpeg)
    write("cut.jpg", jpeg[: len(jpeg) // 2])
    write("nopicture.jpg", b"this is no picture")
    for word in ("neutral", "english", "german"):
        write(f"{word}.txt", word.encode())
    red, green, blue = b"\0\0\xff\xff", b"\0\xff\0\xff", b"\xff\0\0\xff"
    write("three.ico", icon_file([(16, icon_image(16, red)), (32, icon_image(32, green)), (64, icon_image(64, blue))],
                                 1, 1, 32))
    write("arrow.cur", icon_file([(32, icon_image(32, blue))], 2, 3, 4))
    rows = b"\xff\0\0" b"\0\xff\0" b"\0\0" b"\0\0\xff" b"\xff\xff\xff" b"\0\0"  # bottom first, blue green red
    write("two.bmp", bitmap_file(dib(2, 2, 24, rows), 40))
    palette = b"\0\0\0\0" b"\0\0\xff\0"
    write("palette.bmp", bitmap_file(dib(2, 1, 8, b"\1\0\0\0", colours=palette), 40 + len(palette)))


main()
