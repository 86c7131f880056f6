#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Words as fingers type them, for the benchmarks: a set in the format of `vorpel eval`.

    bench/data/typist.py --sources build/sources/en --language en --rows 1500 --out typed_en.tsv
    bench/data/typist.py --sources build/sources/en --language en --lengths 20 --rows 60 --out lengths_en.tsv

Words and the words before them are drawn as often as they occur in the counted texts. With --lengths N the words
are longer than each length of 1 to N, ROWS a length, which stands in the column `level`; one letter more is typed.
Every touch scatters around the middle of its key; letters are left out, doubled and swapped as often as typists do.
The same counts and seed give the same bytes.
"""
from __future__ import annotations

import argparse
import itertools
import json
import random
import sys
from bisect import bisect
from pathlib import Path

SEED = 20240229
# A page of 320 x 216 points: letters in three of four rows, each row in the middle.
PAGE_WIDTH, ROW_HEIGHT = 320.0, 54.0
KEY_ROWS = {"en": ("qwertyuiop", "asdfghjkl", "zxcvbnm"), "ar": ("ضصثقفغعهخحج", "شسيبلاتنمكط", "ذءؤرىةوزظد")}
LONG_PRESSES = str.maketrans("أإآ", "ااا")
TEXTS = {"en": ("fortunes.pairs.tsv",), "ar": ("pairs.tsv",)}
WORD_LISTS = ("fortunes.words.tsv", "examples.words.tsv", "vocabulary.tsv")
# Standard deviation of a touch, in key widths and row heights, and shares of letters that go wrong otherwise.
SCATTER_X, SCATTER_Y = 0.23, 0.15
LEFT_OUT, DOUBLED, SWAPPED = 0.015, 0.01, 0.01


class Keyboard:
    def __init__(self, language: str) -> None:
        rows = KEY_ROWS[language]
        self.key_width = PAGE_WIDTH / max(len(row) for row in rows)
        self.centers = {letter: ((PAGE_WIDTH - len(row) * self.key_width) / 2 + (column + 0.5) * self.key_width,
                                 (line + 0.5) * ROW_HEIGHT)
                        for line, row in enumerate(rows) for column, letter in enumerate(row)}

    def letters_of(self, word: str) -> str:
        """The keys of a word: small, without apostrophes; a long press is its key."""
        return word.lower().translate(LONG_PRESSES).replace("'", "")

    def can_type(self, word: str) -> bool:
        letters = self.letters_of(word)
        return bool(letters) and all(letter in self.centers for letter in letters)

    def key_at(self, x: float, y: float) -> str:
        def distance(center: tuple[float, float]) -> float:
            return ((center[0] - x) / self.key_width) ** 2 + ((center[1] - y) / ROW_HEIGHT) ** 2
        return min(self.centers, key=lambda letter: distance(self.centers[letter]))


class Typist:
    """Types one word after the other; every random choice comes from the one seed."""

    def __init__(self, keyboard: Keyboard, seed: int) -> None:
        self.keyboard, self.random = keyboard, random.Random(seed)

    def scatter(self) -> float:
        """Nearly normal, deviation 1, and the same on every machine: a sum of twelve even numbers."""
        return sum(self.random.random() for _ in range(12)) - 6

    def touch(self, letter: str) -> tuple[str, list[float]]:
        x, y = self.keyboard.centers[letter]
        x = round(x + self.scatter() * SCATTER_X * self.keyboard.key_width, 1)
        y = round(y + self.scatter() * SCATTER_Y * ROW_HEIGHT, 1)
        return self.keyboard.key_at(x, y), [x, y]

    def slip(self, letters: str) -> str:
        made: list[str] = []
        for letter in letters:
            chance = self.random.random()
            if chance < LEFT_OUT and len(letters) > 2:
                continue
            made.append(letter)
            if chance > 1 - DOUBLED:
                made.append(letter)
            elif chance > 1 - DOUBLED - SWAPPED and len(made) > 1:
                made[-2:] = reversed(made[-2:])
        return "".join(made) or letters

    def type(self, word: str, at_least: int = 1) -> tuple[str, list[list[float]]]:
        """The keys that were hit and where; with a length of its own a word is typed again until it has it."""
        while True:
            letters = self.slip(self.keyboard.letters_of(word))
            if len(letters) >= at_least:
                hits = [self.touch(letter) for letter in letters]
                return "".join(key for key, _ in hits), [place for _, place in hits]


def read_counts(path: Path, columns: int) -> list[tuple[tuple[str, ...], float]]:
    rows = (line.split("\t") for line in path.read_text(encoding="utf-8").splitlines())
    return [(tuple(row[:columns]), float(row[columns])) for row in rows if len(row) > columns]


def draw(counted: list[tuple[tuple[str, ...], float]], rows: int, typist: Typist) -> list[tuple[str, ...]]:
    sums = list(itertools.accumulate(count for _, count in counted))
    return [counted[bisect(sums, typist.random.random() * sums[-1])][0] for _ in range(rows)]


def running_text(sources: Path, language: str, rows: int, typist: Typist) -> list[str]:
    counted = [entry for name in TEXTS[language] for entry in read_counts(sources / name, 2)
               if typist.keyboard.can_type(entry[0][1])]
    lines = []
    for previous, word in draw(counted, rows, typist):
        typed, points = typist.type(word)
        lines.append("\t".join((typed, word, "text", previous, json.dumps(points))))
    return lines


def words_by_length(sources: Path, lengths: int, rows: int, typist: Typist) -> list[str]:
    """Words of the texts, as often as they occur; where they are too few, any listed word."""
    lists = [[entry for entry in read_counts(sources / name, 1) if typist.keyboard.can_type(entry[0][0])]
             for name in WORD_LISTS]
    lines = []
    for length in range(1, lengths + 1):
        fitting: list[tuple[tuple[str, ...], float]] = []
        for words in lists:
            fitting = [entry for entry in words if len(typist.keyboard.letters_of(entry[0][0])) > length]
            if len(fitting) >= rows:
                break
        for (word,) in draw(fitting, rows, typist):
            typed, points = typist.type(word, length + 1)
            lines.append("\t".join((typed[:length + 1], word, str(length), "", json.dumps(points[:length + 1]))))
    return lines


def main() -> int:
    parser = argparse.ArgumentParser(description="Words as fingers type them, for the benchmarks.")
    parser.add_argument("--sources", type=Path, required=True, help="folder of the counts")
    parser.add_argument("--language", choices=sorted(KEY_ROWS), default="en")
    parser.add_argument("--rows", type=int, default=1500)
    parser.add_argument("--lengths", type=int, help="words for each length up to this one, of English")
    parser.add_argument("--seed", type=int, default=SEED)
    parser.add_argument("--out", type=Path, required=True)
    arguments = parser.parse_args()
    typist = Typist(Keyboard(arguments.language), arguments.seed)
    if arguments.lengths:
        lines = words_by_length(arguments.sources, arguments.lengths, arguments.rows, typist)
    else:
        lines = running_text(arguments.sources, arguments.language, arguments.rows, typist)
    arguments.out.write_text("\n".join(["typed\tintended\tlevel\tprev\tpoints", *lines]) + "\n", encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main())
