# SPDX-License-Identifier: Apache-2.0
"""What the extractors of all languages share: counting, lists on disk, the sentences to keep out.

A *run* is a list of words between which no punctuation stands, so that a pair never crosses a comma.
"""
from __future__ import annotations

import hashlib
import re
from collections import Counter
from collections.abc import Iterable, Mapping
from pathlib import Path

Run = list[str]
Pair = tuple[str, str]


def sentence_hash(sentence: str) -> str:
    """The 16 hex digits by which an evaluation sentence is listed: letter case and punctuation do not count."""
    plain = re.sub(r"[^\w']+", " ", sentence.lower()).strip()
    return hashlib.sha1(plain.encode("utf-8")).hexdigest()[:16]


class Exclusion:
    """Sentences that must not be learned from, known by their hashes. Without a list nothing is excluded."""

    def __init__(self, path: Path | None = None) -> None:
        self.hits = 0
        self._hashes: frozenset[str] = frozenset()
        if path is not None:
            lines = path.read_text(encoding="utf-8").splitlines()
            self._hashes = frozenset(line.strip() for line in lines if line.strip() and not line.startswith("#"))

    def __len__(self) -> int:
        return len(self._hashes)

    def drops(self, sentence: str) -> bool:
        """True for a listed sentence, which is counted in `hits`."""
        if not self._hashes or sentence_hash(sentence) not in self._hashes:
            return False
        self.hits += 1
        return True


class Counts:
    """Words and neighbouring pairs of one source, in whatever spelling the caller settled on."""

    def __init__(self) -> None:
        self.words: Counter[str] = Counter()
        self.pairs: Counter[Pair] = Counter()

    def add(self, run: Run) -> None:
        self.words.update(run)
        self.pairs.update(zip(run, run[1:]))

    def write(self, folder: Path, name: str) -> None:
        """Write NAME.words.tsv and NAME.pairs.tsv."""
        write_table(folder / f"{name}.words.tsv", ((word, str(count)) for word, count in self.words.items()))
        write_table(folder / f"{name}.pairs.tsv",
                    ((first, second, str(count)) for (first, second), count in self.pairs.items()))


def write_table(path: Path, rows: Iterable[tuple[str, ...]]) -> None:
    """Write rows tab-separated in code point order, under a temporary name until they are whole."""
    scratch = path.with_name(path.name + ".part")
    with scratch.open("w", encoding="utf-8", newline="\n") as out:
        out.writelines("\t".join(row) + "\n" for row in sorted(rows))
    scratch.replace(path)


def write_probabilities(path: Path, floors: Mapping[str, float]) -> None:
    """Write a word<TAB>probability table."""
    write_table(path, ((word, f"{floor:.3g}") for word, floor in floors.items()))


def package_files(packages: Path, package: str, pattern: str) -> list[Path]:
    """The files of an unpacked package that match a glob, sorted; none when the package could not be had."""
    return sorted((packages / package).glob(pattern))
