"""Loads the pictures of a skin as the program does, and measures what is written on them."""
from PIL import Image

LARGEST_SIDE = 8192  # px
DARK, WHITE, BLACK = (0x12, 0x1C, 0x1A), (255, 255, 255), (0, 0, 0)  # what captions are written in
NEEDED_CONTRAST = 4.5
PASSING_SHARE = 0.9  # of the pixels behind a caption: a border or an arrow may lie in its way


def load(path, told):
    """The first frame in plain colours, the transparent entry as the colour it has in the palette; or None."""
    try:
        with open(path, "rb") as file:
            start = file.read(6)
    except OSError as error:
        return told.mend(path.name, f"can't be read: {error.strerror}")
    if start not in (b"GIF87a", b"GIF89a"):
        return told.mend(path.name, "is no GIF file, whatever its name says; save it as GIF")
    try:
        with Image.open(path) as picture:
            if max(picture.size) > LARGEST_SIDE:
                return told.mend(path.name, f"is larger than {LARGEST_SIDE} pixels on a side")
            place = picture.tile[0][1]
            picture.load()
            plain = picture.convert("RGB")
            tell_of_format(picture, plain, path.name, told)
    except Exception as error:  # the reader has a dozen ways to say that bytes make no sense
        return told.mend(path.name, f"is damaged: {error}")
    if place != (0, 0) + plain.size:
        return told.mend(path.name, "its first frame does not cover the whole picture; flatten it before saving")
    if not has_every_pixel(path.read_bytes()):
        return told.mend(path.name, "is damaged: it ends before its last pixel")
    return plain


def tell_of_format(picture, plain, name, told):
    if getattr(picture, "n_frames", 1) > 1:
        told.hint(name, "is an animation; only its first frame is shown")
    entry = picture.info.get("transparency")
    if entry is not None and picture.mode in ("P", "L") and entry in picture.getdata():
        colour = plain.getpixel(first_place(picture, entry))
        told.hint(name, "has transparent pixels, and the program takes them as plain #%02x%02x%02x" % colour)


def first_place(picture, entry):
    at = list(picture.getdata()).index(entry)
    return at % picture.width, at // picture.width


def has_every_pixel(data):
    """Whether the codes of the first frame stand for as many pixels as it has. Readers fill up in silence."""
    data += bytes(300)  # a file cut short reads as zeros, which end every block
    at = 13 + palette_bytes(data[10])
    while data[at] == ord("!"):
        at = behind_blocks(data, at + 2)
    width, height = (int.from_bytes(data[at + n:at + n + 2], "little") for n in (5, 7))
    at += 10 + palette_bytes(data[at + 9])
    end = behind_blocks(data, at + 1)
    codes, block = bytearray(), at + 1
    while block < end - 1:
        codes += data[block + 1:block + 1 + data[block]]
        block += 1 + data[block]
    return 1 <= data[at] <= 8 and pixels_of(codes, data[at]) >= width * height


def palette_bytes(flags):
    return 3 * (2 << (flags & 7)) if flags & 0x80 else 0


def behind_blocks(data, at):
    while data[at]:
        at += 1 + data[at]
    return at + 1


def pixels_of(codes, root_bits):
    clear, widest = 1 << root_bits, 12
    pixels = held = bits = 0
    lengths, width, previous = [1] * (clear + 2), root_bits + 1, None
    for byte in codes:
        bits |= byte << held
        held += 8
        while held >= width:
            code, bits, held = bits & ((1 << width) - 1), bits >> width, held - width
            if code == clear:
                lengths, width, previous = [1] * (clear + 2), root_bits + 1, None
                continue
            if code == clear + 1 or code > len(lengths) or (previous is None and code > clear):
                return pixels
            if previous is not None and len(lengths) < 1 << widest:
                lengths.append(lengths[previous] + 1)
                if len(lengths) == 1 << width and width < widest:
                    width += 1
            if code >= len(lengths):
                return pixels
            previous = code
            pixels += lengths[code]
    return pixels


def luminance(colour):
    linear = [c / 255 / 12.92 if c / 255 <= 0.04045 else ((c / 255 + 0.055) / 1.055) ** 2.4 for c in colour]
    return 0.2126 * linear[0] + 0.7152 * linear[1] + 0.0722 * linear[2]


def contrast(one, other):
    bright, dark = sorted((luminance(one), luminance(other)), reverse=True)
    return (bright + 0.05) / (dark + 0.05)


def colours_in(picture, box, without=None):
    """(count, colour) of the pixels in the box, those of the key colour left out."""
    piece = picture.crop(box)
    found = piece.getcolors(piece.width * piece.height) or []
    return [(count, colour) for count, colour in found if colour != without]


def contrast_on(colours, ink):
    """The contrast that nine tenths of the pixels reach or pass; None without pixels."""
    total = sum(count for count, _ in colours)
    left = total * (1 - PASSING_SHARE)
    for value, count in sorted((contrast(colour, ink), count) for count, colour in colours):
        left -= count
        if left < 0:
            return value
    return None


def readable_ink(colours):
    """Dark or white, as the controls choose: by the mean brightness."""
    total = sum(count for count, _ in colours)
    mean = sum(count * luminance(colour) for count, colour in colours) / total if total else 1.0
    versus_dark = (mean + 0.05) / (luminance(DARK) + 0.05)
    return DARK if versus_dark >= 1.05 / (mean + 0.05) else WHITE
