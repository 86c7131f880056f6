# SPDX-License-Identifier: Apache-2.0
"""The lists that the recipe names beside the counts: vocabulary, floors, and corrections of loose spelling."""
from __future__ import annotations

import math
import re
from collections import Counter, defaultdict
from pathlib import Path
from typing import Callable, Iterable, Mapping

import arabic_text
from arabic_spelling import Checker

# Probabilities of words that are known to exist and that no source shows.
_FUNCTION, _NAME, _LISTED, _ENTRY = 2e-7, 2e-8, 5e-9, 1e-9
_VERB_SHARE, _VERB_MOST = .01, 5e-7
_PREFIXES = {"و": .03, "ال": .03, "ب": .02, "ل": .02, "ف": .006, "وال": .01, "بال": .01, "لل": .01, "س": .01}
_PREFIXED_WORDS = 4000
# A bare spelling that is a word itself gives way to one with a hamza that is this much more usual, and not rare:
# about half of the people leave the hamza out, and the frequencies of rare words are little known.
_GIVE_WAY, _NOT_RARE = 4.0, 1e-6
# The key of the alef finds rarer words by itself; a correction of them would rather hit slips in other words.
_WORTH_A_CORRECTION = 1e-5
# Derived verbs and their nouns (استخدم، الاجتماع), which people like to write with a hamza.
_PLAIN_ALEF = re.compile("(?:[وفبل]?ال|[وفبل])?ا(?!ل)(?=...)")


def read_seed(path: Path) -> dict[str, float]:
    """The hand-written words with the probability of their tier, the highest of several."""
    tiers: dict[str, float] = {}
    level = 0.0
    for line in path.read_text(encoding="utf-8").splitlines():
        if line.startswith("[tier "):
            level = float(line[6:].rstrip("] "))
        elif not line.startswith("#"):
            for word in line.split():
                tiers[word] = max(level, tiers.get(word, 0.0))
    return tiers


def estimate(counts: Mapping[str, Mapping[str, float]], seed: Mapping[str, float],
             floors: Mapping[str, float]) -> dict[str, float]:
    """About what the recipe will make of the sources: their mean, tamed, pulled to the seed, not below the floors."""
    mean: Counter[str] = Counter()
    for words in counts.values():
        total = sum(words.values()) or 1
        for word, number in words.items():
            mean[word] += number / total / len(counts)
    result = {word: min(p, 1e-4 * (p / 1e-4) ** .3) if p > 1e-4 else p for word, p in mean.items()}
    for word, floor in floors.items():
        result[word] = max(floor, result.get(word, 0.0))
    for word, tier in seed.items():
        pulled = math.exp((2 * math.log(tier) + math.log(mean.get(word, 0.0) + tier / 20)) / 3)
        result[word] = max(pulled, floors.get(word, 0.0))
    return result


def fill(entries: Mapping[str, list[tuple[str, str]]], listed: Iterable[str], seen: Mapping[str, float],
         seed: Mapping[str, float]) -> dict[str, float]:
    """Low floors for words that no source shows. A verb's forms go by how often the others of the verb were seen."""
    floors = {word: _LISTED for word in listed}
    lemma_sum: Counter[str] = Counter()
    for word, lemma in entries.get("verb", ()):
        if len(word) >= 4 and word not in seed:
            lemma_sum[lemma] += seen.get(word, 0.0)
    for kind, level in (("other", _ENTRY), ("name", _NAME), ("function", _FUNCTION), ("verb", _ENTRY)):
        for word, lemma in entries.get(kind, ()):
            known = min(_VERB_SHARE * lemma_sum[lemma], _VERB_MOST) if kind == "verb" else 0.0
            floors[word] = max(floors.get(word, 0.0), level, known)
    return floors


def prefixed(probabilities: Mapping[str, float], seed: Mapping[str, float], valid: Checker) -> dict[str, float]:
    """Floors of the commonest words with a particle written onto them, as far as the spelling checker knows them."""
    common = sorted((word for word in probabilities if len(word) > 2),
                    key=lambda word: (-probabilities[word], word))[:_PREFIXED_WORDS]
    candidates: dict[str, float] = {}
    for word in common:
        for prefix, share in _PREFIXES.items():
            if "ال" in prefix + "ل" and word.startswith("ال") and prefix not in ("و", "ب", "ف"):
                continue
            form = "لل" + word[1:] if prefix == "لل" and word.startswith("ل") else prefix + word
            candidates[form] = max(candidates.get(form, 0.0), min(share * probabilities[word], 3e-6))
    kept = valid(candidates)
    return {word: p for word, p in candidates.items() if word in kept and arabic_text.is_word(word)}


def most_probable(probabilities: Mapping[str, float], seed: Mapping[str, float], most: int) -> dict[str, float]:
    """The words that come into the dictionary: those written by hand, and the most probable others."""
    order = sorted(probabilities, key=lambda word: (word not in seed, -probabilities[word], word))
    return {word: probabilities[word] for word in order[:most]}


class LooseSpelling:
    """Corrections of words typed without the hamza of an alef, and of other spellings that people mix up.

    `by_hand` are the corrections that people have settled already, `rejected` what the spelling checker refuses.
    `dropped` are spellings that leave the vocabulary for another, `alefs` the corrections of bare alefs, `exact` those of
    other spellings.
    """

    def __init__(self, probabilities: Mapping[str, float], protected: Iterable[str], rejected: set[str],
                 by_hand: Mapping[str, str]) -> None:
        self._p = probabilities
        self._protected = set(protected)
        self._rejected = rejected
        self._by_hand = by_hand
        self.dropped = {typed for typed in by_hand if typed in probabilities}
        self.alefs: dict[str, str] = {}
        self.exact: dict[str, str] = {}
        self._typed: set[str] = set()

    def _gives_way(self, typed: str, best: str) -> bool:
        if typed not in self._p:
            return True
        if typed in self._protected:
            return False
        usual = self._p[best] >= max(_NOT_RARE, _GIVE_WAY * self._p[typed])
        return typed in self._rejected or usual

    def add_alefs(self) -> None:
        """Every word with أ, إ or آ under its bare spelling, whatever the seat of other hamzas."""
        forms: dict[str, list[str]] = defaultdict(list)
        for word in self._p:
            typed = arabic_text.bare_alef(word)
            if typed != word and word not in self._by_hand:
                forms[typed].append(word)
        for typed, words in sorted(forms.items()):
            words.sort(key=lambda word: (word != self._by_hand.get(typed), -self._p[word], word))
            if typed in self._by_hand and words[0] != self._by_hand[typed]:
                continue
            if typed in self._by_hand or self._gives_way(typed, words[0]):
                self._correct(typed, words[0], self.alefs if self._p[words[0]] >= _WORTH_A_CORRECTION else None)

    def add_endings(self, most: int) -> None:
        """The commonest words in ة or ي typed with ه or ى."""
        for word in self._commonest(most, lambda word: word[-1] in "ةي"):
            loose = word[:-1] + ("ه" if word[-1] == "ة" else "ى")
            for typed in (loose, arabic_text.bare_alef(loose)):
                self._correct_exactly(typed, word)

    def add_needless_hamzas(self, most: int) -> None:
        """The commonest words that begin with a plain alef, behind the article too, typed with a hamza on it."""
        for word in self._commonest(most, lambda word: _PLAIN_ALEF.match(word) is not None):
            at = _PLAIN_ALEF.match(word).end() - 1
            for alef in "إأ":
                self._correct_exactly(word[:at] + alef + word[at + 1:], word)

    def _commonest(self, most: int, wanted: Callable[[str], bool]) -> list[str]:
        words = (word for word in self._p if word not in self.dropped and wanted(word))
        return sorted(words, key=lambda word: (-self._p[word], word))[:most]

    def _correct_exactly(self, typed: str, intended: str) -> None:
        if not any(typed in known for known in (self._p, self._typed, self._by_hand)):
            self._correct(typed, intended, self.exact)

    def _correct(self, typed: str, intended: str, corrections: dict[str, str] | None) -> None:
        if typed in self._p:
            self.dropped.add(typed)
        self._typed.add(typed)
        if corrections is not None:
            corrections[typed] = intended
