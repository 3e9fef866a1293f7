"""The outline of the frame picture, scanned as the program does it, and what is wrong with it.

The key is the colour of the bottom left pixel. A row is scanned up to its last pixel, which never belongs to the
outline. Rows that look alike count as one band of pieces.
"""
MOST_PIECES = 25000
SPECK = 16  # px; smaller parts and holes can't be meant
TINY_RUN = 2  # px
TINY_RUNS_ALLOWED = 24  # more are an edge that was dithered
FRINGE = 110  # distance of colours; what lies nearer to the key at the edge was blended with it
FRINGE_ALLOWED = 24  # px
RECTANGLE_SHARE = 0.995  # of the pixels


class Outline:
    def __init__(self, picture):
        self.width, self.height = picture.size
        data = picture.tobytes()
        row_bytes = 3 * self.width
        self.rows = [data[y * row_bytes:(y + 1) * row_bytes] for y in range(self.height)]
        self.key = self.rows[-1][:3]
        self.spans = [self.scanned(row) for row in self.rows]  # (start, end, is key) of whole rows

    def scanned(self, row):
        pixels = [row[x:x + 3] == self.key for x in range(0, len(row), 3)]
        spans, start = [], 0
        for x in range(1, self.width + 1):
            if x == self.width or pixels[x] != pixels[start]:
                spans.append((start, x, pixels[start]))
                start = x
        return spans

    def runs(self, y):
        """What of the row belongs to the window: never the last pixel."""
        ends = ((start, min(end, self.width - 1)) for start, end, is_key in self.spans[y] if not is_key)
        return [(start, end) for start, end in ends if start < end]

    def pieces(self):
        count, above = 0, []
        for y in range(self.height):
            runs = self.runs(y)
            if runs != above:
                count += len(runs)
            above = runs
        return count

    def outside(self, box):
        """How many pixels of a box the window does not have."""
        left, top, right, bottom = box
        inside = 0
        for y in range(max(top, 0), min(bottom, self.height)):
            inside += sum(max(0, min(end, right) - max(start, left)) for start, end in self.runs(y))
        return (right - left) * (bottom - top) - inside

    def parts(self, of_key):
        """The connected parts as [pixels, touches the border, x, y], by joining the spans of neighbouring rows."""
        parts, parent, above = [], [], []

        def root(n):
            while parent[n] != n:
                parent[n] = n = parent[parent[n]]
            return n

        for y, spans in enumerate(self.spans):
            here = []
            for start, end, is_key in spans:
                if is_key != of_key:
                    continue
                at_border = y in (0, self.height - 1) or start == 0 or end == self.width
                parts.append([end - start, at_border, start, y])
                parent.append(len(parent))
                here.append((start, end, parent[-1]))
                for other_start, other_end, other in above:
                    if other_start <= end and start <= other_end and root(other) != root(parent[-1]):
                        one, two = sorted((root(other), root(parent[-1])))
                        parent[two] = one
                        parts[one][0] += parts[two][0]
                        parts[one][1] |= parts[two][1]
            above = here
        return [part for n, part in enumerate(parts) if parent[n] == n]

    def fringe(self):
        """Pixels at the edge that are nearly the key colour, while those further in are not."""
        def near(y, x):
            pixel = self.rows[y][3 * x:3 * x + 3]
            return sum((a - b) ** 2 for a, b in zip(pixel, self.key)) < FRINGE ** 2

        count = 0
        for y in range(self.height):
            for start, end in self.runs(y):
                if end - start >= 16:
                    count += near(y, start) and not near(y, start + 7)
                    count += end < self.width - 1 and near(y, end - 1) and not near(y, end - 8)
        return count


def check(outline, told):
    name = "Frame.gif"
    own = sum(end - start for y in range(outline.height) for start, end in outline.runs(y))
    if own == 0:
        return told.mend(name, "has one colour only, so nothing of the window would be seen")
    if own >= RECTANGLE_SHARE * (outline.width - 1) * outline.height:
        told.hint(name, "is a full rectangle; paint what is outside of the window in a colour that it has nowhere "
                  "else, the bottom left pixel among it")
    last = sum(not spans[-1][2] for spans in outline.spans)
    if last:
        told.mend(name, f"{last} pixels of the last column are not in the key colour; that column never belongs to "
                  "the window, so leave it free")
    pieces = outline.pieces()
    if pieces > MOST_PIECES:
        told.mend(name, f"the outline has {pieces} pieces, {MOST_PIECES} at the most; the skin can't be used. Draw "
                  "the outside in one plain colour, without dithering")
    check_edges(outline, name, told)
    check_parts(outline, name, told)


def check_edges(outline, name, told):
    tiny = sum(end - start <= TINY_RUN for y in range(outline.height) for start, end in outline.runs(y))
    if tiny > TINY_RUNS_ALLOWED:
        told.mend(name, f"the outline has {tiny} runs of one or two pixels: its edge is dithered. Turn dithering off")
    fringe = outline.fringe()
    if fringe > FRINGE_ALLOWED:
        told.hint(name, f"{fringe} pixels at the edge are nearly the key colour and will show as a fringe; draw the "
                  "edge without smoothing")


def check_parts(outline, name, told):
    holes = [part for part in outline.parts(True) if not part[1]]
    specks = [part for part in outline.parts(False) if part[0] < SPECK]
    small = [hole for hole in holes if hole[0] < SPECK]
    if small:
        told.mend(name, f"the key colour stands inside the window in {place_list(small)}: clicks fall through there. "
                  "Choose a key colour that the picture has nowhere else")
    for hole in holes:
        if hole[0] >= SPECK:
            told.hint(name, f"there is a hole of {hole[0]} pixels in the window, its top at {hole[2]}, {hole[3]}")
    if specks:
        told.mend(name, f"outside of the window lie specks that are not in the key colour: {place_list(specks)}")


def place_list(parts):
    shown = ", ".join(f"({x}, {y})" for _, _, x, y in parts[:3])
    return f"{len(parts)} place{'s' if len(parts) > 1 else ''}, at {shown}{' and so on' if len(parts) > 3 else ''}"
