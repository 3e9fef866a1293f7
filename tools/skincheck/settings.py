"""Reads a skin's settings files by the program's rules, and tells what it would stumble over.

Sections and keys match without regard to case, blanks around names and values are dropped, one pair of quotes around
a value is taken off, ";" begins a comment, and of two sections or keys of one name the first counts.
"""
import re

COLOURS = ("Grid BigGrid MenuLabel Digit ClueText DigitBackground UnusedCell DigitGiven DigitError Pencil "
           "PencilAlternative Highlight DialogText").split()
PLACES = ("GameAreaLeft GameAreaTop GameAreaWidth GameAreaHeight ControlPanelLeft ControlPanelTop LogoLeft LogoTop "
          "MenuLeft MenuTop").split()
WINDOW_BUTTONS = ["MinimizeLeft", "MinimizeTop"]  # read on their own, from "Skin.ini" only
KINDS = {("font", "Font"): "text", ("Pictures", "Puzzle"): "flag", ("Customize", "Customize"): "flag"}
KINDS.update({("colours", key): "colour" for key in COLOURS})
KINDS.update({("Graphics", key): "number" for key in ("Max", "MinX", "MinY")})
KINDS.update({("Position", key): "number" for key in PLACES})
KINDS.update({("Position", key): "leading" for key in WINDOW_BUTTONS})
# Without these things lie upon each other, or the skin is offered where it does not fit. Others may well be 0.
NEEDED = [("Position", key) for key in PLACES + WINDOW_BUTTONS if not key.startswith("ControlPanel")] + [
    ("Graphics", "MinX"), ("Graphics", "MinY")]

BLANKS = b" \t\r\v\f"
LONGEST_VALUE = 999  # bytes
LARGEST_FILE = 1 << 20  # bytes
WHITE = 0xFFFFFF
DECIMAL = re.compile(r"[ \t\r\n]*([+-]?(?:[0-9]+\.?[0-9]*|\.[0-9]+)(?:[eE][+-]?[0-9]+)?)")
PREFIXED = re.compile(r"[ \t\r\n]*&(?:[hH]([0-9a-fA-F]+)|[oO]([0-7]+))")


class NotANumber(ValueError):
    """The text can't be taken as the number it should be; the program drops the skin then."""


def int32(value):
    try:
        rounded = round(value)  # halves to even
    except (OverflowError, ValueError):
        raise NotANumber from None
    if not -0x80000000 <= rounded <= 0x7FFFFFFF:
        raise NotANumber
    return rounded


def whole_number(text):
    match = DECIMAL.match(text)
    if not match or text[match.end():].strip(" \t\r\n"):
        raise NotANumber
    return int32(float(match[1]))


def leading_number(text):
    """The number at the start of the text and what follows it; None where there is none, which counts as 0."""
    match = PREFIXED.match(text)
    if match:
        bits = int(match[1], 16) if match[1] else int(match[2], 8)
        if bits > 0xFFFFFFFF:
            raise NotANumber
        return bits - (1 << 32) if bits > 0x7FFFFFFF else bits, text[match.end():].strip()
    match = DECIMAL.match(text)
    return (int32(float(match[1])), text[match.end():].strip()) if match else (None, text)


def decoded(data):
    try:
        return data.decode("utf-8")
    except UnicodeDecodeError:
        return "".join(bytes([byte]).decode("cp1252", errors="ignore") or chr(byte) for byte in data)


def unquoted(value):
    return value[1:-1] if len(value) >= 2 and value[:1] in (b'"', b"'") and value[-1:] == value[:1] else value


def names(section, key):
    return section.casefold(), key.casefold()


KNOWN = {names(*pair): (pair, kind) for pair, kind in KINDS.items()}


class IniFile:
    """The values of one file by section and key. Says what it can't read or would never be read."""

    def __init__(self, path, told):
        self.values = {}
        data = self.bytes_of(path, told)
        if data.startswith(b"\xef\xbb\xbf"):
            data = data[3:]
        sections, section, counts = set(), None, False
        for number, line in enumerate(data.split(b"\n"), 1):
            line = line.strip(BLANKS)
            if not line or line.startswith(b";"):
                continue
            if line.startswith(b"["):
                section = decoded(line[1:].split(b"]")[0].strip(BLANKS))
                counts = section.casefold() not in sections
                sections.add(section.casefold())
                if not counts:
                    told.hint(path.name, f"line {number}: a second section [{section}] is not read")
            elif b"=" not in line:
                told.hint(path.name, f"line {number} is no setting, no section and no comment: {decoded(line)}")
            elif section is None:
                told.hint(path.name, f"line {number} stands above the first section and is not read")
            elif counts:
                self.take(section, *line.split(b"=", 1), number, path, told)

    @staticmethod
    def bytes_of(path, told):
        if not path.is_file():
            return b""
        try:
            data = path.read_bytes()
        except OSError as error:
            told.mend(path.name, f"can't be read: {error.strerror}")
            return b""
        if data[:2] in (b"\xff\xfe", b"\xfe\xff"):
            told.mend(path.name, "is written in 16-bit characters, so nothing of it is read; save it as UTF-8")
            return b""
        if len(data) > LARGEST_FILE:
            told.mend(path.name, "is larger than 1 MiB, so nothing of it is read")
            return b""
        return data

    def take(self, section, key, value, number, path, told):
        key = decoded(key.strip(BLANKS))
        place = names(section, key)
        if place in self.values:
            told.hint(path.name, f"line {number}: {section}/{key} stands there a second time and is not read")
            return
        self.values[place] = decoded(unquoted(value.strip(BLANKS)).split(b"\0")[0][:LONGEST_VALUE])
        if place not in KNOWN:
            told.hint(path.name, f"{section}/{key} is no key of a skin; the program does not read it")


class Settings:
    """What the program has in force after reading the folder. A key is answered by its number; absent ones are 0."""

    def __init__(self, find, told):
        self.numbers = {}
        self.is_customised = False
        skin = IniFile(find("Skin.ini"), told)
        self.read(skin, find("Skin.ini").name, told, True)
        if self.is_customised:
            path = find("Custom.ini")
            self.read(IniFile(path, told), path.name, told, False)
        for section, key in NEEDED:
            if not skin.values.get(names(section, key)):
                told.mend("Skin.ini", f"{section}/{key} is missing and counts as 0")
        if not skin.values.get(names("colours", "MenuLabel")):
            told.hint("Skin.ini", "colours/MenuLabel is missing: the captions of the menu are black")

    def __getitem__(self, key):
        return self.numbers.get(key, 0)

    def read(self, ini, file, told, first):
        for place, text in ini.values.items():
            if not text or place not in KNOWN:
                continue
            (section, key), kind = KNOWN[place]
            if kind == "leading" and not first:
                told.hint(file, f"{section}/{key} is read from Skin.ini only")
                continue
            value = self.value_of(kind, text, file, f"{section}/{key}", told)
            if kind == "flag":
                if key == "Customize" and first:
                    self.is_customised = bool(value)
            elif value is not None:
                self.numbers[key] = value

    @staticmethod
    def value_of(kind, text, file, place, told):
        if kind == "text":
            return None
        if kind == "flag":
            if text not in ("True", "False", "1", "0"):
                told.mend(file, f"{place}={text} is no flag and counts as False: write True or False, exactly so")
            return text in ("True", "1")
        try:
            if kind == "number":
                return whole_number(text)
            number, rest = leading_number(text)
        except NotANumber:
            told.mend(file, f"{place}={text} is no number, so the program leaves the whole skin out")
            return 0
        if number is None:
            told.mend(file, f"{place}={text} is no number and counts as 0"
                      + (", which is black" if kind == "colour" else ""))
        elif rest:
            told.mend(file, f"{place}={text} is read up to {number} only")
        elif kind == "colour" and not 0 <= number <= WHITE:
            told.hint(file, f"{place}={text} is no colour between 0 and {WHITE}; its upper part is dropped")
        return number or 0
