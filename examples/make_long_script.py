#!/usr/bin/env python3
"""Writes a very long script, to see what the program makes of one.

    make_long_script.py OUT.rtf|OUT.txt [LINES]

LINES (32,000 unless told) is the number of display lines wanted at the first settings: Arial at 26
points in the widest column. Each paragraph is one numbered sentence that fills three such lines or
a little less, so that the number of lines comes out within a few per cent. The same call writes
the same file to the byte."""

import random
import sys

# What fits a display line, on average: the column's 298 pixels at 17.3 pixels a character, less
# what is left over where a word no longer fits.
CHARACTERS_A_LINE = 15.2
LINES_A_STORY = 300

NOUNS = ("river harbour teacher letter window market engine garden bridge winter station "
         "island").split()
VERBS = ("carried found painted followed counted mended forgot measured heard opened crossed "
         "sold").split()
ADJECTIVES = ("quiet narrow green early famous broken patient northern hollow bright second "
              "tall").split()
PLACES = "by the sea, in the square, at dawn, after the rain, on the hill, before noon".split(", ")


def sentence(chance):
    return (f"The {chance.choice(ADJECTIVES)} {chance.choice(NOUNS)} {chance.choice(VERBS)} "
            f"the {chance.choice(ADJECTIVES)} {chance.choice(NOUNS)} {chance.choice(PLACES)}.")


def paragraphs(lines):
    """Text, and whether it is set apart by bold and colour, one paragraph after the other."""
    chance = random.Random(lines)
    written, number, next_story = 0.0, 0, LINES_A_STORY
    while written < lines:
        number += 1
        text = f"{number}. {sentence(chance)}"
        yield text, number % 7 == 0
        written += len(text) / CHARACTERS_A_LINE
        if written >= next_story:
            next_story += LINES_A_STORY
            written += 1
            yield "^----", False


def as_rtf(lines):
    yield ("{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}}\n"
           "{\\colortbl;\\red255\\green255\\blue0;}\n\\pard\\plain\\f0\\fs52\n")
    for text, apart in paragraphs(lines):
        yield (f"{{\\b\\cf1 {text}}}" if apart else text) + "\\par\n"
    yield "}\n"


def as_text(lines):
    return (text + "\n" for text, _ in paragraphs(lines))


def main(arguments):
    if len(arguments) not in (1, 2) or not arguments[0].lower().endswith((".rtf", ".txt")):
        sys.exit(__doc__)
    lines = int(arguments[1]) if len(arguments) == 2 else 32000
    write = as_rtf if arguments[0].lower().endswith(".rtf") else as_text
    with open(arguments[0], "w", encoding="ascii", newline="\n") as file:
        file.writelines(write(lines))


if __name__ == "__main__":
    main(sys.argv[1:])
