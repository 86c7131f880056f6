# SPDX-License-Identifier: Apache-2.0
"""Reads the English packages: word lists, counts, and texts as paragraphs without mark-up."""
from __future__ import annotations

import gzip
import html
import re
from collections.abc import Iterator
from pathlib import Path

from common import package_files

# Programmers' talk: these files would make "perl" and "linux" common words.
FORTUNES_TO_SKIP = frozenset("linux linuxcookie perl knghtbrd computers zippy debian ascii-art translate-me".split())
# Their pairs are fine English, but Ambrose Bierce's name ends a third of the records.
SIGNATURE = re.compile(r"^\s*(--|—|―|\[)\s*\S")
REFERENCE = re.compile(r"\b(see|in|of|next|last|this) (also|section|chapter|appendix|question)\b|\bsections? [A-Z]\b|"
                       r"\bop\. ?cit|\bibid|\bpp?\. ?\d|https?:|www\.|\.(com|org|edu|net)\b|<", re.IGNORECASE)

SCOWL_FLOORS = {10: 3e-6, 20: 2e-6, 35: 1e-6, 40: 5e-7, 50: 3e-7, 55: 2e-7, 60: 1e-7, 70: 5e-8}
SCOWL_LISTS = ("words", "upper", "proper-names", "contractions", "abbreviations")
NAME_LISTS = ("upper", "proper-names")
# Names are many and seldom meant: at equal level they stand below words, and abbreviations below both.
LIST_FACTORS = {"words": 1.0, "upper": 1.0, "proper-names": 0.5, "contractions": 1.0, "abbreviations": 0.1}
# A slip of the finger soon makes a rare short word ("tha", "ane", "HTE"), which then would not be corrected:
# the shorter a word, the commoner it must be. Length: highest level. Names of five letters are too many to lose.
SHORT_WORD_LEVELS = {1: 10, 2: 35, 3: 40, 4: 50, 5: 60}
SHORT_NAME_LEVELS = {1: 10, 2: 35, 3: 40, 4: 50}
LONGEST_SHORT_NAME = max(SHORT_NAME_LEVELS)
LONGEST_SHORT_WORD = max(SHORT_WORD_LEVELS)
BRITISH_FACTOR = 0.1
BRITISH_LEVELS = range(10, 51)


def scowl_floors(packages: Path) -> dict[str, float]:
    """Probability that a word of each SCOWL level has at least; possessives are left to the texts."""
    floors: dict[str, float] = {}
    for region in ("english", "american", "british"):
        for kind in SCOWL_LISTS:
            for path in package_files(packages, "scowl", f"usr/share/dict/scowl/{region}-{kind}.*"):
                level = int(path.suffix[1:])
                if level not in SCOWL_FLOORS or (region == "british" and level not in BRITISH_LEVELS):
                    continue
                floor = SCOWL_FLOORS[level] * LIST_FACTORS[kind] * (BRITISH_FACTOR if region == "british" else 1.0)
                short_levels = SHORT_NAME_LEVELS if kind in NAME_LISTS else SHORT_WORD_LEVELS
                for word in read_latin(path).split():
                    if level > short_levels.get(len(word), level):
                        continue
                    if kind == "contractions" or not word.endswith("'s"):
                        floors[word] = max(floors.get(word, 0.0), floor)
    return floors


def read_latin(path: Path) -> str:
    """Text in UTF-8 or, in older releases of the lists, Latin-1."""
    data = path.read_bytes()
    try:
        return data.decode("utf-8")
    except UnicodeDecodeError:
        return data.decode("latin-1")


def onboard_counts(packages: Path) -> tuple[dict[str, int], dict[tuple[str, str], int]]:
    """Unigram and bigram counts of the on-screen keyboard's model, without its markers."""
    words: dict[str, int] = {}
    pairs: dict[tuple[str, str], int] = {}
    for path in package_files(packages, "onboard-data", "usr/share/onboard/models/en_US.lm"):
        for line in path.read_text(encoding="utf-8").splitlines():
            fields = line.split()
            if len(fields) < 2 or not fields[0].isdigit() or any(field.startswith("<") for field in fields[1:]):
                continue
            if len(fields) == 2:
                words[fields[1]] = int(fields[0])
            elif len(fields) == 3:
                pairs[fields[1], fields[2]] = int(fields[0])
    return words, pairs


def fortunes(packages: Path) -> Iterator[str]:
    """The records of the fortune files, without signatures and typewriter overstrikes."""
    for package in ("fortunes", "fortunes-min"):
        for path in package_files(packages, package, "usr/share/games/fortunes/*"):
            if path.suffix or path.name in FORTUNES_TO_SKIP or not path.is_file():
                continue
            text = re.sub(r".\x08", "", read_latin(path))
            for record in re.split(r"^%.*$", text, flags=re.MULTILINE):
                yield from _paragraphs(_without_signature(record))


def _without_signature(record: str) -> str:
    """Cut a record at its first signature line: what follows belongs to it."""
    lines = record.splitlines()
    end = next((index for index, line in enumerate(lines) if index and SIGNATURE.match(line)), len(lines))
    return "\n".join(lines[:end])


def _paragraphs(text: str) -> Iterator[str]:
    for paragraph in re.split(r"\n\s*\n", text):
        if paragraph.strip():
            yield " ".join(paragraph.split())


def examples(packages: Path) -> Iterator[str]:
    """The example phrases of the WordNet glosses."""
    for path in package_files(packages, "wordnet-base", "usr/share/wordnet/data.*"):
        for line in path.read_text(encoding="utf-8").splitlines():
            if not line.startswith("  ") and "|" in line:
                yield from re.findall(r'"([^"]+)"', line.split("|", 1)[1])


def anarchism(packages: Path) -> Iterator[str]:
    """The paragraphs of the essays, without tags and lines that refer to other places."""
    for path in package_files(packages, "anarchism", "usr/share/doc/anarchism/html/sec*.html"):
        page = path.read_text(encoding="utf-8", errors="replace")
        for paragraph in re.findall(r"<p[ >](.*?)</p>", page, flags=re.DOTALL):
            yield " ".join(html.unescape(re.sub(r"</?[a-zA-Z][^>]*>", "", paragraph)).split())


def jargon(packages: Path) -> Iterator[str]:
    """The paragraphs of the hackers' dictionary, without the braces of its references."""
    for path in package_files(packages, "jargon-text", "usr/share/doc/jargon-text/jargon.txt.gz"):
        text = gzip.decompress(path.read_bytes()).decode("utf-8")
        for paragraph in _paragraphs(text):
            yield re.sub(r"[{}]", "", paragraph)
