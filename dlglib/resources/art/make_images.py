#!/usr/bin/env python3
"""Draws all icons and bitmaps of the library into ../icons and ../bitmaps. Needs nothing but Python 3.

    make_images.py                 draws the images
    make_images.py --sheet FILE    draws them all on one PNG, at 100 % and 400 %

The build takes the checked-in results; run this after changing a drawing.
"""

import pathlib
import sys

import bitmaps
import icons
from raster import Canvas, rgb, write_bmp, write_ico, write_png

HERE = pathlib.Path(__file__).resolve().parent.parent


def draw_all():
    small = {number: (name, icons.draw(drawing, 16)) for number, (name, drawing) in icons.ICONS.items()}
    large = {number: icons.draw(drawing, 32) for number, (_, drawing) in icons.ICONS.items()}
    return small, large, bitmaps.all_bitmaps()


def write_files(small, large, pictures):
    for number, (name, canvas) in small.items():
        write_ico(HERE / 'icons' / f'{name}.ico', [canvas, large[number]])
    for name, canvas in pictures.values():
        write_bmp(HERE / 'bitmaps' / f'{name}.bmp', canvas)


def _enlarged(canvas, zoom):
    result = Canvas(canvas.width * zoom, canvas.height * zoom)
    for y in range(result.height):
        for x in range(result.width):
            result.pixels[y * result.width + x] = canvas.pixels[y // zoom * canvas.width + x // zoom]
    return result


def _row(sheet, canvases, x, y, zoom, gap):
    for canvas in canvases:
        sheet.paste(_enlarged(canvas, zoom) if zoom > 1 else canvas, x, y)
        x += canvas.width * zoom + gap


def write_sheet(path, small, large, pictures):
    buttons = [canvas for number, (_, canvas) in pictures.items() if number != 10054]
    tiny, big = [canvas for _, canvas in small.values()], list(large.values())
    sheet = Canvas(1480, 940, 1, rgb('#FFFFFF'))
    _row(sheet, tiny, 8, 8, 1, 8)
    _row(sheet, big, 8, 32, 1, 8)
    _row(sheet, tiny, 8, 80, 4, 8)
    _row(sheet, big[:10], 8, 160, 4, 16)
    _row(sheet, big[10:], 8, 304, 4, 16)
    _row(sheet, [pictures[10054][1]] + buttons, 8, 450, 1, 8)
    _row(sheet, [pictures[10054][1]] + buttons[:4], 8, 490, 4, 8)
    _row(sheet, buttons[4:], 8, 600, 4, 8)
    write_png(path, sheet)


def main():
    small, large, pictures = draw_all()
    if sys.argv[1:2] == ['--sheet'] and len(sys.argv) == 3:
        write_sheet(sys.argv[2], small, large, pictures)
    elif len(sys.argv) == 1:
        for folder in ('icons', 'bitmaps'):
            (HERE / folder).mkdir(exist_ok=True)
        write_files(small, large, pictures)
    else:
        sys.exit(__doc__)


main()
