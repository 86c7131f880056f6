#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Count the Arabic of unpacked Debian packages, for the recipe data/ar/ar_SA.recipe.

    tools/corpus/arabic.py --packages build/packages --out build/sources/ar [--exclude HASHES]

Writes NAME.words.tsv for each source, pairs.tsv of them all, and the lists vocabulary.tsv, floor.tsv, forms.tsv,
dropped.txt, alef.tsv, exact.tsv and shared.pairs.tsv. The same packages give the same bytes. A package that is not there is left out.
"""
from __future__ import annotations

import argparse
import sys
from collections import Counter
from collections.abc import Callable, Iterable, Iterator, Mapping
from pathlib import Path

import arabic_forms
import arabic_followers
import arabic_lists
import arabic_sources
import arabic_spelling
import arabic_text
import common

DATA = Path(__file__).resolve().parent.parent.parent / "data" / "ar"

READERS: dict[str, tuple[str, Callable[[Path], Iterator[str]]]] = {
    "libreoffice": ("libreoffice-l10n-ar", arabic_sources.catalogues),
    "firefox": ("firefox-esr-l10n-ar", arabic_sources.language_pack),
    "wordpress": ("wordpress-l10n", arabic_sources.catalogues),
    "vlc": ("vlc-l10n", arabic_sources.catalogues),
    "handbook": ("debian-handbook", arabic_sources.handbook),
}
# The share of all text that the hand-written paradigms cover; their sections are written as if it were everything.
FORMS_SHARE = .4
LOOSE_ENDINGS, NEEDLESS_HAMZAS = 4000, 2000
WORDS = 220000
OFFENSIVE = 1e-5


def write(path: Path, lines: Iterable[str]) -> None:
    common.write_table(path, ((line,) for line in lines))


def write_numbers(path: Path, numbers: Mapping[str, float]) -> None:
    write(path, (f"{word}\t{number:.4g}" for word, number in numbers.items()))


def general_pairs(sources: Iterable[Mapping[tuple[str, str], int]]) -> Counter[tuple[str, str]]:
    """The pairs of all sources. One that a single source repeats is a phrase of that program, and counts once."""
    total: Counter[tuple[str, str]] = Counter()
    spread: Counter[tuple[str, str]] = Counter()
    for pairs in sources:
        total.update(pairs)
        spread.update(pairs.keys())
    return Counter({pair: number if spread[pair] > 1 else 1 for pair, number in total.items()})


def read_sources(packages: Path, exclusion: common.Exclusion,
                 out: Path) -> tuple[dict[str, Mapping[str, float]], Counter[tuple[str, str]]]:
    """Count every source, write its counts, and return the words of those that are there, and the pairs of all."""
    counts: dict[str, Mapping[str, float]] = {}
    source_pairs: list[Counter[tuple[str, str]]] = []
    for name, (package, reader) in READERS.items():
        words, pairs = arabic_text.count(reader(packages / package), exclusion)
        if not words:
            print(f"arabic: nothing in {package}", file=sys.stderr)
            continue
        counts[name] = words
        write(out / f"{name}.words.tsv", (f"{word}\t{number}" for word, number in words.items()))
        source_pairs.append(pairs)
    pairs = general_pairs(source_pairs)
    write(out / "pairs.tsv", (f"{first}\t{second}\t{n}" for (first, second), n in pairs.items()))
    moved = arabic_sources.transfer(packages / "dict-freedict-eng-ara", arabic_sources.english_counts(packages))
    if moved:
        counts["transfer"] = moved
        write_numbers(out / "transfer.words.tsv", moved)
    else:
        print("arabic: no English frequencies to transfer", file=sys.stderr)
    return counts, pairs


def hand_written() -> dict[str, float]:
    """The forms of the verbs and nouns in data/ar, and its names, with their probabilities."""
    forms: Counter[str] = Counter()
    for name in ("verbs.txt", "nouns.txt", "names.txt"):
        for form, probability in arabic_forms.forms_of(DATA / name).items():
            forms[form] += FORMS_SHARE * probability
    # Words all the same: what is never offered must not be corrected away either.
    for line in (DATA / "offensive.txt").read_text(encoding="utf-8").splitlines():
        if line and not line.startswith("#"):
            forms[line] += OFFENSIVE
    return {form: p for form, p in forms.items() if arabic_text.is_word(form)}


def write_corrections(out: Path, loose: arabic_lists.LooseSpelling) -> None:
    for name, lines in (("alef.tsv", loose.alefs), ("exact.tsv", loose.exact)):
        write(out / name, (f"{typed}	{intended}" for typed, intended in lines.items()))
    write(out / "dropped.txt", loose.dropped)


def hand_corrected() -> dict[str, str]:
    """What data/ar/corrections.tsv settles: people's work comes before the rules'."""
    lines = (DATA / "corrections.tsv").read_text(encoding="utf-8").splitlines()
    fields = (line.split("\t") for line in lines if line and not line.startswith("#"))
    return {typed: intended for typed, intended, *_ in fields}


def make(packages: Path, out: Path, exclusion: common.Exclusion) -> None:
    out.mkdir(parents=True, exist_ok=True)
    seed = arabic_lists.read_seed(DATA / "seed.txt")
    forms = hand_written()
    counts, pairs = read_sources(packages, exclusion, out)
    valid = arabic_spelling.checker(packages)
    if valid is None:
        print("arabic: no hunspell; words of the sources are kept by how often they occur", file=sys.stderr)
    seen = {word for words in counts.values() for word in words}
    accepted = valid(seen) if valid else set()
    kept = accepted | arabic_spelling.attested(counts)

    # Bare spellings that interface translators slip into are common, so being seen does not make them words.
    hamza = {arabic_text.bare_alef(word) for word in kept | set(forms) | set(seed) if arabic_text.bare_alef(word) != word}
    kept -= {word for word in hamza if word not in accepted and word not in seed and word not in forms}

    known = {name: {word: n for word, n in words.items() if word in kept} for name, words in counts.items()}
    probabilities = arabic_lists.estimate(known, seed, forms)
    floors = arabic_lists.fill(arabic_sources.spelling_entries(packages / "hunspell-ar"),
                               arabic_sources.packed_word_list(packages / "aspell-ar"), probabilities, seed)
    if valid:
        for word, floor in arabic_lists.prefixed(probabilities, seed, valid).items():
            floors[word] = max(floor, floors.get(word, 0.0))
    for word, floor in floors.items():
        probabilities[word] = max(floor, probabilities.get(word, 0.0))

    rejected = set(probabilities) - (valid(probabilities) if valid else set(probabilities))
    for word in sorted(rejected):
        bare = arabic_text.bare_alef(word)
        # A hamza too many, as in "الإستخدام".
        if bare != word and bare in probabilities and bare not in rejected and word not in seed and word not in forms:
            del probabilities[word]
    probabilities = arabic_lists.most_probable(probabilities, seed, WORDS)

    loose = arabic_lists.LooseSpelling(probabilities, seed, rejected, hand_corrected())
    loose.add_alefs()
    loose.add_endings(LOOSE_ENDINGS)
    loose.add_needless_hamzas(NEEDLESS_HAMZAS)
    write_corrections(out, loose)
    shared = arabic_followers.shared(DATA, pairs, seed, probabilities, loose.dropped)
    common.write_table(out / "shared.pairs.tsv", ((*pair, f"{n:.3f}") for pair, n in shared.items()))
    write(out / "vocabulary.tsv", kept & set(probabilities))
    write_numbers(out / "forms.tsv", {word: p for word, p in forms.items() if word in probabilities})
    write_numbers(out / "floor.tsv", {word: p for word, p in floors.items() if word in probabilities})


def main() -> int:
    parser = argparse.ArgumentParser(description="Count the Arabic words and pairs of unpacked Debian packages.")
    parser.add_argument("--packages", type=Path, required=True, help="folder of unpacked packages, PACKAGE/usr/...")
    parser.add_argument("--out", type=Path, required=True, help="folder of the lists; made when missing")
    parser.add_argument("--exclude", type=Path, help="hashes of sentences to leave out, one a line")
    arguments = parser.parse_args()
    try:
        exclusion = common.Exclusion(arguments.exclude)
        make(arguments.packages, arguments.out, exclusion)
    except (OSError, ValueError, RuntimeError) as error:
        print(f"arabic: {error}", file=sys.stderr)
        return 1
    if arguments.exclude:
        print(f"arabic: {exclusion.hits} listed sentences left out")
    return 0


if __name__ == "__main__":
    sys.exit(main())
