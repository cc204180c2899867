"""The colours that all images share. Light falls from the upper left."""

from raster import rgb

EDGE = rgb('#515C67')        # outlines of machines
CASE = rgb('#E8ECF0')        # machines, lit side
CASE_LOW = rgb('#B9C3CD')    # machines, side away from the light
CASE_DARK = rgb('#8A96A2')
WHITE = rgb('#FFFFFF')

SCREEN = rgb('#5AA0E4')
SCREEN_LOW = rgb('#2A69B5')
SCREEN_EDGE = rgb('#1D4A82')

NET = rgb('#3B86D0')         # everything that is cable
NET_EDGE = rgb('#1D4A82')
NET_LIGHT = rgb('#A9CFF2')

FOLDER = rgb('#FBD877')
FOLDER_LOW = rgb('#EDBB4A')
FOLDER_BACK = rgb('#DFA636')
FOLDER_EDGE = rgb('#98701A')
FOLDER_LIGHT = rgb('#FFF0BE')

PAPER = rgb('#FFFFFF')
PAPER_LOW = rgb('#EDF1F5')
PAPER_EDGE = rgb('#6C7885')
PAPER_FOLD = rgb('#CBD5DE')
INK = rgb('#5C87B8')

GREEN = rgb('#3FA94E')
GREEN_EDGE = rgb('#1F6B2D')
BOARD = rgb('#3C9A57')
BOARD_EDGE = rgb('#1F5F35')
CHIP = rgb('#343B43')
GOLD = rgb('#E9BE4B')
