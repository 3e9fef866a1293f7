"""What is written on the pictures: sizes of the pieces that the program takes, and whether they can be read."""
from skincheck import layout, pictures
from skincheck.pictures import BLACK, NEEDED_CONTRAST

PANEL = {  # least size, and what the caption stands on, from the top right corner
    "ButtonBackground.gif": layout.MENU,
    "ButtonHighlight.gif": (layout.MENU_WIDTH, layout.ROW),
    "ButtonSelected.gif": (layout.MENU_WIDTH, layout.ROW),
}
PANEL_MARGIN = (5, 3)  # px, where no caption comes
DIALOG = (660, 400)  # px, the largest that is usual
LOGO_GROUND, LOGO_FIELD = (0xFF, 0xD7, 0x6A), 40  # of the delivered logo, and what still looks like it, of 255
LINK, PRAISE = (0x0B, 0x4F, 0xA8), (0, 0, 255)  # written on the game area beside black
HOLES_ALLOWED = 0.02  # of a button's middle
CLEARLY_PRESSED = 10  # mean distance of colours, of 255


def colour_of(number):
    return number & 0xFF, number >> 8 & 0xFF, number >> 16 & 0xFF


def tell_contrast(value, where, what, told):
    if value is not None and value < NEEDED_CONTRAST:
        told.mend(where, f"{what} has a contrast of {int(value * 10) / 10}:1 there; {NEEDED_CONTRAST}:1 is needed")


def check_panel(name, picture, menu_label, told):
    width, height = picture.size
    least = PANEL[name]
    if width < least[0] or height < least[1]:
        told.mend(name, f"is {width} x {height}; the menu takes a piece of {least[0]} x {least[1]} from its top right")
    across, down = PANEL_MARGIN
    box = (max(0, width - least[0] + across), down, width - across, min(height, least[1]) - down)
    if box[0] < box[2] and box[1] < box[3]:
        value = pictures.contrast_on(pictures.colours_in(picture, box), colour_of(menu_label))
        tell_contrast(value, name, "MenuLabel, the colour of the menu's captions,", told)


def check_button(name, picture, told):
    width, height = picture.size
    key = picture.getpixel((0, 0))
    middle = (width // 6, height // 4, max(width * 5 // 6, width // 6 + 1), max(height * 3 // 4, height // 4 + 1))
    pixels = (middle[2] - middle[0]) * (middle[3] - middle[1])
    colours = pictures.colours_in(picture, middle, key)
    holes = pixels - sum(count for count, _ in colours)
    if holes > HOLES_ALLOWED * pixels:
        told.mend(name, "has the colour of its top left pixel in its middle too, and that colour is transparent; "
                  "give the corners a colour that the button has nowhere else")
        return
    tell_contrast(pictures.contrast_on(colours, pictures.readable_ink(colours)), name, "the better of dark and white "
                  "captions", told)


def check_pair(name, up, down_name, down, told):
    if up.size != down.size:
        told.mend(down_name, f"is {down.size[0]} x {down.size[1]}, but {name} is {up.size[0]} x {up.size[1]}")
        return
    one, other = up.tobytes(), down.tobytes()
    if sum(abs(a - b) for a, b in zip(one, other)) < CLEARLY_PRESSED * len(one):
        told.hint(down_name, f"looks much like {name}; nobody will see that the button is pressed")


def check_dialog(name, picture, told):
    if picture.width < DIALOG[0] or picture.height < DIALOG[1]:
        told.hint(name, f"is {picture.width} x {picture.height}; dialogs are up to {DIALOG[0]} x {DIALOG[1]}, and what "
                  "it does not cover gets the colour of its bottom right pixel")
    colours = pictures.colours_in(picture, (0, 0, min(picture.width, DIALOG[0]), min(picture.height, DIALOG[1])))
    best = pictures.contrast_on(colours, pictures.readable_ink(colours))
    tell_contrast(best, name, "the better of dark and white text", told)


def check_game_area(frame, box, told):
    box = (max(box[0], 0), max(box[1], 0), min(box[2], frame.width), min(box[3], frame.height))
    if box[0] >= box[2] or box[1] >= box[3]:
        return
    colours = pictures.colours_in(frame, box)
    black = pictures.contrast_on(colours, BLACK)
    tell_contrast(black, "Frame.gif", "black text on the game area", told)
    if black is not None and black >= NEEDED_CONTRAST:
        for what, ink in (("links", LINK), ("the praise for a finished workout", PRAISE)):
            value = pictures.contrast_on(colours, ink)
            if value < NEEDED_CONTRAST:
                told.hint("Frame.gif", f"the blue of {what} has a contrast of {int(value * 10) / 10}:1 on the game "
                          "area; a lighter ground would be better")


def check_logo(frame, box, told):
    """The delivered logo is a square on a ground of its own, so its field should have that colour at the corners."""
    corners = [(x, y) for x in (box[0] + 1, box[2] - 2) for y in (box[1] + 1, box[3] - 2)]
    if not all(0 <= x < frame.width and 0 <= y < frame.height for x, y in corners):
        return
    furthest = max(sum(abs(a - b) for a, b in zip(frame.getpixel(corner), LOGO_GROUND)) for corner in corners)
    if furthest > LOGO_FIELD:
        told.hint("Frame.gif", "the delivered logo has a square ground of #%02X%02X%02X; give it a field of that "
                  "colour" % LOGO_GROUND)


def check_sharper(name, picture, plain_name, plain, told):
    """Name@2x.gif beside Name.gif; plain is None where that one is missing or can't be read."""
    if plain is None:
        told.mend(name, f"is never used without a {plain_name} beside it that can be read")
    elif picture and picture.size != (2 * plain.width, 2 * plain.height):
        told.mend(name, f"is {picture.width} x {picture.height}, but {plain_name} is {plain.width} x {plain.height}; "
                  "it is used only where it is exactly twice as large")
