#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes the plots that come with the viewer: housing.hpgl, curves.hpgl and island.hpgl.

    make_plots.py [FOLDER]      the folder is this file's own unless named

The same files come out at every run.
"""

import math
import pathlib
import sys

ETX = "\x03"
BLACK, RED, GREEN, BLUE, VIOLET, ORANGE, TEAL, MAGENTA = range(1, 9)


def number(value, digits=2):
    text = f"{value:.{digits}f}"
    if "." in text:
        text = text.rstrip("0").rstrip(".")
    return "0" if text in ("-0", "") else text


class Plotter:
    """Writes instructions; coordinates are user units, millimetres unless frame() says otherwise."""

    UNITS = 40  # plotter units in a millimetre

    def __init__(self, digits=2):
        self.lines = ["IN;DF;"]
        self.digits = digits
        self.current_pen = None
        self.size = None

    def write(self, text):
        self.lines.append(text)

    def text(self):
        self.write("PU;SP0;")
        return "\n".join(self.lines) + "\n"

    def numbers(self, *values):
        return ",".join(number(value, self.digits) for value in values)

    def frame(self, left, bottom, right, top, scale=None):
        """Puts the user units of `scale` (left, right, bottom, top) on a frame given in millimetres."""
        corners = [round(value * self.UNITS) for value in (left, bottom, right, top)]
        self.write("IP" + ",".join(str(corner) for corner in corners) + ";")
        self.write("SC" + self.numbers(*(scale or (left, right, bottom, top))) + ";")

    def pen(self, pen):
        if pen != self.current_pen:
            self.write(f"SP{pen};")
            self.current_pen = pen

    def width(self, millimetres=None):
        self.write("PW;" if millimetres is None else f"PW{number(millimetres)};")

    def line_type(self, kind=None, percent=None):
        self.write("LT;" if kind is None else f"LT{kind}" + (f",{number(percent)};" if percent else ";"))

    def line(self, *points, closed=False):
        points = list(points) + ([points[0]] if closed else [])
        self.write("PU" + self.numbers(*points[0]) + ";PD"
                   + ",".join(self.numbers(*point) for point in points[1:]) + ";PU;")

    def circle(self, x, y, radius, chord=3):
        self.write(f"PU{self.numbers(x, y)};CI{self.numbers(radius, chord)};")

    def arc(self, x, y, radius, start, sweep, chord=3):
        angle = math.radians(start)
        begin = (x + radius * math.cos(angle), y + radius * math.sin(angle))
        self.write(f"PU{self.numbers(*begin)};PD;AA{self.numbers(x, y, sweep, chord)};PU;")

    def rectangle(self, left, bottom, right, top):
        self.write(f"PU{self.numbers(left, bottom)};EA{self.numbers(right, top)};")

    def shade_rectangle(self, left, bottom, right, top):
        self.write(f"PU{self.numbers(left, bottom)};RA{self.numbers(right, top)};")

    def polygon(self, *points):
        self.write("PU" + self.numbers(*points[0]) + ";PM0;PD"
                   + ",".join(self.numbers(*point) for point in points[1:]) + ";PM2;FP;PU;")

    def letters(self, height, width=None):
        size = ((width or height * 0.66) / 10, height / 10)
        if size != self.size:
            self.write("SI" + ",".join(number(value, 4) for value in size) + ";")
            self.size = size

    def label(self, x, y, text, height=2.5, origin=1, angle=0, width=None):
        self.letters(height, width)
        turn = f"DI{number(math.cos(math.radians(angle)), 4)},{number(math.sin(math.radians(angle)), 4)};"
        if angle:
            self.write(turn)
        self.write(f"LO{origin};PU{self.numbers(x, y)};LB{text}{ETX}LO1;")
        if angle:
            self.write("DI;")


# ---- an engineering drawing ------------------------------------------------------------------------------

def arrow(plotter, x, y, angle, size=2.6):
    """A filled arrow head with its tip at a point, looking along `angle`."""
    back = [(x - size * math.cos(math.radians(angle + side)), y - size * math.sin(math.radians(angle + side)))
            for side in (-9.5, 9.5)]
    plotter.polygon((x, y), *back)


def centre_cross(plotter, x, y, reach):
    plotter.line((x - reach, y), (x + reach, y))
    plotter.line((x, y - reach), (x, y + reach))


def dimension_across(plotter, left, right, y, text, gap=1.2):
    plotter.line((left, y), (right, y))
    arrow(plotter, left, y, 180)
    arrow(plotter, right, y, 0)
    plotter.label((left + right) / 2, y + gap, text, origin=4)


def dimension_up(plotter, x, bottom, top, text, gap=1.2):
    plotter.line((x, bottom), (x, top))
    arrow(plotter, x, bottom, 270)
    arrow(plotter, x, top, 90)
    plotter.label(x - gap, (bottom + top) / 2, text, origin=4, angle=90)


def housing():
    p = Plotter()
    p.frame(0, 0, 270, 180)

    # Border and zone marks.
    p.pen(BLACK)
    p.width(0.5)
    p.rectangle(0, 0, 270, 180)
    p.width(0.18)
    p.rectangle(5, 5, 265, 175)
    for i, letter in enumerate("ABCD"):
        y = 175 - 170 / 4 * (i + 0.5)
        p.label(2.5, y, letter, 2, origin=5)
        p.label(267.5, y, letter, 2, origin=5)
        if i:
            for x in (0, 265):
                p.line((x, 175 - 170 / 4 * i), (x + 5, 175 - 170 / 4 * i))
    for i in range(6):
        x = 5 + 260 / 6 * (i + 0.5)
        p.label(x, 2.5, str(i + 1), 2, origin=5)
        p.label(x, 177.5, str(i + 1), 2, origin=5)
        if i:
            for y in (0, 175):
                p.line((5 + 260 / 6 * i, y), (5 + 260 / 6 * i, y + 5))

    # Front view.
    cx, cy = 80, 104
    p.width(0.5)
    for radius in (52, 28):
        p.circle(cx, cy, radius)
    key = 5
    rise = math.degrees(math.asin(key / 16))
    p.arc(cx, cy, 16, 90 + rise, 360 - 2 * rise)
    edge = 16 * math.cos(math.radians(rise))
    p.line((cx - key, cy + edge), (cx - key, cy + 20.3), (cx + key, cy + 20.3), (cx + key, cy + edge))
    holes = [(cx + 42 * math.cos(math.radians(a)), cy + 42 * math.sin(math.radians(a)))
             for a in range(30, 390, 60)]
    for x, y in holes:
        p.circle(x, y, 4.5, 10)
    p.width(0.25)
    p.circle(cx, cy, 30, 3)
    p.line_type(2, 1.6)
    p.circle(cx, cy, 22)
    p.line_type()

    # Centre lines.
    p.pen(RED)
    p.width(0.18)
    p.line_type(4, 5)
    p.circle(cx, cy, 42)
    p.line((cx - 58, cy), (cx + 58, cy))
    p.line((cx, cy - 58), (cx, cy + 58))
    p.line_type(4, 2.6)
    for x, y in holes:
        angle = math.atan2(y - cy, x - cx)
        p.line(*((cx + r * math.cos(angle), cy + r * math.sin(angle)) for r in (34.5, 49.5)))
    p.line_type()

    # Section line A-A.
    p.pen(VIOLET)
    p.width(0.5)
    for side in (-1, 1):
        y = cy + side * 60
        p.line((cx, y), (cx, y + side * 5), (cx - 9, y + side * 5))
        arrow(p, cx - 9, y + side * 5, 180, 3.2)
        p.label(cx - 12.5, y + side * 5, "A", 4, origin=8)

    # Section, cut along the axis: x to the right of the flange's face, y above the axis.
    sx = 172
    p.pen(TEAL)
    p.width(0.13)
    p.write("FT3,2.4,45;")
    body = [(0, 37.5), (12, 37.5), (12, 31)]
    body += [(15 - 3 * math.cos(math.radians(a)), 31 - 3 * math.sin(math.radians(a)))
             for a in range(15, 90, 15)]
    body += [(15, 28), (44, 28), (46, 26), (46, 17.5), (44.5, 16), (14, 16), (14, 22), (0, 22)]
    keyed = body[:-5] + [(46, 20.3), (14, 20.3), (14, 22), (0, 22)]
    rim = [(0, 46.5), (12, 46.5), (12, 50.5), (10.5, 52), (1.5, 52), (0, 50.5)]
    for side in (-1, 1):
        for part in (keyed if side > 0 else body, rim):
            p.polygon(*((sx + x, cy + side * y) for x, y in part))
    p.write("FT;")
    p.pen(BLACK)
    p.width(0.5)
    for side in (-1, 1):
        for part in (keyed if side > 0 else body, rim):
            p.line(*((sx + x, cy + side * y) for x, y in part), closed=True)
        for x in (0, 12):
            p.line((sx + x, cy + side * 37.5), (sx + x, cy + side * 46.5))
        p.line((sx, cy), (sx, cy + side * 22))
        p.line((sx + 14, cy), (sx + 14, cy + side * 16))
        p.line((sx + 44.5, cy), (sx + 44.5, cy + side * 16))
        p.line((sx + 46, cy), (sx + 46, cy + side * 17.5))
    p.line((sx + 14, cy + 16), (sx + 44.5, cy + 16), (sx + 46, cy + 17.5), (sx + 46, cy + 20.3))
    p.line((sx + 14, cy + 16), (sx + 14, cy + 20.3))
    p.pen(RED)
    p.width(0.18)
    p.line_type(4, 5)
    p.line((sx - 7, cy), (sx + 53, cy))
    p.line_type(4, 2.6)
    for side in (-1, 1):
        p.line((sx - 4, cy + side * 42), (sx + 16, cy + side * 42))
    p.line_type()
    p.pen(BLACK)
    p.label(sx + 23, cy + 60, "SECTION A-A", 3.5, origin=4)

    # Dimensions.
    p.pen(BLUE)
    p.width(0.18)
    p.write("FT1;")
    for y, reach, x, text in ((52, 0, -20, "\xd8104 h8"), (22, 0, -10, "\xd844 H7")):
        p.line((sx - 1 + reach, cy + y), (sx + x - 2, cy + y))
        p.line((sx - 1 + reach, cy - y), (sx + x - 2, cy - y))
        dimension_up(p, sx + x, cy - y, cy + y, text)
    for y, x, text in ((16, 57, "\xd832 H7"), (28, 66, "\xd856")):
        p.line((sx + 47, cy + y), (sx + x + 2, cy + y))
        p.line((sx + 47, cy - y), (sx + x + 2, cy - y))
        dimension_up(p, sx + x, cy - y, cy + y, text)
    for x in (0, 12, 46):
        p.line((sx + x, cy - (53 if x < 46 else 27)), (sx + x, cy - (72 if x != 12 else 63)))
    dimension_across(p, sx, sx + 46, cy - 70, "46")
    p.line((sx - 7, cy - 61), (sx + 19, cy - 61))
    arrow(p, sx, cy - 61, 0)
    arrow(p, sx + 12, cy - 61, 180)
    p.label(sx + 20.5, cy - 61, "12", origin=2)

    hx, hy = holes[0]
    tip = (hx + 4.5 * math.cos(math.radians(48)), hy + 4.5 * math.sin(math.radians(48)))
    bend = (hx + 13, hy + 4.5 + 11.5)
    p.line(tip, bend, (bend[0] + 13, bend[1]))
    arrow(p, *tip, math.degrees(math.atan2(tip[1] - bend[1], tip[0] - bend[0])))
    p.label(bend[0] + 0.5, bend[1] + 1.2, "6x \xd89", origin=1)
    a = math.radians(205)
    tip = (cx + 42 * math.cos(a), cy + 42 * math.sin(a))
    bend = (cx - 57, cy - 34)
    p.line(tip, bend, (bend[0] - 11, bend[1]))
    arrow(p, *tip, math.degrees(math.atan2(tip[1] - bend[1], tip[0] - bend[0])))
    p.label(bend[0] - 0.5, bend[1] + 1.2, "\xd884", origin=7)
    for side in (-1, 1):
        p.line((cx + side * key, cy + edge - 1), (cx + side * key, cy + 6))
    p.line((cx - key, cy + 7.5), (cx + key, cy + 7.5))
    arrow(p, cx - key, cy + 7.5, 180, 2)
    arrow(p, cx + key, cy + 7.5, 0, 2)
    p.label(cx + 1, cy + 3, "10 P9", 2)

    # Notes.
    p.pen(BLACK)
    p.width(0.25)
    p.label(11, 35.5, "NOTES", 2.8)
    p.label(11, 30, "1  General tolerances ISO 2768-mK\r\n2  Unmarked edges 0.5 x 45\xb0\r\n"
                    "3  Fillets R3\r\n4  Paint outer faces RAL 5012", 2.1)

    # Title block with the sign of first-angle projection.
    left, right = 150, 265
    p.width(0.35)
    p.rectangle(left, 5, right, 29)
    p.width(0.18)
    p.line((left, 13), (right, 13))
    p.line((left, 21), (left + 79, 21))
    p.line((left + 79, 5), (left + 79, 29))
    for x in (left + 26, left + 53):
        p.line((x, 5), (x, 21))
    p.label(left + 39.5, 25, "BEARING HOUSING", 3.6, origin=5)
    for column, row, caption, text in (
            (0, 1, "MATERIAL", "EN-GJL-250"), (26, 1, "MASS", "1.9 kg"), (53, 1, "SCALE", "1:1"),
            (0, 0, "DRAWN", "M. Keller"), (26, 0, "CHECKED", "A. Nowak"), (53, 0, "SHEET", "1 of 1")):
        p.label(left + column + 1.2, 10.6 + 8 * row, caption, 1.2)
        p.label(left + column + 1.2, 6.6 + 8 * row, text, 2.3)
    p.label(left + 80.2, 10.6, "DRAWING NUMBER", 1.2)
    p.label(left + 80.2, 6.6, "KX-4711-02", 2.8)
    px, py = left + 97, 21
    p.width(0.3)
    p.line((px - 11, py - 2.4), (px - 11, py + 2.4), (px - 1, py + 4.2), (px - 1, py - 4.2), closed=True)
    p.circle(px + 8, py, 4.2, 6)
    p.circle(px + 8, py, 2.4, 6)
    p.pen(RED)
    p.width(0.18)
    p.line_type(4, 2)
    p.line((px - 13.5, py), (px + 14.5, py))
    p.line((px + 8, py - 6), (px + 8, py + 6))
    p.line_type()
    return p.text()


# ---- a plate of curves -----------------------------------------------------------------------------------

def sampled(curve, turns, samples):
    return [curve(2 * math.pi * turns * i / samples) for i in range(samples + 1)]


def curves():
    p = Plotter(digits=4)
    p.frame(0, 0, 270, 186)
    p.pen(BLACK)
    p.width(0.35)
    p.rectangle(0, 0, 270, 186)
    p.width(0.13)
    p.rectangle(2, 2, 268, 184)
    p.label(135, 172.5, "SIX PLANE CURVES", 6, origin=5)
    p.line((86, 165.5), (184, 165.5))

    def polar(radius):
        return lambda t: (radius(t) * math.cos(t), radius(t) * math.sin(t))

    def rose():
        for pen, size in ((MAGENTA, 1.0), (VIOLET, 0.8), (BLUE, 0.6), (TEAL, 0.4)):
            p.pen(pen)
            p.line(*sampled(polar(lambda t: size * math.cos(7 * t / 4)), 4, 840))

    def lissajous():
        for i, pen in enumerate((BLUE, TEAL, GREEN, ORANGE, RED)):
            shift = math.pi * (i + 0.5) / 10
            p.pen(pen)
            p.line(*sampled(lambda t: (math.sin(5 * t + shift), math.sin(4 * t)), 1, 400))

    def hypotrochoid():
        for pen, arm in ((RED, 0.95), (ORANGE, 0.72), (MAGENTA, 0.48), (VIOLET, 0.24)):
            def curve(t, d=arm * 5):
                big, small = 13, 5
                x = (big - small) * math.cos(t) + d * math.cos((big - small) / small * t)
                y = (big - small) * math.sin(t) - d * math.sin((big - small) / small * t)
                return x / 12.75, y / 12.75
            p.pen(pen)
            p.line(*sampled(curve, 5, 900))

    def maurer():
        p.pen(TEAL)
        p.width(0.1)
        p.line(*(polar(lambda t: math.sin(6 * t))(math.radians(71 * k)) for k in range(361)))
        p.width(0.35)
        p.pen(BLUE)
        p.line(*sampled(polar(lambda t: math.sin(6 * t)), 1, 720))

    def butterfly():
        def radius(t):
            return math.exp(math.sin(t)) - 2 * math.cos(4 * t) + math.sin((2 * t - math.pi) / 24) ** 5
        for pen, size in ((ORANGE, 1.0), (RED, 0.86), (MAGENTA, 0.72)):
            p.pen(pen)
            p.line(*((size * x / 3.5, size * (y - 0.6) / 3.5)
                     for x, y in sampled(lambda t: polar(radius)(t), 12, 2400)))

    def envelope():
        count = 180
        for pen, factor in ((GREEN, 2), (TEAL, 3)):
            p.pen(pen)
            p.width(0.1)
            for k in range(0, count):
                first, second = (2 * math.pi * n / count + math.pi for n in (k, factor * k))
                if factor * k % count != k and (factor == 2 or k % 2):
                    p.line((math.cos(first), math.sin(first)), (math.cos(second), math.sin(second)))
        p.width(0.35)
        p.pen(GREEN)
        p.circle(0, 0, 1, 2)

    plates = (
        ("I", "Rose", "r = cos 7t/4", rose), ("II", "Lissajous curves", "5 : 4", lissajous),
        ("III", "Hypotrochoids", "R = 13, r = 5", hypotrochoid),
        ("IV", "Maurer rose", "n = 6, d = 71\xb0", maurer), ("V", "Butterflies", "T. Fay, 1989", butterfly),
        ("VI", "Cardioid and nephroid", "as envelopes", envelope))
    for index, (numeral, name, formula, draw) in enumerate(plates):
        x = 49 + 86 * (index % 3)
        y = 128 - 79 * (index // 3)
        p.frame(x - 31, y - 31, x + 31, y + 31, (-1, 1, -1, 1))
        p.width(0.25)
        draw()
        p.width(0.2)
        p.frame(0, 0, 270, 186)
        p.pen(BLACK)
        p.label(x, y - 36.5, f"{numeral}. {name}", 2.6, origin=5)
        p.label(x, y - 41, formula, 1.9, origin=5)
    return p.text()


# ---- a map -----------------------------------------------------------------------------------------------

HILLS = (  # x, y, width, depth, turned by, height
    (108, 90, 44, 30, 18, 285), (84, 110, 20, 15, -30, 250), (140, 76, 25, 16, 35, 235),
    (58, 68, 26, 16, -25, 150), (168, 104, 17, 23, 10, 165), (113, 131, 21, 12, 5, 150),
    (186, 60, 19, 9, 30, 120), (31, 54, 11, 8, 0, 85),
    (72, 90, 13, 8, 40, -110), (200, 130, 9, 6, 20, 120), (38, 132, 11, 7, -20, 125), (26, 122, 6, 5, 0, 95),
    (152, 44, 10, 7, 0, 80), (92, 55, 16, 9, 15, 80), (128, 112, 13, 9, -40, -60), (212, 34, 6, 4, 30, 110),
    (204, 41, 4, 4, 0, 100), (62, 150, 6, 4, 15, 100))


def height(x, y):
    total = -82.0
    for hx, hy, width, depth, angle, rise in HILLS:
        c, s = math.cos(math.radians(angle)), math.sin(math.radians(angle))
        u, v = ((x - hx) * c + (y - hy) * s) / width, ((y - hy) * c - (x - hx) * s) / depth
        total += rise * math.exp(-(u * u + v * v) / 1.6)
    ripple = (math.sin(x * 0.31 + y * 0.17) + math.sin(x * 0.13 - y * 0.37 + 1.3)
              + math.sin(x * 0.47 + y * 0.41 + 4)
              + 1.6 * math.sin(x * 0.11 + y * 0.19 + 2) + 1.6 * math.sin(0.21 * x - 0.09 * y))
    return total + ripple * (3.5 + 0.018 * max(total, 0))


def contours(heights, xs, ys, level):
    """The lines of a height over a grid, as lists of points; a closed line ends where it begins."""
    def crossing(first, second):
        (i, j), (k, l) = first, second
        a, b = heights[j][i], heights[l][k]
        share = (level - a) / (b - a)
        return xs[i] + share * (xs[k] - xs[i]), ys[j] + share * (ys[l] - ys[j])

    links = {}
    points = {}
    for j in range(len(ys) - 1):
        for i in range(len(xs) - 1):
            corners = ((i, j), (i + 1, j), (i + 1, j + 1), (i, j + 1))
            inside = [heights[v][u] >= level for u, v in corners]
            cut = []
            for n in range(4):
                if inside[n] != inside[(n + 1) % 4]:
                    edge = tuple(sorted((corners[n], corners[(n + 1) % 4])))
                    points[edge] = crossing(*edge)
                    cut.append(edge)
            if len(cut) == 4 and not inside[0]:
                cut = cut[1:] + cut[:1]
            for n in range(0, len(cut), 2):
                links.setdefault(cut[n], []).append(cut[n + 1])
                links.setdefault(cut[n + 1], []).append(cut[n])

    lines = []
    left = dict.fromkeys(sorted(links, key=lambda edge: (len(links[edge]), edge)))
    while left:
        start = next(iter(left))
        run = [start]
        left.pop(start)
        while True:
            following = next((edge for edge in links[run[-1]] if edge in left), None)
            if following is None:
                break
            left.pop(following)
            run.append(following)
        if len(run) > 2 and run[0] in links[run[-1]]:
            run.append(run[0])
        lines.append([points[edge] for edge in run])
    return lines


def simplified(points, tolerance):
    """The points that a line needs to stay within `tolerance` of what it was (Douglas and Peucker)."""
    keep = {0, len(points) - 1}
    pending = [(0, len(points) - 1)]
    while pending:
        first, last = pending.pop()
        (ax, ay), (bx, by) = points[first], points[last]
        length = math.hypot(bx - ax, by - ay)
        worst, at = tolerance, None
        for i in range(first + 1, last):
            x, y = points[i]
            distance = (abs((bx - ax) * (ay - y) - (ax - x) * (by - ay)) / length if length > 1e-9
                        else math.hypot(x - ax, y - ay))
            if distance > worst:
                worst, at = distance, i
        if at is not None:
            keep.add(at)
            pending += [(first, at), (at, last)]
    return [points[i] for i in sorted(keep)]


def length_of(points):
    return sum(math.dist(a, b) for a, b in zip(points, points[1:]))


def relative_line(plotter, points):
    """A line in steps, as plotters are fed long ones."""
    units = [(round(x * Plotter.UNITS), round(y * Plotter.UNITS)) for x, y in points]
    steps = [(b[0] - a[0], b[1] - a[1]) for a, b in zip(units, units[1:])]
    steps = [step for step in steps if step != (0, 0)]
    path = ",".join(f"{x},{y}" for x, y in steps)
    plotter.write(f"PA;PU{units[0][0]},{units[0][1]};PD;PR{path};PU;PA;")


def broken_for_label(points, text_length):
    """Cuts a gap into a closed line where it runs straightest; what is left, the label's place and angle."""
    count = len(points) - 1
    best = None
    for i in range(0, count, 2):
        span, j = 0.0, i
        while span < text_length:
            span += math.dist(points[j % count], points[(j + 1) % count])
            j += 1
        a, b = points[i], points[j % count]
        chord = math.dist(a, b)
        angle = math.degrees(math.atan2(b[1] - a[1], b[0] - a[0]))
        tilt = abs((angle + 90) % 180 - 90) / 90
        score = span / max(chord, 1e-6) + 0.35 * tilt
        if best is None or score < best[0]:
            best = (score, i, j, a, b, angle)
    _, i, j, a, b, angle = best
    rest = [points[k % count] for k in range(j, i + count + 1)]
    upright = (angle + 90) % 180 - 90
    return rest, ((a[0] + b[0]) / 2, (a[1] + b[1]) / 2), upright


def stream(x, y):
    """Downhill from a spring to the sea."""
    points = [(x, y)]
    dx, dy = 0.0, 0.0
    for _ in range(600):
        e = 0.4
        gx = (height(x + e, y) - height(x - e, y)) / (2 * e)
        gy = (height(x, y + e) - height(x, y - e)) / (2 * e)
        size = math.hypot(gx, gy) or 1
        dx, dy = 0.7 * dx - 0.3 * gx / size, 0.7 * dy - 0.3 * gy / size
        x, y = x + 0.8 * dx, y + 0.8 * dy
        points.append((x, y))
        if height(x, y) < 0:
            break
    return points


def triangle(plotter, x, y, size=1.5):
    plotter.polygon((x - size, y - size * 0.8), (x + size, y - size * 0.8), (x, y + size))


def island():
    p = Plotter()
    left, bottom, right, top = 8, 8, 222, 172
    step = 1.0
    xs = [left + step * i for i in range(int((right - left) / step) + 1)]
    ys = [bottom + step * i for i in range(int((top - bottom) / step) + 1)]
    heights = [[height(x, y) for x in xs] for y in ys]
    p.write(f"IP0,0,{270 * p.UNITS},{180 * p.UNITS};")

    def draw(points, tolerance=0.04):
        relative_line(p, simplified(points, tolerance))

    # The sea: depth lines, dashed and in three shades of distance.
    for level, kind, percent in ((-15, 2, 0.9), (-35, 3, 1.2), (-60, 1, 0.45)):
        p.pen(BLUE)
        p.width(0.13)
        p.line_type(kind, percent)
        for line in contours(heights, xs, ys, level):
            if length_of(line) > 14:
                draw(line)
    p.line_type()

    # The land.
    for level in range(20, 460, 20):
        index = level % 100 == 0
        p.pen(ORANGE if level < 300 else RED)
        p.width(0.32 if index else 0.13)
        for line in contours(heights, xs, ys, level):
            if length_of(line) < 6:
                continue
            if index and line[0] == line[-1] and length_of(line) > 45:
                rest, place, angle = broken_for_label(line, 7)
                draw(rest)
                p.write("SC;")
                p.frame(0, 0, 270, 180)
                p.label(*place, str(level), 1.7, origin=5, angle=angle)
                p.write("SC;IP0,0,10800,7200;")
            else:
                draw(line)
    p.pen(TEAL)
    p.width(0.5)
    for line in contours(heights, xs, ys, 0):
        draw(line)

    # Streams and the path over the ridge.
    p.pen(BLUE)
    p.width(0.3)
    for spring in ((128, 66), (160, 106), (144, 74), (96, 118), (100, 62), (58, 62)):
        draw(stream(*spring))
    p.frame(0, 0, 270, 180)
    peaks = []
    for guess in ((86, 111), (138, 82), (168, 104), (68, 69), (114, 125), (106, 72)):
        x, y = guess
        for _ in range(400):
            x, y = max(((x + dx, y + dy) for dx in (-0.25, 0, 0.25) for dy in (-0.25, 0, 0.25)),
                       key=lambda point: height(*point))
        peaks.append((x, y, round(height(x, y))))
    p.pen(MAGENTA)
    p.width(0.4)
    p.line_type(2, 1.1)
    way = [(33, 76), (45, 75), (58, 78), (70, 88), (77, 99), peaks[0][:2], (95, 108), (104, 102), (113, 95),
           (122, 85), (130, 80), peaks[1][:2], (146, 74), (151, 65), (157, 60), (163.5, 54)]
    smooth = [way[0]]
    for a, b, c in zip(way, way[1:], way[2:]):
        begin, end = ((a[0] + b[0]) / 2, (a[1] + b[1]) / 2), ((b[0] + c[0]) / 2, (b[1] + c[1]) / 2)
        for i in range(9):
            t = i / 8
            smooth.append(tuple((1 - t) ** 2 * begin[n] + 2 * t * (1 - t) * b[n] + t * t * end[n]
                                for n in (0, 1)))
    p.line(*smooth, way[-1])
    p.line_type()

    # Peaks and names.
    p.pen(BLACK)
    p.width(0.25)
    names = ("Mt Harrow", "Scarp", "Corran", "West Top", "The Anvil", "Long Hill")
    for (x, y, metres), name in zip(peaks, names):
        triangle(p, x, y)
        p.label(x + 2.6, y + 0.5, name, 2.1)
        p.label(x + 2.6, y - 2.4, f"{metres} m", 1.6)
    for x, y, name in ((163.5, 54, "Eastwick"), (33, 76, "Kirkholm")):
        p.circle(x, y, 1.1, 15)
        p.circle(x, y, 0.5, 30)
        p.label(x + 2.2, y + 1, name, 2.5)
    p.pen(BLUE)
    p.write("SL0.3;")
    p.label(193, 162, "N O R T H", 3.4, origin=5)
    p.label(193, 155, "S O U N D", 3.4, origin=5)
    p.label(52, 22, "Skerry Bay", 3.2, origin=5, angle=12)
    p.label(214, 88, "Gannet Firth", 2.6, origin=5, angle=-80)
    p.write("SL;")

    # Frame, ticks of the grid, crosses on it.
    p.pen(BLACK)
    p.width(0.18)
    p.rectangle(left, bottom, right, top)
    p.width(0.5)
    p.rectangle(5, 5, 225, 175)
    p.width(0.13)
    for i, x in enumerate(range(30, 221, 30)):
        p.label(x, 172.8, f"{i + 21}", 1.4, origin=4)
        p.label(x, 5.8, f"{i + 21}", 1.4, origin=4)
        for y in range(30, 171, 30):
            centre_cross(p, x, y, 1.2)
    for i, y in enumerate(range(30, 171, 30)):
        p.label(6.5, y, f"{i + 60}", 1.4, origin=4, angle=90)
        p.label(224.2, y, f"{i + 60}", 1.4, origin=4, angle=90)

    # Margin: title, north, legend, scale bar.
    p.width(0.5)
    p.rectangle(228, 5, 265, 175)
    p.width(0.3)
    p.label(246.5, 164, "HARROW", 4.4, origin=5)
    p.label(246.5, 157.5, "ISLAND", 4.4, origin=5)
    p.label(246.5, 151, "1 : 50 000", 2.2, origin=5)
    p.width(0.18)
    p.line((232, 146), (261, 146))
    nx, ny = 246.5, 128
    p.circle(nx, ny, 9, 3)
    for angle in range(0, 360, 15):
        reach = 10.4 if angle % 90 == 0 else 9.8
        p.line(*((nx + r * math.sin(math.radians(angle)), ny + r * math.cos(math.radians(angle)))
                 for r in (9, reach)))
    p.polygon((nx, ny + 8), (nx - 2.4, ny - 5), (nx, ny - 2.6))
    p.line((nx, ny + 8), (nx + 2.4, ny - 5), (nx, ny - 2.6), closed=True)
    p.label(nx, ny + 13, "N", 3, origin=5)
    p.line((232, 112), (261, 112))

    def entry(y, text, sample):
        sample(y)
        p.line_type()
        p.pen(BLACK)
        p.width(0.2)
        p.label(244, y, text, 1.7, origin=2)

    def stroke(pen, width, kind=None, percent=None):
        def draw_sample(y):
            p.pen(pen)
            p.width(width)
            p.line_type(kind, percent)
            p.line((231.5, y), (241.5, y))
        return draw_sample

    def peak(y):
        p.pen(BLACK)
        triangle(p, 236.5, y)

    def village(y):
        p.pen(BLACK)
        p.width(0.25)
        p.circle(236.5, y, 1.1, 15)
        p.circle(236.5, y, 0.5, 30)

    for row, (text, sample) in enumerate((
            ("Shore", stroke(TEAL, 0.5)), ("Index line", stroke(ORANGE, 0.32)),
            ("20 m line", stroke(ORANGE, 0.13)),
            ("Above 300", stroke(RED, 0.13)), ("15 m deep", stroke(BLUE, 0.13, 2, 0.9)),
            ("35 m deep", stroke(BLUE, 0.13, 3, 1.2)), ("60 m deep", stroke(BLUE, 0.13, 1, 0.45)),
            ("Stream", stroke(BLUE, 0.3)), ("Footpath", stroke(MAGENTA, 0.4, 2, 1.1)), ("Summit", peak),
            ("Village", village))):
        entry(106 - 6.2 * row, text, sample)

    p.pen(BLACK)
    p.width(0.18)
    p.line((232, 37), (261, 37))
    for i in range(4):
        x = 234.5 + 6 * i
        if i % 2 == 0:
            p.shade_rectangle(x, 24, x + 6, 26)
        p.rectangle(x, 24, x + 6, 26)
    for i in (0, 2, 4):
        p.label(234.5 + 6 * i, 28, str(i * 300), 1.6, origin=4)
    p.label(246.5, 20, "metres", 1.6, origin=5)
    p.label(246.5, 11, "Heights in metres", 1.5, origin=5)
    return p.text()


def main():
    folder = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else pathlib.Path(__file__).resolve().parent
    for name, make in (("housing", housing), ("curves", curves), ("island", island)):
        path = folder / f"{name}.hpgl"
        path.write_bytes(make().encode("latin-1"))
        print(f"{path}: {path.stat().st_size} bytes")


if __name__ == "__main__":
    main()
