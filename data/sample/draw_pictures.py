#!/usr/bin/env python3
"""Draws the pictures of the sample office's articles into image/, one PNG file for each name below.

A picture is a list of shapes on a sheet of 480 by 320: filled outlines first, then the strokes over them. Python 3 and
nothing else; two runs give the same pictures.
"""

import math
import pathlib
import struct
import sys
import zlib

sys.dont_write_bytecode = True

HERE = pathlib.Path(__file__).resolve().parent
WIDTH, HEIGHT = 480, 320
ROWS_PER_LINE = 4  # of a fill, so that its edges are smooth

PAPER = (255, 255, 255)
INK = (62, 78, 96)
METAL = (138, 152, 166)
SKIN = (244, 232, 220)
SHELL = (226, 234, 241)
LEATHER = (190, 142, 104)
CLOTH = (176, 196, 214)
RUBBER = (108, 118, 128)


# ------------------------------------------------------------------------------------------------------------------
# Curves
# ------------------------------------------------------------------------------------------------------------------

def curve(*points):
    """A smooth line through the points."""
    ends = [points[0]] + list(points) + [points[-1]]
    line = []
    for before, start, end, behind in zip(ends, ends[1:], ends[2:], ends[3:]):
        for step in range(12):
            t = step / 12
            line.append(tuple(
                0.5 * (2 * s + (e - b) * t + (2 * b - 5 * s + 4 * e - n) * t * t + (3 * s - b - 3 * e + n) * t ** 3)
                for b, s, e, n in zip(before, start, end, behind)))
    return line + [points[-1]]


def closed(*points):
    """A smooth outline through the points."""
    around = [points[-1]] + list(points) + list(points[:2])
    line = []
    for i in range(len(points)):
        line += curve(*around[i:i + 4])[12:24]
    return line


def ellipse(x, y, across, down):
    return [(x + across * math.cos(a / 24 * math.pi), y + down * math.sin(a / 24 * math.pi)) for a in range(49)]


def box(left, top, right, bottom):
    return [(left, top), (right, top), (right, bottom), (left, bottom), (left, top)]


# ------------------------------------------------------------------------------------------------------------------
# The sheet
# ------------------------------------------------------------------------------------------------------------------

class Sheet:
    def __init__(self):
        self.dots = [[PAPER] * WIDTH for _ in range(HEIGHT)]

    def blend(self, x, y, colour, share):
        if share <= 0 or not (0 <= x < WIDTH and 0 <= y < HEIGHT):
            return
        old = self.dots[y][x]
        share = min(share, 1)
        self.dots[y][x] = tuple(int(o + (c - o) * share + 0.5) for o, c in zip(old, colour))

    def fill(self, outline, colour):
        shares = {}
        edges = [(a, b) for a, b in zip(outline, outline[1:] + outline[:1]) if a[1] != b[1]]
        for row in range(HEIGHT * ROWS_PER_LINE):
            at = (row + 0.5) / ROWS_PER_LINE
            cuts = sorted(a[0] + (at - a[1]) * (b[0] - a[0]) / (b[1] - a[1])
                          for a, b in edges if min(a[1], b[1]) <= at < max(a[1], b[1]))
            for left, right in zip(cuts[::2], cuts[1::2]):
                for x in range(int(left), int(right) + 1):
                    part = min(right, x + 1) - max(left, x)
                    key = (x, row // ROWS_PER_LINE)
                    shares[key] = shares.get(key, 0) + max(part, 0) / ROWS_PER_LINE
        for (x, y), share in shares.items():
            self.blend(x, y, colour, share)

    def stroke(self, line, colour, width):
        shares = {}
        for (ax, ay), (bx, by) in zip(line, line[1:]):
            length = max((bx - ax) ** 2 + (by - ay) ** 2, 1e-9)
            for y in range(int(min(ay, by) - width) - 1, int(max(ay, by) + width) + 2):
                for x in range(int(min(ax, bx) - width) - 1, int(max(ax, bx) + width) + 2):
                    t = min(max(((x - ax) * (bx - ax) + (y - ay) * (by - ay)) / length, 0), 1)
                    away = math.hypot(x - ax - t * (bx - ax), y - ay - t * (by - ay))
                    share = width / 2 + 0.5 - away
                    if share > shares.get((x, y), 0):
                        shares[(x, y)] = share
        for (x, y), share in shares.items():
            self.blend(x, y, colour, share)

    def png(self):
        def chunk(kind, data):
            body = kind + data
            return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body))
        rows = b"".join(b"\0" + bytes(value for dot in row for value in dot) for row in self.dots)
        head = struct.pack(">IIBBBBB", WIDTH, HEIGHT, 8, 2, 0, 0, 0)
        return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) + chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b""))


# ------------------------------------------------------------------------------------------------------------------
# Parts that several articles have
# ------------------------------------------------------------------------------------------------------------------

def area(outline, colour, edge=3):
    return [("fill", outline, colour)] + ([("stroke", outline + outline[:1], INK, edge)] if edge else [])


def line(points, colour=INK, width=3):
    return [("stroke", points, colour, width)]


def joint(x, y, size=8):
    return area(ellipse(x, y, size, size), METAL)


def strap(left, right, top, bottom, sag=6):
    """A band around a limb."""
    return area(curve((left, top), ((left + right) / 2, top + sag), (right, top)) +
                curve((right, bottom), ((left + right) / 2, bottom + sag), (left, bottom)), LEATHER)


def leg(top, knee, ankle, x=230):
    """A leg from the thigh or the knee down to where the shoe begins, seen from the side."""
    left = [(x - 46, top), (x - 44, (top + knee) / 2), (x - 34, knee), (x - 44, knee + 40), (x - 26, ankle)]
    right = [(x + 22, ankle), (x + 26, knee + 40), (x + 34, knee), (x + 44, (top + knee) / 2), (x + 46, top)]
    return area(curve(*left) + curve(*right), SKIN)


# ------------------------------------------------------------------------------------------------------------------
# The articles
# ------------------------------------------------------------------------------------------------------------------

def short_leg_brace():
    shoe = area(closed((196, 232), (252, 232), (268, 258), (316, 274), (330, 290), (324, 300), (198, 300), (188, 272)),
                LEATHER)
    return (leg(20, 60, 250) + shoe + line([(196, 302), (328, 302)], RUBBER, 8) +
            line(curve((232, 262), (230, 200), (228, 92)), METAL, 9) + joint(232, 258) +
            strap(186, 258, 84, 112))


def long_leg_brace():
    shoe = area(closed((196, 262), (246, 262), (262, 276), (306, 288), (316, 300), (312, 308), (198, 308), (190, 284)),
                LEATHER)
    return (leg(6, 128, 284) + shoe + line([(194, 310), (316, 310)], RUBBER, 6) +
            line(curve((232, 280), (231, 210), (231, 128), (231, 20)), METAL, 8) + joint(231, 128, 10) +
            joint(232, 278) + strap(182, 278, 18, 42) + strap(188, 272, 86, 104) + strap(190, 258, 166, 184))


def orthopaedic_boot():
    upper = closed((168, 70), (262, 70), (258, 130), (276, 170), (330, 194), (372, 220), (376, 250), (170, 252),
                   (158, 210), (172, 150))
    laces = []
    for step in range(5):
        laces += line([(236 + 6 * step, 96 + 22 * step), (264 + 9 * step, 88 + 22 * step)], PAPER, 3)
    return (area(upper, LEATHER) + line(curve((256, 84), (258, 140), (290, 186), (306, 194)), INK, 3) + laces +
            area(box(160, 250, 378, 264), RUBBER) + area(box(160, 264, 232, 286), RUBBER) +
            line(curve((178, 214), (230, 226), (300, 224), (366, 228)), INK, 2))


def corset():
    body = curve((150, 40), (176, 120), (160, 190), (140, 290)) + curve((340, 290), (320, 190), (304, 120), (330, 40))
    bars = []
    for x in (188, 222, 258, 292):
        bars += line(curve((x, 70), ((x + 240) / 2, 170), (x, 282)), METAL, 7)
    return (area(body, CLOTH) + bars + strap(156, 324, 96, 118, 8) + strap(160, 320, 176, 198, 8) +
            strap(146, 334, 246, 268, 8))


def wrist_splint():
    arm = curve((60, 110), (180, 118), (262, 126)) + curve((262, 192), (180, 204), (60, 214))
    hand = closed((256, 122), (318, 104), (404, 126), (436, 148), (420, 168), (330, 176), (300, 206), (340, 238),
                  (316, 252), (264, 214))
    shell = curve((96, 170), (200, 176), (270, 172), (336, 178)) + curve((330, 214), (266, 214), (200, 220), (96, 222))
    return (area(arm, SKIN) + area(hand, SKIN) + line(curve((340, 132), (400, 142), (428, 152)), INK, 2) +
            area(shell, SHELL) + area(box(116, 106, 140, 222), LEATHER) + area(box(216, 116, 240, 218), LEATHER) +
            area(closed((298, 108), (318, 104), (330, 178), (310, 180)), LEATHER))


def shell_leg():
    socket = curve((176, 20), (170, 90), (186, 160), (202, 236)) + curve((256, 236), (272, 160), (288, 90), (284, 20))
    return (area(socket, SHELL) + line(curve((178, 26), (230, 44), (282, 26)), INK, 2) +
            area(closed((200, 232), (258, 232), (270, 254), (326, 272), (346, 290), (340, 304), (196, 304), (190, 270)),
                 SKIN) + line(curve((206, 236), (230, 244), (254, 236)), INK, 2) + strap(168, 292, 58, 82))


def modular_leg():
    socket = curve((172, 14), (166, 60), (184, 112)) + curve((276, 112), (292, 60), (286, 14))
    return (area(socket, SHELL) + area(box(208, 108, 252, 126), METAL) + area(box(206, 126, 254, 156), RUBBER) +
            joint(230, 141, 9) + area(box(220, 156, 240, 262), METAL) + area(box(212, 250, 248, 266), METAL) +
            area(closed((200, 258), (256, 258), (270, 270), (328, 282), (346, 296), (340, 308), (196, 308), (190, 282)),
                 SKIN))


def wheelchair():
    wheel = ellipse(196, 214, 84, 84)
    spokes = []
    for step in range(12):
        angle = step * math.pi / 6
        spokes += line([(196, 214), (196 + 82 * math.cos(angle), 214 + 82 * math.sin(angle))], METAL, 1.5)
    frame = (line([(132, 46), (152, 196), (300, 196), (340, 274), (372, 274)], METAL, 7) + line([(96, 46), (136, 46)], RUBBER, 12) +
             line([(300, 196), (314, 266)], METAL, 7) + line([(148, 150), (270, 150), (280, 196)], METAL, 6))
    return (area(box(152, 178, 302, 196), CLOTH) + area([(138, 60), (152, 58), (168, 180), (152, 184)], CLOTH) + frame +
            spokes + line(wheel, RUBBER, 8) + line(ellipse(196, 214, 72, 72), METAL, 3) + joint(196, 214, 9) +
            line(ellipse(314, 280, 20, 20), RUBBER, 7) + joint(314, 280, 5))


def seating():
    seat = closed((150, 196), (300, 186), (322, 204), (312, 226), (152, 230), (138, 214))
    back = closed((120, 40), (150, 34), (172, 100), (176, 190), (148, 206), (130, 130))
    head = closed((112, 14), (146, 8), (154, 34), (120, 42))
    return (area(back, CLOTH) + area(head, CLOTH) + area(seat, CLOTH) + area(closed((300, 196), (320, 198), (352, 276), (336, 282)), CLOTH) +
            area(box(320, 276, 392, 286), METAL) + area(closed((158, 128), (232, 124), (236, 140), (160, 146)), LEATHER) +
            area(closed((206, 168), (252, 166), (254, 192), (208, 196)), LEATHER) +
            line([(160, 230), (140, 300)], METAL, 7) + line([(296, 228), (310, 300)], METAL, 7) +
            line([(120, 302), (332, 302)], METAL, 7))


def crutch():
    return (line([(226, 36), (238, 292)], METAL, 8) + line([(262, 36), (246, 292)], METAL, 8) +
            area(closed((206, 22), (282, 22), (288, 36), (282, 46), (206, 46), (200, 36)), RUBBER) +
            line([(230, 132), (258, 132)], LEATHER, 12) + area(box(232, 284, 254, 304), RUBBER) + joint(234, 224, 5) +
            joint(251, 224, 5))


PICTURES = {
    "下肢装具_E-4_短下肢装具": short_leg_brace,
    "下肢装具_E-2_長下肢装具": long_leg_brace,
    "靴型装具": orthopaedic_boot,
    "体幹装具": corset,
    "上肢装具": wrist_splint,
    "殻構造義足": shell_leg,
    "骨格構造義足": modular_leg,
    "車椅子": wheelchair,
    "座位保持装置": seating,
    "歩行補助つえ": crutch,
}


def main():
    folder = HERE / "image"
    folder.mkdir(exist_ok=True)
    for name, shapes in PICTURES.items():
        sheet = Sheet()
        for kind, points, *how in shapes():
            getattr(sheet, kind)(points, *how)
        (folder / (name + ".png")).write_bytes(sheet.png())
    print("%d pictures in %s" % (len(PICTURES), folder.name))


if __name__ == "__main__":
    main()
