#!/usr/bin/env python3
"""Draws all icons and bitmaps of the library into ../icons and ../bitmaps, and names those for other scales in
../scaled_images.rc. Needs nothing but Python 3.

    make_images.py                        draws the images; takes some minutes
    make_images.py --sheet FILE           draws those for 100 % on one PNG, at 100 % and 400 %
    make_images.py --scaled-sheet FILE    draws those for all scales on one PNG

The build takes the checked-in results; run this after changing a drawing.
"""

import pathlib
import sys

import bitmaps
import icons
from raster import Canvas, rgb, write_bmp, write_ico, write_packed_ico, write_png

HERE = pathlib.Path(__file__).resolve().parent.parent
# As in dlglib/base/scaled_images.cpp.
SIDES = (16, 20, 24, 28, 32, 40, 48, 56, 64, 80, 96)
PERCENTS = (125, 150, 175, 200, 250, 300)
ICONS_FROM = 10000  # added to the number of an icon whose image has all those sides
BITMAPS_STEP = 1000  # added to the number of a bitmap, once more for each of those scales


def draw_all():
    small = {number: (name, icons.draw(drawing, 16)) for number, (name, drawing) in icons.ICONS.items()}
    large = {number: icons.draw(drawing, 32) for number, (_, drawing) in icons.ICONS.items()}
    return small, large, bitmaps.all_bitmaps()


def write_files(small, large, pictures):
    for number, (name, canvas) in small.items():
        write_ico(HERE / 'icons' / f'{name}.ico', [canvas, large[number]])
    for name, canvas in pictures.values():
        write_bmp(HERE / 'bitmaps' / f'{name}.bmp', canvas)


def draw_scaled():
    """File and canvases of each icon by number; file and canvas of each bitmap by number."""
    sided = {ICONS_FROM + number: (f'icons/scaled/{name}.ico', [icons.draw(drawing, side) for side in SIDES])
             for number, (name, drawing) in icons.ICONS.items()}
    scaled = {}
    for i, percent in enumerate(PERCENTS, 1):
        for number, (name, canvas) in bitmaps.all_bitmaps(percent / 100).items():
            scaled[i * BITMAPS_STEP + number] = (f'bitmaps/{percent}/{name}.bmp', canvas)
    return sided, scaled


def write_scaled(sided, scaled):
    (HERE / 'icons' / 'scaled').mkdir(exist_ok=True)
    for percent in PERCENTS:
        (HERE / 'bitmaps' / str(percent)).mkdir(exist_ok=True)
    lines = ['// The images for other scales, by make_images.py: numbers and files.', '']
    for number, (file, canvases) in sorted(sided.items()):
        write_packed_ico(HERE / file, canvases)
        lines.append(f'{number} ICON "{file}"')
    for number, (file, canvas) in sorted(scaled.items()):
        write_bmp(HERE / file, canvas)
        lines.append(f'{number} BITMAP "{file}"')
    (HERE / 'scaled_images.rc').write_text('\n'.join(lines) + '\n', encoding='utf-8')


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


def write_scaled_sheet(path, sided, scaled):
    sheet = Canvas(1480, 1400, 1, rgb('#FFFFFF'))
    x, y = 8, 8
    for _, canvases in sided.values():
        _row(sheet, canvases, x, y, 1, 8)
        x, y = (748, y) if x == 8 else (8, y + 104)
    for first in range(BITMAPS_STEP, BITMAPS_STEP * (len(PERCENTS) + 1), BITMAPS_STEP):
        row = [canvas for number, (_, canvas) in scaled.items() if first < number - 10000 < first + BITMAPS_STEP]
        _row(sheet, row, 8, y, 1, 8)
        y += row[1].height + 12
    write_png(path, sheet)


def main():
    if sys.argv[1:2] == ['--scaled-sheet'] and len(sys.argv) == 3:
        write_scaled_sheet(sys.argv[2], *draw_scaled())
        return
    small, large, pictures = draw_all()
    if sys.argv[1:2] == ['--sheet'] and len(sys.argv) == 3:
        write_sheet(sys.argv[2], small, large, pictures)
    elif len(sys.argv) == 1:
        for folder in ('icons', 'bitmaps'):
            (HERE / folder).mkdir(exist_ok=True)
        write_files(small, large, pictures)
        write_scaled(*draw_scaled())
    else:
        sys.exit(__doc__)


main()
