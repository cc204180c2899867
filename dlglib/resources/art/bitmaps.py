"""The images of the browser's four buttons and of the toolbar.

They are opaque bitmaps of 256 colours on #C0C0C0. That colour and the #808080 of frames are replaced by the user's dialog
colours when the images are loaded, so no drawing uses them for anything else.
"""

from icons import folder
from palette import *
from raster import Canvas, circle, down, fit_to_pixels, mix, polygon, rect, rgb, segment

FACE = rgb('#C0C0C0')
SHADOW = rgb('#808080')
HEIGHT = 22
WIDTH = 24
VIEW_WIDTH = 32


def back(c):
    c.solid(polygon((1, 8), (8, 1), (8, 5), (15, 5), (15, 11), (8, 11), (8, 15)), down(SCREEN, SCREEN_LOW, 3, 13), NET_EDGE)


def up(c):
    folder(c, 1, 2, 14, 12)
    c.solid(polygon((8, 4), (13, 9), (10, 9), (10, 13), (6, 13), (6, 9), (3, 9)), GREEN, GREEN_EDGE)


def new_folder(c):
    folder(c, 0, 3, 14, 12)
    c.solid(rect(10, 1, 13, 4) | rect(7, 4, 16, 7) | rect(10, 7, 13, 10), GREEN, GREEN_EDGE)


def view(c):
    c.solid(rect(1, 2, 15, 14), PAPER, EDGE)
    c.fill(rect(2, 3, 14, 5), NET)
    c.fill(rect(2, 5, 14, 6), CASE_LOW)
    for y in (7, 9, 11):
        c.fill(rect(3, y, 5, y + 1), FOLDER_BACK)
        c.fill(rect(6, y, 10, y + 1), EDGE)
        c.fill(rect(11, y, 13, y + 1), CASE_DARK)


def _pixels(length, scale):
    """As the library scales a length."""
    return int(length * scale + 0.5)


def _glyph(drawing, scale, height=16):
    canvas = Canvas(_pixels(16, scale), _pixels(height, scale), scale)
    fit_to_pixels(scale)
    drawing(canvas)
    fit_to_pixels(1)
    return canvas


def _greyed(canvas):
    """The same glyph without colour and half faded."""
    grey = Canvas(canvas.width, canvas.height)
    for i, (r, g, b, a) in enumerate(canvas.pixels):
        tone = 0.3 * r + 0.59 * g + 0.11 * b
        grey.pixels[i] = mix((0, 0, 0, 0), (tone, tone, tone, a), 0.45)
    return grey


def _frame(c, line, upper, lower):
    w, h = c.width, c.height
    c.fill(rect(0, 0, w - line, line) | rect(0, 0, line, h - line), upper)
    c.fill(rect(0, h - line, w, h) | rect(w - line, 0, w, h), lower)


def _drop_arrow(c, x, y, rows, colour):
    for i in range(rows):
        c.fill(rect(x + i, y + i, x + 2 * rows - 1 - i, y + i + 1), colour)


def button(drawing, state, width=WIDTH, scale=1):
    """state: normal, selected (pressed), focused (hot) or disabled."""
    canvas = Canvas(_pixels(width, scale), _pixels(HEIGHT, scale), 1, FACE)
    line = int(scale)
    shift = line if state == 'selected' else 0
    glyph = _glyph(drawing, scale)
    canvas.paste(_greyed(glyph) if state == 'disabled' else glyph, _pixels(4, scale) + shift, _pixels(3, scale) + shift)
    if width == VIEW_WIDTH:
        _drop_arrow(canvas, _pixels(23, scale) + shift, _pixels(10, scale) + shift, _pixels(3, scale), CHIP)
    if state == 'selected':
        _frame(canvas, line, SHADOW, WHITE)
    if state == 'focused':
        _frame(canvas, line, WHITE, SHADOW)
    return canvas


def text_library(c):
    """An open book."""
    c.solid(polygon((1, 2), (7, 3), (8, 4), (9, 3), (15, 2), (15, 13), (9, 13), (8, 14), (7, 13), (1, 13)), PAPER, NET_EDGE)
    c.fill(rect(7, 4, 9, 13), PAPER_FOLD)
    for y in (5, 7, 9, 11):
        c.fill(rect(3, y, 6, y + 1) | rect(10, y, 13, y + 1), INK)


def metacharacter(c):
    """The diameter sign."""
    c.fill(circle(8, 7.5, 5.5) - circle(8, 7.5, 3.7), SCREEN_EDGE)
    c.fill(segment(3, 14, 13, 1, 1.7), SCREEN_EDGE)


def register(c):
    """A table of names and values."""
    c.solid(rect(1, 2, 15, 13), PAPER, EDGE)
    c.fill(rect(2, 3, 14, 5), GREEN)
    c.fill(rect(6, 5, 7, 12) | rect(2, 8, 14, 9), CASE_LOW)
    for y in (6, 10):
        c.fill(rect(3, y, 5, y + 1), EDGE)
        c.fill(rect(8, y, 13, y + 1), INK)


def toolbar(scale=1):
    side = _pixels(16, scale)
    canvas = Canvas(3 * side, _pixels(15, scale), 1, FACE)
    for i, drawing in enumerate((text_library, metacharacter, register)):
        canvas.paste(_glyph(drawing, scale, 15), side * i, 0)
    return canvas


def all_bitmaps(scale=1):
    """Resource number: (file name, canvas)."""
    result = {10054: ('toolbar', toolbar(scale))}
    rows = ((10094, 'back', back, WIDTH, ('normal', 'selected', 'focused', 'disabled')),
            (10098, 'up', up, WIDTH, ('normal', 'selected', 'focused', 'disabled')),
            (10102, 'new_folder', new_folder, WIDTH, ('normal', 'selected', 'focused')),
            (10107, 'view', view, VIEW_WIDTH, ('normal', 'selected', 'focused')),
            (10110, 'new_folder', new_folder, WIDTH, ('disabled',)))
    for first, name, drawing, width, states in rows:
        for i, state in enumerate(states):
            result[first + i] = (f'{name}_{state}', button(drawing, state, width, scale))
    return result
