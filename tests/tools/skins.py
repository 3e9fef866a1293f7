"""A small skin with nothing to mend, made in a folder of its own, and the means to break it in one place."""
import importlib.util
import shutil
import sys
import tempfile
import unittest
from importlib.machinery import SourceFileLoader
from pathlib import Path

from PIL import Image, ImageDraw

sys.dont_write_bytecode = True
ROOT = Path(__file__).resolve().parents[2]
TOOL = ROOT / "tools" / "check_skin"
_loader = SourceFileLoader("check_skin", str(TOOL))
check_skin = importlib.util.module_from_spec(importlib.util.spec_from_loader("check_skin", _loader))
_loader.exec_module(check_skin)

KEY, FACE, BUTTON, PRESSED = (255, 0, 255), (244, 250, 247), (255, 190, 80), (150, 90, 20)
LOGO_GROUND = (255, 215, 106)
SIZE = (820, 620)
SETTINGS = {
    "font": {"Font": "Inter"},
    "colours": {"MenuLabel": 2831122, "DialogText": 2633483},
    "Pictures": {"Puzzle": "False"},
    "Customize": {"Customize": "False"},
    "Graphics": {"Max": 0, "MinX": 820, "MinY": 620},
    "Position": {"GameAreaLeft": 205, "GameAreaTop": 100, "GameAreaWidth": 573, "GameAreaHeight": 491,
                 "LogoLeft": 20, "LogoTop": 60, "MenuLeft": 20, "MenuTop": 260, "MinimizeLeft": 700,
                 "MinimizeTop": 30},
}


def frame(size=SIZE):
    picture = Image.new("RGB", size, KEY)
    ImageDraw.Draw(picture).rounded_rectangle((8, 8, size[0] - 9, size[1] - 9), 20, FACE)
    ImageDraw.Draw(picture).rectangle((16, 56, 174, 214), LOGO_GROUND)
    return picture


def button(colour, size=(120, 30)):
    picture = Image.new("RGB", size, KEY)
    ImageDraw.Draw(picture).rectangle((3, 0, size[0] - 4, size[1] - 1), colour)
    return picture


def save(picture, path, **options):
    picture.quantize(256, dither=Image.Dither.NONE).save(path, format="GIF", **options)


class SkinTest(unittest.TestCase):
    def setUp(self):
        root = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, root)
        self.skin = root / "Fine"
        self.skin.mkdir()
        self.write(SETTINGS)
        self.frame = frame()
        self.save(self.frame, "Frame")
        self.save(Image.new("RGB", (200, 500), FACE), "ButtonBackground")
        self.save(Image.new("RGB", (200, 30), (190, 235, 215)), "ButtonHighlight")
        self.save(Image.new("RGB", (200, 30), (255, 210, 110)), "ButtonSelected")
        self.save(Image.new("RGB", (700, 500), FACE), "DialogPicture")
        for up, down in (("WideButton", "WideButtonPressed"), ("VeryWideButton", "VeryWideButtonPressed"),
                         ("Button300", "Button300Down")):
            self.save(button(BUTTON), up)
            self.save(button(PRESSED), down)

    def save(self, picture, stem, **options):
        save(picture, self.skin / (stem + ".gif"), **options)

    def write(self, settings, file="Skin.ini"):
        lines = [f"[{section}]\r\n" + "".join(f"{key}={value}\r\n" for key, value in keys.items())
                 for section, keys in settings.items()]
        (self.skin / file).write_bytes("".join(lines).encode())

    def write_with(self, **changes):
        """The settings with some keys changed, or left out where the value is None."""
        settings = {section: {key: changes.get(key, value) for key, value in keys.items()
                              if changes.get(key, value) is not None} for section, keys in SETTINGS.items()}
        self.write(settings)

    def append(self, text, file="Skin.ini"):
        path = self.skin / file
        path.write_bytes((path.read_bytes() if path.exists() else b"") + text)

    def told(self):
        return check_skin.check(self.skin)

    def assert_mends(self, *parts):
        self.assert_one(self.told().mends, parts)

    def assert_hints(self, *parts):
        told = self.told()
        self.assertEqual(told.mends, [])
        self.assert_one(told.hints, parts)

    def assert_one(self, lines, parts):
        fitting = [line for line in lines if all(part in line for part in parts)]
        self.assertEqual(len(fitting), 1, f"{parts} in {lines}")

    def assert_fine(self):
        told = self.told()
        self.assertEqual((told.mends, told.hints), ([], []))
