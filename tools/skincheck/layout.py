"""Where things stand in the window: positions of the settings against the frame, the screens and one another."""

LEAST_WINDOW = (620, 460)  # px, as for all of the following
LEAST_GAME_AREA = (573, 491)  # the strip below a game; the practice screen below the strip of the player
MENU_WIDTH, ROW, MENU_ROWS = 174, 21, 7
MENU = (MENU_WIDTH, ROW * MENU_ROWS)
LOGO = (150, 150)
WINDOW_BUTTON = (28, 28)
CUT_ALLOWED = 0.05  # of an area: round corners may go


def area(settings, keys, size):
    left, top = (settings[key] for key in keys)
    return left, top, left + size[0], top + size[1]


def areas(settings):
    game = (max(settings["GameAreaWidth"], 0), max(settings["GameAreaHeight"], 0))
    return {
        "the game area": ("GameArea", area(settings, ("GameAreaLeft", "GameAreaTop"), game)),
        "the menu": ("Menu", area(settings, ("MenuLeft", "MenuTop"), MENU)),
        "the logo": ("Logo", area(settings, ("LogoLeft", "LogoTop"), LOGO)),
        "the window's buttons": ("Minimize", area(settings, ("MinimizeLeft", "MinimizeTop"),
                                                  (2 * WINDOW_BUTTON[0], WINDOW_BUTTON[1]))),
    }


def overlap(one, two):
    wide = min(one[2], two[2]) - max(one[0], two[0])
    high = min(one[3], two[3]) - max(one[1], two[1])
    return (wide, high) if wide > 0 and high > 0 else None


def check(settings, frame, outline, told):
    check_sizes(settings, told)
    places = areas(settings)
    check_overlaps(places, told)
    if frame:
        check_frame(settings, frame.size, told)
        for what, (key, box) in places.items():
            check_place(what, key, box, frame.size, outline, told)


def check_sizes(settings, told):
    for n, side in enumerate(("Width", "Height")):
        have, least = settings["GameArea" + side], LEAST_GAME_AREA[n]
        if have < least:
            told.mend("Skin.ini", f"Position/GameArea{side} is {have}; the screens need {least}")


def check_overlaps(places, told):
    listed = list(places.items())
    for n, (what, (key, box)) in enumerate(listed):
        for other, (_, other_box) in listed[n + 1:]:
            common = overlap(box, other_box)
            if common:
                told.mend("Skin.ini", f"Position/{key}Left, {key}Top: {what} and {other} overlap by "
                          f"{common[0]} x {common[1]} pixels")


def check_frame(settings, size, told):
    if size[0] < LEAST_WINDOW[0] or size[1] < LEAST_WINDOW[1]:
        told.mend("Frame.gif", f"is {size[0]} x {size[1]}; the window has at least {LEAST_WINDOW[0]} x "
                  f"{LEAST_WINDOW[1]}, and the picture must fill it")
    for key, have, side in (("MinX", size[0], "wide"), ("MinY", size[1], "high")):
        if settings[key] <= 0:
            told.hint("Skin.ini", f"Graphics/{key} is {settings[key]}: the skin is offered on every screen, though "
                      f"the frame is {have} {side}. Right for a skin that must always be there")
        elif settings[key] < have:
            told.mend("Skin.ini", f"Graphics/{key} is {settings[key]}, but the frame is {have} {side}: on a screen "
                      "in between the skin would be offered and not fit")


def check_place(what, key, box, size, outline, told):
    if box[0] < 0 or box[1] < 0 or box[2] > size[0] or box[3] > size[1]:
        told.mend("Skin.ini", f"Position/{key}Left, {key}Top: {what} ({box[0]}, {box[1]} to {box[2]}, {box[3]}) "
                  f"reaches beyond the frame of {size[0]} x {size[1]}")
        return
    whole = (box[2] - box[0]) * (box[3] - box[1])
    cut = outline.outside(box)
    if cut:
        tell = told.mend if cut > CUT_ALLOWED * whole else told.hint
        tell("Skin.ini", f"Position/{key}Left, {key}Top: {cut} pixels of {what} lie outside of the outline and are "
             "cut off")
