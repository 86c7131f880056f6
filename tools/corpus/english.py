#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Turn the unpacked English packages into the counts that the dictionary recipe names.

    tools/corpus/english.py --packages build/corpus/packages --out build/corpus/en [--exclude HASHES]

Writes, per source, SOURCE.words.tsv (word<TAB>count) and SOURCE.pairs.tsv (first<TAB>second<TAB>count),
vocabulary.tsv (word<TAB>smallest probability) and by_ear.tsv (form<TAB>word that sounds like it). Output is sorted: the same packages give the same bytes.
"""
from __future__ import annotations

import argparse
import re
import sys
from collections import Counter
from collections.abc import Callable, Iterable, Iterator
from pathlib import Path

import english_sounds
import english_sources as sources
from common import Counts, Exclusion, Pair, write_probabilities, write_table
from english_case import CaseModel, Token, mark_run

WORD = r"(?<!\w)'(?:em|cause|til|tis|twas|bout)(?!\w)|[^\W\d_]+(?:['’][^\W\d_]+)*"
SENTENCE_END = re.compile(r"(?<=[.!?])[\"'”’)\]]*\s+")
# A run also ends where a digit, a dash or a hyphen stands: "the 3 of us" holds no pair "the of".
TOKENS = re.compile(rf"({WORD})|(\s+|(?<=\w)['’](?=\s))|(.)")
SINGLE_LETTERS = frozenset(("a", "I", "o"))
# "X's" that stands for "X is", "X has" or "us" is a word of its own; others are possessives.
CONTRACTED = frozenset("it's he's she's that's what's who's where's how's there's here's let's when's why's".split())
SMALLEST_POSSESSIVE_COUNT = 3
ONBOARD_FLOOR = 1e-8
# Names that only the pronouncing dictionary has are left alone when typed, and never thrust upon anybody.
SPOKEN_NAME_FLOOR = 1e-9
SHORTEST_SPOKEN_NAME = 5
SMALLEST_COUNT_BY_EAR = 3
SOUNDS = Path(__file__).resolve().parents[2] / "data" / "en" / "sounds.tsv"
LETTER_FLOOR = 1e-8
LONGEST_WORD = 48  # the dictionary format has no room for more
ONBOARD_PAIR_UNIT = 500  # the model lists no pair seen less often
CLAUSE = re.compile(r"[.!?;:]")

Tokenized = list[list[Token]]


def sentences(paragraphs: Iterable[str], exclusion: Exclusion) -> Iterator[str]:
    """The sentences to learn from; a paragraph that is excluded as a whole goes as a whole."""
    for paragraph in paragraphs:
        if exclusion.drops(paragraph):
            continue
        for sentence in SENTENCE_END.split(paragraph):
            if not sources.REFERENCE.search(sentence) and not exclusion.drops(sentence):
                yield sentence


def split_runs(sentence: str) -> Iterator[tuple[list[str], bool]]:
    """The sentence's runs of words, each with whether a sentence or clause starts with it."""
    run: list[str] = []
    starts = True
    for match in TOKENS.finditer(sentence):
        word, space, other = match.groups()
        if word:
            run.append(word.replace("’", "'"))
        elif other and not space:
            if run:
                yield run, starts
                run, starts = [], False
            starts = starts or bool(CLAUSE.match(other)) or other in "\"“("
    if run:
        yield run, starts


def tokenize(texts: Iterable[str], known: set[str]) -> Tokenized:
    return [mark_run(run, starts, known) for sentence in texts for run, starts in split_runs(sentence)]


def settle_word(token: Token, case: CaseModel, possessives: set[str]) -> str:
    """The word to count: case settled, a possessive that is no word of its own cut to its noun."""
    word = case.settle(token)
    if word.endswith("'s") and word.lower() not in CONTRACTED and word not in possessives:
        return case.settle(Token(token.text[:-2], token.free))
    return word


def usable_parts(words: list[str]) -> Iterator[list[str]]:
    """Cut a run at single letters: initials, list marks and variables are no words."""
    part: list[str] = []
    for word in words:
        if len(word) > 1 or word in SINGLE_LETTERS:
            part.append(word)
        elif part:
            yield part
            part = []
    if part:
        yield part


def count_source(runs: Tokenized, case: CaseModel, possessives: set[str]) -> Counts:
    counts = Counts()
    for run in runs:
        for part in usable_parts([settle_word(token, case, possessives) for token in run]):
            counts.add(part)
    return counts


def frequent_possessives(runs: Iterable[list[Token]], case: CaseModel, known: set[str]) -> set[str]:
    """The possessives of known words that the texts really use."""
    seen: dict[str, int] = {}
    for run in runs:
        for token in run:
            if token.text.endswith("'s") and len(token.text) > 3:
                word = case.settle(token)
                if word[:-2] in known:
                    seen[word] = seen.get(word, 0) + 1
    return {word for word, count in seen.items() if count >= SMALLEST_POSSESSIVE_COUNT}


def write_onboard(packages: Path, out: Path, floors: dict[str, float]) -> None:
    """Copy the keyboard model's counts; its frequent words are valid whatever the word lists say."""
    words, pairs = sources.onboard_counts(packages)
    usable = {word: count for word, count in words.items()
              if re.fullmatch(WORD, word) and (len(word) > 1 or word in SINGLE_LETTERS)
              and not word.endswith("'s") and not (word.isupper() and len(word) > 1 and word not in floors)}
    for word in usable:
        if len(word) > (sources.LONGEST_SHORT_NAME if word.istitle() else sources.LONGEST_SHORT_WORD):
            floors.setdefault(word, ONBOARD_FLOOR)
    write_table(out / "onboard.words.tsv", ((word, str(count)) for word, count in usable.items()))
    kept: dict[Pair, int] = {pair: count for pair, count in pairs.items() if pair[0] in usable and pair[1] in usable}
    write_table(out / "onboard.pairs.tsv", ((first, second, f"{count / ONBOARD_PAIR_UNIT:.2f}")
                                            for (first, second), count in kept.items()))


def set_letters(floors: dict[str, float]) -> None:
    """Letters by themselves ("vitamin c", "how r u") are left alone, but too rare to be split off a word."""
    for letter in "abcdefghijklmnopqrstuvwxyz":
        if letter not in SINGLE_LETTERS:
            floors[letter] = LETTER_FLOOR
        if letter.upper() not in SINGLE_LETTERS:
            floors.pop(letter.upper(), None)


def add_spoken_names(spoken: Iterable[str], floors: dict[str, float]) -> None:
    """What the pronouncing dictionary has and the word lists have not is nearly always a name."""
    known = {word.lower() for word in floors}
    for word in spoken:
        if word not in known and len(word) >= SHORTEST_SPOKEN_NAME:
            floors[word.capitalize()] = SPOKEN_NAME_FLOOR


def write_by_ear(out: Path, words: Counter[str], spoken: dict[str, tuple[str, ...]], floors: dict[str, float]) -> None:
    frequent = {word: float(count) for word, count in words.items()
                if count >= SMALLEST_COUNT_BY_EAR and word.islower() and word in floors}
    forms = english_sounds.spelled_by_ear(frequent, spoken, SOUNDS, {word.lower() for word in floors})
    write_table(out / "by_ear.tsv", forms.items())


def extract(packages: Path, out: Path, exclusion: Exclusion) -> list[str]:
    """Write all tables; returns the names of the sources that were empty."""
    floors = sources.scowl_floors(packages)
    known = set(floors)
    readers: dict[str, Callable[[Path], Iterator[str]]] = {
        "fortunes": sources.fortunes, "examples": sources.examples,
        "anarchism": sources.anarchism, "jargon": sources.jargon}
    texts = {name: tokenize(sentences(read(packages), exclusion), known) for name, read in readers.items()}
    case = CaseModel(known)
    for runs in texts.values():
        case.learn(runs)
    everyday = texts["fortunes"] + texts["examples"]
    possessives = frequent_possessives(everyday, case, known)
    everyday_words: Counter[str] = Counter()
    for name, runs in texts.items():
        if runs:
            counts = count_source(runs, case, possessives)
            counts.write(out, name)
            if name in ("fortunes", "examples"):
                everyday_words.update(counts.words)
    for word in possessives:
        floors[word] = ONBOARD_FLOOR
    write_onboard(packages, out, floors)
    set_letters(floors)
    spoken = english_sounds.pronunciations(packages)
    add_spoken_names(spoken, floors)
    write_by_ear(out, everyday_words, spoken, floors)
    write_probabilities(out / "vocabulary.tsv", {word: p for word, p in floors.items() if len(word) <= LONGEST_WORD})
    return [name for name, runs in texts.items() if not runs] + ([] if spoken else ["pronunciations"])


def main() -> int:
    parser = argparse.ArgumentParser(description="Extract English word and pair counts from unpacked packages.")
    parser.add_argument("--packages", type=Path, required=True, help="folder that tools/corpus/fetch filled")
    parser.add_argument("--out", type=Path, required=True, help="folder for the tables; made when missing")
    parser.add_argument("--exclude", type=Path, help="hashes of sentences that must not be learned from")
    arguments = parser.parse_args()
    try:
        exclusion = Exclusion(arguments.exclude)
        arguments.out.mkdir(parents=True, exist_ok=True)
        empty = extract(arguments.packages, arguments.out, exclusion)
    except OSError as error:
        print(f"english: {error.filename}: {error.strerror}", file=sys.stderr)
        return 1
    for name in empty:
        print(f"english: nothing from {name}: is its package there?", file=sys.stderr)
    if len(exclusion):
        print(f"english: {exclusion.hits} sentences left out by {arguments.exclude}", file=sys.stderr)
    return 0


if __name__ == "__main__":
    sys.exit(main())
