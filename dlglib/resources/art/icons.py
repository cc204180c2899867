"""The icons of places, drives and entries, each drawn on a grid of 16 x 16 units."""

from palette import *
from raster import Canvas, circle, down, ellipse, fit_to_pixels, polygon, rect, rgb, rounded, segment


def monitor(c, x, y, w, h):
    """A screen in a light case."""
    p = c.px
    c.solid(rounded(x, y, x + w, y + h, 1), down(CASE, CASE_LOW, y, y + h), EDGE, WHITE)
    glass = rect(x + 1 + p, y + 1 + p, x + w - 1 - p, y + h - 1 - p)
    c.fill(glass, SCREEN_EDGE)
    c.fill(glass if c.unit == 1 else glass.inset(p), down(SCREEN, SCREEN_LOW, y + 1, y + h - 1))


def small_monitor(c, x, y, w, h):
    """A screen where space is short: no inner frame."""
    rim = 1 if c.unit == 1 else 1.5
    c.solid(rect(x, y, x + w, y + h), CASE, EDGE)
    c.fill(rect(x + rim, y + rim, x + w - rim, y + h - rim), down(SCREEN, SCREEN_LOW, y, y + h))


def stand(c, x, y, w):
    """The foot of a screen: a neck and a base of width w, two units high."""
    middle = x + w / 2
    c.fill(rect(middle - 1, y, middle + 1, y + 1), CASE_DARK)
    c.fill(rect(x, y + 1, x + w, y + 2), EDGE)
    if c.unit > 1:
        c.fill(rect(x + c.px, y + 1, x + w - c.px, y + 1 + c.px), CASE_LOW)


def folder(c, x, y, w, h):
    """A closed folder with its tab on the left."""
    tab = polygon((x, y + 1), (x + 1, y), (x + w * 0.36, y), (x + w * 0.36 + 2, y + 2), (x + w * 0.36 + 2, y + 3), (x, y + 3))
    c.solid(tab | rect(x, y + 2, x + w, y + h), FOLDER_BACK, FOLDER_EDGE)
    c.solid(rect(x, y + 4, x + w, y + h), down(FOLDER, FOLDER_LOW, y + 4, y + h), FOLDER_EDGE, FOLDER_LIGHT)


def cable(c, y, stem):
    """A piece of network cable along the lower edge with its plug below whatever hangs on it."""
    p = c.px
    c.fill(rect(7, stem, 9, y), NET_EDGE)
    c.fill(rect(7 + c.fine, stem, 9 - p, y), NET)
    c.fill(rect(0, y, 16, y + 2), NET_EDGE)
    c.fill(rect(0, y, 16, y + 2 - p), NET)
    c.fill(rect(0, y, 16, y + p), NET_LIGHT if c.unit > 1 else NET)
    c.solid(rect(5, y - 1, 11, y + 3 - c.fine), NET, NET_EDGE, NET_LIGHT)


def drive_front(c, y, h, lamp=True):
    """The front of a drive, from edge to edge."""
    p = c.px
    c.solid(rect(1, y, 15, y + h), down(CASE, CASE_LOW, y, y + h), EDGE, WHITE)
    c.fill(rect(3, y + h - 2 - c.fine / 2, 8, y + h - 1 - c.fine / 2), CASE_DARK)
    if lamp:
        c.fill(rect(12, y + h - 2 - c.fine / 2, 13 + c.fine, y + h - 1 - c.fine / 2), GREEN)


def drive_top(c, y, h):
    """The lid of a drive seen from above."""
    c.solid(polygon((3.5, y), (12.5, y), (15, y + h + 1), (1, y + h + 1)), down(WHITE, CASE, y, y + h), EDGE)


def desktop(c):
    p = c.px
    c.solid(rounded(1, 2, 15, 14, 1), down(SCREEN, SCREEN_LOW, 2, 13), SCREEN_EDGE, NET_LIGHT)
    c.fill(rect(1 + p, 12 - c.fine, 15 - p, 14 - p), down(CASE, CASE_LOW, 12, 14))
    c.fill(rect(2, 12, 4, 13), GREEN)
    for y in (4, 8):
        c.fill(rect(3, y, 5, y + 2), WHITE)
        if c.unit > 1:
            c.fill(rect(3, y + 2.5, 5, y + 3), NET_LIGHT)
    c.solid(rect(7, 4, 13, 10), PAPER, SCREEN_EDGE)
    c.fill(rect(7 + p, 4 + p, 13 - p, 5 + p), NET_LIGHT)


def computer(c):
    monitor(c, 1, 1, 14, 11)
    stand(c, 4, 12, 8)


def network(c):
    p = c.px
    c.fill(rect(3, 7, 4, 13) | rect(3, 12, 8, 13), NET)
    c.fill(rect(12, 3, 13, 6) | rect(10, 3, 13, 4), NET)
    small_monitor(c, 0, 1, 10, 7)
    small_monitor(c, 6, 6, 10, 7)
    stand(c, 8, 13, 6)
    c.fill(rect(0, 8, 6, 8 + p), EDGE)


def entire_network(c):
    ball = circle(8, 7, 6)
    cable(c, 13, 12)
    c.solid(ball, down(SCREEN, SCREEN_LOW, 1, 13), SCREEN_EDGE)
    inner = ball.inset(c.px)
    line = 1 if c.unit == 1 else 0.75
    c.fill(inner & (ellipse(8, 7, 3, 6.5) - ellipse(8, 7, 3 - line, 6.5)), NET_LIGHT)
    rows = (4, 9) if c.unit == 1 else (3.5, 6.625, 9.75)  # at 16 pixels there is room for two lines, between the pixels' middle
    for y in rows:
        c.fill(inner & rect(0, y, 16, y + line), NET_LIGHT)
    if c.unit > 1:
        c.fill(inner & rect(7.5, 0, 8.5, 16), NET_LIGHT)


def provider(c):
    p = c.px
    for x in (3, 7, 12):
        c.fill(rect(x, 1, x + 1, 6), NET)
    c.solid(rounded(1, 5, 15, 12, 1), down(CASE, CASE_LOW, 5, 12), EDGE, WHITE)
    for x in (3, 6, 9):
        c.fill(rect(x, 8, x + 2, 10), CHIP)
        c.fill(rect(x, 7 - c.fine / 2, x + 1, 8 - c.fine), GREEN)
    c.fill(rect(12, 8, 13, 9), GREEN)
    c.fill(rect(7, 12, 9, 14), NET)
    c.fill(rect(0, 14, 16, 15), NET)


def domain(c):
    c.fill(rect(7, 6, 8, 9) | rect(3, 8, 13, 9) | rect(3, 8, 4, 10) | rect(12, 8, 13, 10), NET)
    for x, y in ((4, 0), (0, 9), (9, 9)):
        small_monitor(c, x, y, 7, 6)
    for x, y in ((6, 6), (2, 15), (11, 15)):
        c.fill(rect(x, y, x + 3, y + 1), EDGE)


def nearby_computers(c):
    small_monitor(c, 0, 2, 7, 6)
    small_monitor(c, 9, 2, 7, 6)
    monitor(c, 2, 5, 12, 8)
    stand(c, 5, 13, 6)


def server(c):
    p = c.px
    monitor(c, 0, 3, 11, 8)
    stand(c, 2, 11, 7)
    c.solid(rect(10, 1, 16, 14), down(CASE, CASE_LOW, 1, 14), EDGE, WHITE)
    for y in (3, 5):
        c.fill(rect(12, y, 15 - p, y + 1), CASE_DARK)
    c.fill(rect(13, 11, 14, 12), GREEN)


def share(c):
    cable(c, 13, 11)
    folder(c, 2, 0, 12, 11)


def fixed_drive(c):
    drive_top(c, 3, 5)
    drive_front(c, 8, 5)


def network_drive(c):
    cable(c, 13, 10)
    drive_top(c, 1, 4)
    drive_front(c, 5, 5)


def disc(c, cx, cy, r):
    whole = circle(cx, cy, r)
    c.solid(whole, down(WHITE, CASE_LOW, cy - r, cy + r), EDGE)
    inner = whole.inset(c.px) - circle(cx, cy, r * 0.4)
    for colour, points in (('#BFE3C6', ((cx, cy), (cx + r, cy - r * 0.9), (cx + r * 0.35, cy - r))),
                           ('#BCD7F3', ((cx, cy), (cx - r, cy + r * 0.55), (cx - r * 0.9, cy + r))),
                           ('#D9CDF0', ((cx, cy), (cx + r, cy - r * 0.9), (cx + r, cy - r * 0.3)))):
        c.fill(inner & polygon(*points), rgb(colour))
    c.solid(circle(cx, cy, r * 0.36), CASE_LOW, CASE_DARK)
    c.fill(circle(cx, cy, r * 0.16), WHITE)


def cd_rom(c):
    disc(c, 8, 7, 7)
    drive_front(c, 10, 5)


def removable(c):
    p = c.px
    c.solid(rect(3, 1, 13, 12), down(SCREEN, SCREEN_LOW, 1, 12), SCREEN_EDGE, NET_LIGHT)
    c.fill(rect(5, 1 + p, 11, 5), CASE)
    c.fill(rect(9, 2, 10, 4), SCREEN_EDGE)
    c.fill(rect(5, 7, 11, 10), WHITE)
    drive_front(c, 9, 6)
    c.fill(rect(3, 9 + p, 13, 10 + p), CHIP)


def ram_disk(c):
    p = c.px
    c.solid(rect(0, 4, 16, 12), BOARD, BOARD_EDGE, rgb('#7CC892'))
    for x in (2, 7, 11):
        c.fill(rect(x, 6, x + 3, 10), CHIP)
        c.fill(rect(x + p, 6 + p, x + 3 - p, 6 + 2 * p), rgb('#6A747F'))
    for x in range(1, 15, 2):
        c.fill(rect(x, 12 - p, x + 1, 14 - c.fine), GOLD)


def file(c):
    sheet = polygon((2, 1), (10, 1), (14, 5), (14, 15), (2, 15))
    c.solid(sheet, down(PAPER, PAPER_LOW, 1, 15), PAPER_EDGE)
    c.solid(polygon((9, 1), (10, 1), (14, 5), (14, 6), (9, 6)) & sheet, PAPER_FOLD, PAPER_EDGE)
    for y, right in ((5, 7), (8, 12), (10, 12), (12, 9)):
        c.fill(rect(4, y, right, y + 1 - c.fine / 2), INK)


def arrow_mark(c):
    """The sign of a shortcut in the lower left corner."""
    if c.unit == 1:
        c.solid(rect(0, 9, 7, 16), WHITE, EDGE)
        arrow = rect(2, 11, 5, 12) | rect(4, 11, 5, 14) | rect(3, 12, 4, 13) | rect(2, 13, 3, 14)
    else:
        c.solid(rect(0, 9.5, 6.5, 16), WHITE, EDGE)
        arrow = polygon((2, 11), (5, 11), (5, 14)) | segment(1.4, 14.6, 4, 12, 1.2)
    c.fill(arrow, NET_EDGE)


def folder_shortcut(c):
    folder(c, 1, 2, 14, 12)
    arrow_mark(c)


def file_shortcut(c):
    file(c)
    arrow_mark(c)


def whole_folder(c):
    folder(c, 1, 2, 14, 12)


def sort_mark(c, rises):
    rows = range(int(4 * c.unit + 0.5))
    pixel = 1 / c.unit
    for i in rows:
        half = (i if rises else len(rows) - 1 - i) * pixel + 0.5
        c.fill(rect(7.5 - half, 6 + i * pixel, 7.5 + half, 6 + (i + 1) * pixel), EDGE)


def sort_up(c):
    sort_mark(c, True)


def sort_down(c):
    sort_mark(c, False)


ICONS = {
    10074: ('cd_rom', cd_rom), 10075: ('computer', computer), 10076: ('desktop', desktop),
    10077: ('folder_shortcut', folder_shortcut), 10078: ('folder', whole_folder), 10079: ('domain', domain),
    10080: ('fixed_drive', fixed_drive), 10081: ('file', file), 10082: ('file_shortcut', file_shortcut),
    10083: ('network', network), 10084: ('entire_network', entire_network), 10085: ('network_drive', network_drive),
    10086: ('nearby_computers', nearby_computers), 10087: ('provider', provider), 10088: ('ram_disk', ram_disk),
    10089: ('removable', removable), 10090: ('server', server), 10091: ('share', share),
    10112: ('sort_ascending', sort_up), 10113: ('sort_descending', sort_down),
}


def draw(icon, size):
    unit = size / 16 if size % 16 else size // 16
    canvas = Canvas(size, size, unit)
    fit_to_pixels(unit)
    icon(canvas)
    fit_to_pixels(1)
    return canvas
