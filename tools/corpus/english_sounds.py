# SPDX-License-Identifier: Apache-2.0
"""Words as they are spelled by ear: what a pronunciation could be written as, other than the word.

A word's letters are laid along its phones by a table of spellings (data/en/sounds.tsv); then one to three of
the spellings are exchanged for others of the same sounds. Of the results those that look most like English are kept,
by a model of three letters learned from the word list. What is one letter away from the word is left to the engine.
"""
from __future__ import annotations

import heapq
import math
import re
from collections import Counter
from collections.abc import Collection, Iterable, Mapping
from pathlib import Path

from common import package_files

Phones = tuple[str, ...]
Unit = tuple[Phones, str]  # what the letters stand for; no phones: a silent letter

ENTRY = re.compile(r'\("([a-z]+)" \S+ \((.*)\)\)\s*$')
SYLLABLE = re.compile(r"\(\(([a-z ]+)\) \d\)")
LONGEST_UNIT = 4  # phones
SILENT_LETTER = -6.0  # log weights
SILENT_PHONE = -6.0
PHONES_THAT_MAY_BE_SILENT = frozenset(("ax", "y", "hh", "t", "d"))
WORST_ALIGNMENT = -60.0
CHANGE = -2.0  # of every exchange, so that few come before many
DROP_SILENT = -3.5
WEIGHT_OF_LETTERS = 0.6
MOST_CHANGES = 3
WORST_CHANGE = -14.0
ALTERNATIVES = 7
BEAM = 60
CANDIDATES = 60
KEPT_PER_WORD = 5
SHORTEST_WORD = 5
SHORTEST_FORM = 4


def pronunciations(packages: Path) -> dict[str, Phones]:
    """The first pronunciation of every word of the pronouncing dictionary."""
    found: dict[str, Phones] = {}
    for path in package_files(packages, "festlex-cmu", "usr/share/festival/dicts/cmu/cmudict-*.out"):
        for line in path.read_text(encoding="latin-1").splitlines():
            if entry := ENTRY.match(line):
                phones = tuple(phone for syllable in SYLLABLE.findall(entry[2]) for phone in syllable.split())
                found.setdefault(entry[1], phones)
    return found


def read_spellings(path: Path) -> dict[Phones, dict[str, float]]:
    """The table's spellings of each row of phones, with the logarithms of their shares."""
    table: dict[Phones, dict[str, float]] = {}
    for line in path.read_text(encoding="utf-8").splitlines():
        if not line or line.startswith("#"):
            continue
        phones, *spellings = line.split("\t")
        weights = {letters: float(weight) for letters, weight in (item.split() for item in spellings)}
        total = sum(weights.values())
        table[tuple(phones.split())] = {letters: math.log(w / total) for letters, w in weights.items()}
    return table


def align(word: str, phones: Phones, table: Mapping[Phones, Mapping[str, float]]) -> list[Unit] | None:
    """The likeliest way in which the letters stand for the phones; None where there is none."""
    best: dict[tuple[int, int], tuple[float, tuple[int, int] | None, Unit]] = {(0, 0): (0.0, None, ((), ""))}

    def reach(place: tuple[int, int], weight: float, before: tuple[int, int], unit: Unit) -> None:
        if place not in best or best[place][0] < weight:
            best[place] = (weight, before, unit)

    for i in range(len(phones) + 1):
        for j in range(len(word) + 1):
            if (i, j) not in best:
                continue
            weight = best[i, j][0]
            if j < len(word):
                reach((i, j + 1), weight + SILENT_LETTER, (i, j), ((), word[j]))
            for count in range(1, min(LONGEST_UNIT, len(phones) - i) + 1):
                sounds = phones[i:i + count]
                for letters, share in table.get(sounds, {}).items():
                    if word.startswith(letters, j):
                        reach((i + count, j + len(letters)), weight + share, (i, j), (sounds, letters))
            if i < len(phones) and phones[i] in PHONES_THAT_MAY_BE_SILENT:
                reach((i + 1, j), weight + SILENT_PHONE, (i, j), ((phones[i],), ""))
    end = (len(phones), len(word))
    if end not in best or best[end][0] < WORST_ALIGNMENT:
        return None
    units: list[Unit] = []
    place: tuple[int, int] = end
    while (before := best[place][1]) is not None:
        units.append(best[place][2])
        place = before
    return units[::-1]


def is_far(one: str, other: str) -> bool:
    """Whether more than one slip (a letter more, less or other, or two changed over) lies between them."""
    while one and other and one[0] == other[0]:
        one, other = one[1:], other[1:]
    while one and other and one[-1] == other[-1]:
        one, other = one[:-1], other[:-1]
    return max(len(one), len(other)) > 1 and not (len(one) == 2 and one == other[::-1])


class Letters:
    """How much a form looks like English, from which letters follow two others in the words."""

    def __init__(self, words: Iterable[str]) -> None:
        self._three: Counter[str] = Counter()
        self._two: Counter[str] = Counter()
        for word in words:
            text = f"^^{word}$"
            for i in range(2, len(text)):
                self._three[text[i - 2:i + 1]] += 1
                self._two[text[i - 2:i]] += 1

    def weight(self, word: str) -> float:
        text = f"^^{word}$"
        return sum(math.log((self._three[text[i - 2:i + 1]] + 0.05) / (self._two[text[i - 2:i]] + 1.5))
                   for i in range(2, len(text)))


class SpellingByEar:
    def __init__(self, table: Mapping[Phones, Mapping[str, float]], letters: Letters) -> None:
        self._table = table
        self._letters = letters

    def forms(self, word: str, phones: Phones, known: Collection[str]) -> list[tuple[float, str]]:
        """The likeliest forms that are no words, best first, with their weights."""
        units = align(word, phones, self._table)
        if units is None:
            return []
        far = (item for item in sorted(self._exchange(units), reverse=True)
               if item[1] != word and len(item[1]) >= SHORTEST_FORM and is_far(item[1], word))
        base = self._letters.weight(word)
        judged = [(weight + WEIGHT_OF_LETTERS * min(0.0, self._letters.weight(form) - base), form)
                  for weight, form in (item for item, _ in zip(far, range(CANDIDATES))) if form not in known]
        return sorted(judged, reverse=True)[:KEPT_PER_WORD]

    def _exchange(self, units: list[Unit]) -> list[tuple[float, str]]:
        """The word with some of its spellings exchanged, by a search of limited breadth."""
        beam: list[tuple[float, str, int]] = [(0.0, "", 0)]
        for unit in units:
            choices = self._choices(unit)
            longer: dict[str, tuple[float, str, int]] = {}
            for weight, form, changes in beam:
                for change, letters, counted in choices:
                    item = (weight + change, form + letters, changes + counted)
                    if item[2] > MOST_CHANGES or item[0] < WORST_CHANGE:
                        continue
                    if item[1] not in longer or longer[item[1]][0] < item[0]:
                        longer[item[1]] = item
            beam = heapq.nlargest(BEAM, longer.values())
        return [(weight, form) for weight, form, _ in beam]

    def _choices(self, unit: Unit) -> list[tuple[float, str, int]]:
        """The unit as it stands, and its other spellings with their weights."""
        phones, letters = unit
        as_is = [(0.0, letters, 0)]
        if not phones:
            return [*as_is, (DROP_SILENT, "", 1)]
        shares = self._table.get(phones, {})
        if letters not in shares:
            return as_is
        # An unusual spelling for a usual one is rare, and so is an unusual spelling of anything.
        others = [(CHANGE + 0.5 * min(0.0, share - shares[letters]) + 0.5 * share, other, 1)
                  for other, share in shares.items() if other != letters]
        return as_is + heapq.nlargest(ALTERNATIVES - 1, others)


def spelled_by_ear(words: Mapping[str, float], spoken: Mapping[str, Phones], table_path: Path,
                   known: Collection[str]) -> dict[str, str]:
    """Forms that are no words, each with the word that it most probably stands for. `words` have their weights."""
    model = SpellingByEar(read_spellings(table_path), Letters(word for word in known if word.isalpha()))
    best: dict[str, tuple[float, str]] = {}
    for word, count in sorted(words.items()):
        if len(word) < SHORTEST_WORD or word not in spoken:
            continue
        for weight, form in model.forms(word, spoken[word], known):
            best[form] = max(best.get(form, (-math.inf, "")), (weight + math.log(count), word))
    return {form: word for form, (_, word) in best.items()}
