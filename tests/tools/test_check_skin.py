#!/usr/bin/python3
"""check_skin on small skins, each broken in one place, and on the skins that are delivered."""
import os
import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
try:
    import PIL  # noqa: F401
except ModuleNotFoundError:
    sys.exit("These tests need Pillow: apt-get install python3-pil")
from PIL import Image, ImageDraw

from skins import BUTTON, FACE, KEY, LOGO_GROUND, PRESSED, ROOT, SIZE, TOOL, SkinTest, button, check_skin, frame
from skincheck import layout


class Files(SkinTest):
    def test_a_whole_skin_has_nothing_to_mend_and_no_hints(self):
        self.assert_fine()

    def test_each_file_that_a_skin_can_not_do_without_is_named(self):
        for name in check_skin.MUST:
            with self.subTest(name):
                kept = (self.skin / name).read_bytes()
                (self.skin / name).unlink()
                self.assert_mends(name + ": is missing")
                (self.skin / name).write_bytes(kept)

    def test_files_that_a_skin_should_have_are_hints(self):
        for name in ("WideButton.gif", "WideButtonPressed.gif"):
            (self.skin / name).unlink()
        self.assert_hints("WideButton.gif: is missing")

    def test_names_match_without_regard_to_case(self):
        for name in ("Frame.gif", "Skin.ini", "WideButton.gif", "Button300Down.gif"):
            (self.skin / name).rename(self.skin / name.upper())
        self.assert_fine()

    def test_of_two_names_that_differ_in_case_the_exact_one_is_read(self):
        (self.skin / "FRAME.gif").write_bytes(b"nothing")
        self.assert_hints("FRAME.gif: differs from Frame.gif")

    def test_half_a_pair_is_to_be_mended(self):
        (self.skin / "WideButtonPressed.gif").unlink()
        (self.skin / "Button300Down.gif").unlink()
        self.assert_mends("WideButtonPressed.gif: is missing")
        self.assert_mends("Button300Down.gif: is missing")

    def test_a_pressed_picture_of_nothing_is_a_hint(self):
        self.save(button(BUTTON), "SunDown")
        self.assert_hints("SunDown.gif", "Sun.gif")

    def test_a_file_of_another_kind_is_told(self):
        frame().save(self.skin / "Frame.gif", format="PNG")
        self.assert_mends("Frame.gif: is no GIF")
        (self.skin / "Frame.gif").write_bytes(b"")
        self.assert_mends("Frame.gif: is no GIF")

    def test_a_folder_in_place_of_a_picture_is_told(self):
        (self.skin / "WideButton.gif").unlink()
        (self.skin / "WideButton.gif").mkdir()
        self.assert_mends("WideButton.gif: can't be read")

    def test_a_damaged_picture_is_told_wherever_it_is_cut(self):
        path = self.skin / "Frame.gif"
        whole = path.read_bytes()
        for length in (6, 12, 40, len(whole) // 2, len(whole) - 40):
            with self.subTest(length):
                path.write_bytes(whole[:length])
                self.assert_mends("Frame.gif: is damaged")

    def test_a_picture_whose_data_end_early_is_told(self):
        Image.new("P", (40, 40)).save(self.skin / "Sun.gif")
        data = (self.skin / "Sun.gif").read_bytes()
        place = data.index(b",\0\0\0\0") + 5
        taller = data[:place] + bytes([40, 0, 60, 0]) + data[place + 4:]
        (self.skin / "Sun.gif").write_bytes(taller[:6] + bytes([40, 0, 60, 0]) + taller[10:])
        self.assert_mends("Sun.gif: is damaged")

    def test_a_picture_that_is_too_large_is_told(self):
        self.save(Image.new("RGB", (8200, 4)), "Banner")
        self.assert_mends("Banner.gif: is larger than 8192")

    def test_a_first_frame_that_covers_a_part_only_is_told(self):
        path = self.skin / "DialogPicture.gif"
        data = path.read_bytes()
        path.write_bytes(data[:6] + bytes([0, 4]) + data[8:])  # the whole picture becomes 1024 wide
        self.assert_mends("DialogPicture.gif: its first frame")

    def test_an_animation_is_a_hint(self):
        frames = [self.frame.quantize(8), button(BUTTON, SIZE).quantize(8)]
        frames[0].save(self.skin / "Frame.gif", save_all=True, append_images=frames[1:])
        self.assert_hints("Frame.gif: is an animation")

    def test_transparent_pixels_are_a_hint_that_names_their_colour(self):
        few = self.frame.quantize(8)
        few.save(self.skin / "Frame.gif", transparency=few.getpixel((0, 0)))
        self.assert_hints("Frame.gif: has transparent pixels", "#ff00ff")

    def test_a_hidden_folder_is_no_skin(self):
        self.skin = self.skin.rename(self.skin.parent / ".Fine")
        self.assert_mends(".Fine: folders whose name begins with a dot")


class IniRules(SkinTest):
    def test_case_blanks_and_quotes_do_not_matter(self):
        text = (self.skin / "Skin.ini").read_bytes()
        text = text.replace(b"[Position]", b" [ POSITION ] rest").replace(b"MenuLeft=20", b' menuleft = "20" ')
        (self.skin / "Skin.ini").write_bytes(b"\xef\xbb\xbf; mine\n" + text)
        self.assert_fine()

    def test_the_first_of_two_keys_counts(self):
        self.append(b"MenuLeft=far\r\n")
        self.assert_hints("Skin.ini: line", "Position/MenuLeft stands there a second time")

    def test_the_first_of_two_sections_counts(self):
        self.append(b"[Graphics]\r\nMinX=none\r\n")
        self.assert_hints("a second section [Graphics]")

    def test_lines_that_mean_nothing_are_hints(self):
        text = (self.skin / "Skin.ini").read_bytes()
        (self.skin / "Skin.ini").write_bytes(b"MinX=1\n" + text)
        self.assert_hints("line 1 stands above the first section")
        (self.skin / "Skin.ini").write_bytes(text + b"MenuLeft 20\n")
        self.assert_hints("is no setting", "MenuLeft 20")

    def test_an_unknown_key_is_a_hint(self):
        self.append(b"MenuWidth=180\r\n")
        self.assert_hints("Position/MenuWidth is no key of a skin")

    def test_a_file_that_can_not_be_read_is_told(self):
        text = (self.skin / "Skin.ini").read_text()
        (self.skin / "Skin.ini").write_bytes(text.encode("utf-16"))
        self.assert_mends("Skin.ini: is written in 16-bit characters")
        (self.skin / "Skin.ini").write_bytes(text.encode() + b";" * (1 << 20))
        self.assert_mends("Skin.ini: is larger than 1 MiB")

    def test_a_position_that_is_no_number_leaves_the_skin_out(self):
        for text in ("left", "20 px", "2,5", "&H14", "99999999999", "1e400", '"'):
            with self.subTest(text):
                self.write_with(MenuLeft=text)
                self.assert_mends(f"Position/MenuLeft={text} is no number")

    def test_numbers_that_the_program_can_read_are_fine(self):
        for text in ("+20", "20.5", "2e1", "20."):
            with self.subTest(text):
                self.write_with(MenuLeft=text)
                self.assert_fine()

    def test_a_colour_that_is_no_number_is_black(self):
        self.write_with(DialogText="#2a2f1c")
        self.assert_mends("colours/DialogText=#2a2f1c is no number and counts as 0, which is black")

    def test_a_colour_is_read_as_far_as_it_is_a_number(self):
        self.write_with(DialogText="2633483 ; dark")
        self.assert_mends("colours/DialogText", "is read up to 2633483 only")

    def test_a_colour_may_have_a_prefix(self):
        self.write_with(DialogText="&H2B2F1C")
        self.assert_fine()

    def test_a_colour_beyond_white_is_a_hint(self):
        self.write_with(DialogText="&H8000000F")
        self.assert_hints("colours/DialogText=&H8000000F is no colour between 0 and 16777215")

    def test_a_colour_beyond_32_bits_leaves_the_skin_out(self):
        self.write_with(DialogText="99999999999")
        self.assert_mends("colours/DialogText=99999999999 is no number, so the program leaves the whole skin out")

    def test_a_flag_is_true_or_false_exactly(self):
        self.write_with(Puzzle="true")
        self.assert_mends("Pictures/Puzzle=true is no flag")

    def test_missing_positions_are_named(self):
        self.write_with(LogoLeft=None, MinimizeTop="")
        self.assert_mends("Position/LogoLeft is missing")
        self.assert_mends("Position/MinimizeTop is missing")

    def test_a_missing_colour_of_the_menu_is_a_hint(self):
        self.write_with(MenuLabel=None)
        self.assert_hints("colours/MenuLabel is missing")

    def test_a_window_button_takes_the_leading_number(self):
        self.write_with(MinimizeLeft="right")
        self.assert_mends("Position/MinimizeLeft=right is no number and counts as 0.")

    def test_custom_settings_count_only_when_the_skin_says_so(self):
        self.write({"Position": {"MenuLeft": "far"}}, "Custom.ini")
        self.assert_fine()
        self.write_with(Customize="1")
        self.assert_mends("Custom.ini: Position/MenuLeft=far")

    def test_custom_settings_never_place_the_window_buttons(self):
        self.write({"Position": {"MinimizeLeft": 0}}, "Custom.ini")
        self.write_with(Customize="True")
        self.assert_hints("Custom.ini: Position/MinimizeLeft is read from Skin.ini only")


class Places(SkinTest):
    def test_the_sizes_are_those_of_the_programs_pictures(self):
        for name, size in (("minimize.png", layout.WINDOW_BUTTON), ("close.png", layout.WINDOW_BUTTON),
                           ("logo.jpg", layout.LOGO)):
            with self.subTest(name), Image.open(ROOT / "assets" / "pictures" / name) as picture:
                self.assertEqual(picture.size, size)

    def test_a_game_area_too_small_for_the_screens_is_told(self):
        self.write_with(GameAreaWidth=572)
        self.assert_mends("Position/GameAreaWidth is 572; the screens need 573")
        self.write_with(GameAreaHeight=490)
        self.assert_mends("Position/GameAreaHeight is 490; the screens need 491")

    def test_what_reaches_beyond_the_frame_is_told(self):
        for key, value, what in (("GameAreaLeft", 300, "the game area"), ("MenuTop", 480, "the menu"),
                                 ("LogoLeft", -1, "the logo"), ("MinimizeLeft", 765, "the window's buttons")):
            with self.subTest(key):
                self.write_with(**{key: value})
                self.assert_mends("Skin.ini: Position/", what, "reaches beyond the frame of 820 x 620")

    def test_what_overlaps_is_told(self):
        self.write_with(MenuTop=200)
        self.assert_mends("the menu and the logo overlap by 150 x 10 pixels")
        self.write_with(GameAreaLeft=190)
        self.assert_mends("the game area and the menu overlap by 4 x 147 pixels")
        self.write_with(MinimizeTop=80)
        self.assert_mends("the game area and the window's buttons overlap")

    def test_what_lies_outside_of_the_outline_is_told(self):
        self.write_with(MinimizeLeft=760, MinimizeTop=4)
        self.assert_mends("Position/MinimizeLeft, MinimizeTop", "of the window's buttons lie outside of the outline")

    def test_a_corner_that_is_cut_off_is_a_hint(self):
        self.write_with(MinimizeLeft=750, MinimizeTop=8)
        self.assert_hints("Position/MinimizeLeft, MinimizeTop", "of the window's buttons lie outside of the outline")

    def test_a_frame_below_the_least_window_is_told(self):
        self.save(frame((600, 440)), "Frame")
        self.assert_mends("Frame.gif: is 600 x 440", "620 x 460")

    def test_a_least_screen_below_the_frame_is_told(self):
        self.write_with(MinX=800)
        self.assert_mends("Graphics/MinX is 800, but the frame is 820 wide")
        self.write_with(MinY=619)
        self.assert_mends("Graphics/MinY is 619, but the frame is 620 high")

    def test_no_least_screen_is_a_hint(self):
        self.write_with(MinX=0)
        self.assert_hints("Graphics/MinX is 0: the skin is offered on every screen")


class OutlineOfFrame(SkinTest):
    def assert_frame_mends(self, *parts):
        self.save(self.frame, "Frame")
        self.assert_mends("Frame.gif", *parts)

    def test_a_frame_of_one_colour_shows_nothing(self):
        self.frame = Image.new("RGB", SIZE, FACE)
        self.assert_frame_mends("has one colour only")

    def test_a_full_rectangle_is_a_hint(self):
        self.frame = Image.new("RGB", SIZE, FACE)
        ImageDraw.Draw(self.frame).line((SIZE[0] - 1, 0, SIZE[0] - 1, SIZE[1]), KEY)
        self.frame.putpixel((0, SIZE[1] - 1), KEY)
        self.save(self.frame, "Frame")
        self.assert_hints("Frame.gif: is a full rectangle")

    def test_the_last_column_must_be_free(self):
        ImageDraw.Draw(self.frame).rectangle((700, 200, 819, 299), FACE)
        self.assert_frame_mends("100 pixels of the last column")

    def test_the_last_column_but_one_belongs_to_the_window(self):
        ImageDraw.Draw(self.frame).rectangle((700, 200, 818, 299), FACE)
        self.save(self.frame, "Frame")
        self.assert_fine()
        outline = check_skin.outline.Outline(self.frame)
        self.assertEqual(outline.runs(250), [(8, 819)])

    def test_more_pieces_than_a_window_takes_are_told(self):
        draw = ImageDraw.Draw(self.frame)
        for y in range(100, 400):
            for x in range(220 + y % 2, 770, 2):
                draw.point((x, y), KEY)
        self.assert_frame_mends("pieces, 25000 at the most")

    def test_rows_that_look_alike_are_one_band_of_pieces(self):
        picture = Image.new("RGB", (30, 40), KEY)
        self.assertEqual(check_skin.outline.Outline(picture).pieces(), 0)
        ImageDraw.Draw(picture).rectangle((3, 3, 20, 30), FACE)
        ImageDraw.Draw(picture).rectangle((10, 10, 12, 20), KEY)
        self.assertEqual(check_skin.outline.Outline(picture).pieces(), 4)

    def test_a_dithered_edge_is_told(self):
        for y in range(40, 560):
            self.frame.putpixel((4 + y % 3, y), FACE)
        self.assert_frame_mends("runs of one or two pixels", "dithered")

    def test_an_edge_blended_with_the_key_is_a_hint(self):
        ImageDraw.Draw(self.frame).line((7, 40, 7, 560), (250, 60, 250))
        self.save(self.frame, "Frame")
        self.assert_hints("Frame.gif", "nearly the key colour")

    def test_key_colour_inside_the_face_is_told_with_its_place(self):
        self.frame.putpixel((400, 300), KEY)
        self.assert_frame_mends("the key colour stands inside the window in 1 place, at (400, 300)")

    def test_a_large_hole_is_a_hint(self):
        ImageDraw.Draw(self.frame).ellipse((20, 450, 180, 590), KEY)
        self.save(self.frame, "Frame")
        self.assert_hints("Frame.gif: there is a hole of", "its top at")

    def test_specks_outside_are_told(self):
        self.frame.putpixel((2, 2), FACE)
        self.assert_frame_mends("specks", "at (2, 2)")


class Captions(SkinTest):
    def test_pairs_must_be_of_one_size(self):
        self.save(button(PRESSED, (119, 30)), "VeryWideButtonPressed")
        self.assert_mends("VeryWideButtonPressed.gif: is 119 x 30, but VeryWideButton.gif is 120 x 30")

    def test_named_pairs_must_be_of_one_size_too(self):
        self.save(button(BUTTON), "Sun")
        self.save(button(PRESSED, (90, 30)), "SunDown")
        self.assert_mends("SunDown.gif: is 90 x 30")

    def test_a_pressed_button_must_look_pressed(self):
        self.save(button((255, 185, 80)), "WideButtonPressed")
        self.assert_hints("WideButtonPressed.gif: looks much like WideButton.gif")

    def test_panel_pictures_smaller_than_the_menu_are_told(self):
        self.save(Image.new("RGB", (173, 30), FACE), "ButtonHighlight")
        self.assert_mends("ButtonHighlight.gif: is 173 x 30", "174 x 21")
        self.save(Image.new("RGB", (174, 146), FACE), "ButtonBackground")
        self.assert_mends("ButtonBackground.gif: is 174 x 146", "174 x 147")

    def test_menu_captions_need_contrast_on_each_panel_picture(self):
        for stem in ("ButtonBackground", "ButtonHighlight", "ButtonSelected"):
            with self.subTest(stem):
                kept = (self.skin / (stem + ".gif")).read_bytes()
                self.save(Image.new("RGB", (200, 500), (70, 90, 80)), stem)
                self.assert_mends(stem + ".gif: MenuLabel", "4.5:1 is needed")
                (self.skin / (stem + ".gif")).write_bytes(kept)

    def test_a_border_or_an_arrow_does_not_spoil_the_contrast(self):
        picture = Image.new("RGB", (200, 30), FACE)
        ImageDraw.Draw(picture).line((190, 0, 190, 30), (40, 40, 40), 4)
        self.save(picture, "ButtonSelected")
        self.assert_fine()

    def test_neither_dark_nor_white_reads_on_middle_grey(self):
        self.save(button((124, 124, 124)), "WideButton")
        self.assert_mends("WideButton.gif: the better of dark and white captions", "4.5:1 is needed")

    def test_a_button_of_its_key_colour_is_told(self):
        self.save(Image.new("RGB", (120, 30), BUTTON), "WideButton")
        self.assert_mends("WideButton.gif: has the colour of its top left pixel in its middle")

    def test_dialogs_need_contrast(self):
        self.save(Image.new("RGB", (700, 500), (124, 124, 124)), "DialogPicture")
        self.assert_mends("DialogPicture.gif: the better of dark and white text")
        self.save(Image.new("RGB", (700, 500), (30, 40, 60)), "DialogPicture")
        self.assert_fine()

    def test_a_small_dialog_picture_is_a_hint(self):
        self.save(Image.new("RGB", (600, 500), FACE), "DialogPicture")
        self.assert_hints("DialogPicture.gif: is 600 x 500")

    def test_black_text_must_read_on_the_game_area(self):
        ImageDraw.Draw(self.frame).rectangle((205, 100, 777, 590), (60, 80, 90))
        self.save(self.frame, "Frame")
        self.assert_mends("Frame.gif: black text on the game area")

    def test_blue_text_on_the_game_area_is_a_hint(self):
        ImageDraw.Draw(self.frame).rectangle((205, 100, 777, 590), (150, 170, 160))
        self.save(self.frame, "Frame")
        self.assert_hints("Frame.gif: the blue of links")

    def test_missing_digits_are_a_hint_where_the_skin_counts_them(self):
        self.save(button(BUTTON), "Digit1")
        self.write_with(Max=2)
        self.assert_hints("Digit2.gif: is missing, while Graphics/Max is 2")


    def test_a_logo_without_a_field_of_its_colour_is_a_hint(self):
        ImageDraw.Draw(self.frame).rectangle((16, 56, 174, 214), FACE)
        self.save(self.frame, "Frame")
        self.assert_hints("Frame.gif: the delivered logo has a square ground of #FFD76A")


class Sharper(SkinTest):
    def test_pictures_of_exactly_twice_the_size_are_fine(self):
        self.save(button(BUTTON, (240, 60)), "VeryWideButton@2x")
        self.save(button(PRESSED, (240, 60)), "VeryWideButtonPressed@2X")
        self.assert_fine()

    def test_one_of_another_size_is_to_be_mended(self):
        self.save(frame((SIZE[0] * 2 - 1, SIZE[1] * 2)), "Frame@2x")
        self.assert_mends("Frame@2x.gif: is 1639 x 1240", "exactly twice as large")

    def test_one_without_its_plain_picture_is_to_be_mended(self):
        self.save(button(BUTTON), "Sun@2x")
        self.assert_mends("Sun@2x.gif: is never used without a Sun.gif")

    def test_a_damaged_one_is_to_be_mended(self):
        (self.skin / "Frame@2x.gif").write_bytes((self.skin / "Frame.gif").read_bytes()[:500])
        self.assert_mends("Frame@2x.gif: is damaged")

    def test_half_a_pair_is_a_hint(self):
        self.save(button(BUTTON, (240, 60)), "WideButton@2x")
        self.assert_hints("WideButtonPressed@2x.gif: is missing")


class CommandLine(SkinTest):
    def run_tool(self, *words, **environment):
        return subprocess.run([str(TOOL), *map(str, words)], capture_output=True, text=True,
                              env={**os.environ, **environment})

    def test_nothing_to_mend_answers_0_and_hints_do_not_count(self):
        self.append(b"MenuWidth=180\r\n")
        run = self.run_tool(self.skin)
        self.assertEqual((run.returncode, run.stderr), (0, ""))
        self.assertTrue(run.stdout.startswith("hint: Skin.ini: "), run.stdout)
        self.assertTrue(run.stdout.endswith("Fine: nothing to mend.\n"), run.stdout)

    def test_something_to_mend_answers_1_with_one_line_each(self):
        (self.skin / "Frame.gif").unlink()
        self.append(b"MenuWidth=180\r\n")
        run = self.run_tool(self.skin)
        self.assertEqual(run.returncode, 1)
        lines = run.stdout.splitlines()
        self.assertEqual([line.split(":")[0] for line in lines], ["mend", "hint", "Fine"])
        self.assertEqual(lines[-1], "Fine: 1 to mend.")

    def test_no_folder_answers_2(self):
        self.assertEqual(self.run_tool().returncode, 2)
        run = self.run_tool(self.skin / "Frame.gif")
        self.assertEqual((run.returncode, run.stdout), (2, ""))
        self.assertIn("is no folder", run.stderr)

    def test_without_pillow_the_package_is_named(self):
        with tempfile.TemporaryDirectory() as folder:
            (Path(folder) / "PIL.py").write_text("raise ModuleNotFoundError('No module', name='PIL')\n")
            run = self.run_tool(self.skin, PYTHONPATH=folder)
        self.assertEqual((run.returncode, run.stdout), (2, ""))
        self.assertEqual(run.stderr, "check_skin needs Pillow to read pictures: apt-get install python3-pil\n")

    def test_the_folder_is_left_as_it_was(self):
        self.write_with(Customize="True", LogoLeft=None)
        before = {path.name: path.read_bytes() for path in self.skin.iterdir()}
        self.run_tool(self.skin)
        self.assertEqual({path.name: path.read_bytes() for path in self.skin.iterdir()}, before)


class Delivered(unittest.TestCase):
    def test_the_delivered_skins_have_nothing_to_mend(self):
        skins = [path.parent for path in (ROOT / "assets" / "skins").glob("*/Skin.ini")]
        self.assertGreaterEqual(len(skins), 2)
        for skin in skins:
            with self.subTest(skin.name):
                self.assertEqual(check_skin.check(skin).mends, [])


class Guide(SkinTest):
    def test_the_skin_of_the_guide_has_nothing_to_mend(self):
        text = (ROOT / "docs" / "skins.md").read_text(encoding="utf-8")
        for path in self.skin.iterdir():
            path.unlink()
        settings = re.search(r"```ini\n(.*?)```", text, re.DOTALL)[1]
        (self.skin / "Skin.ini").write_text("\n".join(line.strip() for line in settings.split("\n")))
        window = frame((860, 620))
        ImageDraw.Draw(window).rectangle((14, 40, 183, 209), LOGO_GROUND)
        self.save(window, "Frame")
        self.save(Image.new("RGB", (200, 440), FACE), "ButtonBackground")
        for stem in ("ButtonHighlight", "ButtonSelected"):
            self.save(Image.new("RGB", (200, 30), FACE), stem)
        self.save(Image.new("RGB", (680, 480), FACE), "DialogPicture")
        told = self.told()
        self.assertEqual(told.mends, [])
        self.assertEqual([line.split(":")[1].strip() for line in told.hints],
                         ["WideButton.gif", "VeryWideButton.gif", "Button300.gif"])

    def test_every_key_and_every_file_is_explained(self):
        text = (ROOT / "docs" / "skins.md").read_text(encoding="utf-8")
        for _, key in check_skin.settings.KINDS:
            self.assertIn(f"`{key}`", text)
        for name in check_skin.KNOWN:
            self.assertIn(f"`{name}`", text)
        self.assertIn(check_skin.SHARPER + ".gif", text)
        self.assertIn("#%02X%02X%02X" % LOGO_GROUND, text)


if __name__ == "__main__":
    unittest.main()
