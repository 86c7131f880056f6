# SPDX-License-Identifier: Apache-2.0
"""What follows an Arabic word that was seen too seldom: the function words that follow its kind of word.

There is no text of daily Arabic to count in. But "a word with the article, then في" can be counted over all such
words, and a word gets its kind's share as if it had been seen more often.
"""
from __future__ import annotations

import re
from collections import Counter, defaultdict
from collections.abc import Collection, Mapping
from pathlib import Path

import arabic_forms
from common import Pair

FUNCTION_WORD = 2e-3  # seed words from this tier on
FREQUENT = 7e-6  # rarer words are not worth the room
SEEN_ENOUGH = 10
WEIGHT = 100.0  # as if the word had been seen so many times more
LEAST_SHARE = 0.02
HAND_WEIGHT = 24.0  # of the first follower that people wrote, the others less
REST = "<rest>"  # all other followers together; no word of the dictionary
ARTICLE = re.compile("[وف]?(?:ال|بال|لل|كال)")
OWNERS = ("ه", "ها", "هم", "نا", "ك", "كم", "ي")


class Kinds:
    """Sorts words by their form, as far as it tells what may follow."""

    def __init__(self, data: Path, function_words: Collection[str]) -> None:
        self._function_words = function_words
        self._verbs = arabic_forms.forms_of(data / "verbs.txt")
        self._names = arabic_forms.forms_of(data / "names.txt")

    def of(self, word: str) -> str | None:
        if word in self._function_words:
            return None
        if word in self._names:
            return "name"
        if word in self._verbs:
            return "present" if word[0] in "أتينسا" else "past"
        if ARTICLE.match(word):
            return "definite"
        if len(word) > 3 and word.endswith(OWNERS):
            return "owned"
        if word.endswith("ة"):
            return "feminine"
        return "accusative" if len(word) > 3 and word.endswith("ا") else "bare"


def written_by_hand(path: Path) -> Counter[Pair]:
    """The pairs of a list, with counts that fall with their place."""
    counts: Counter[Pair] = Counter()
    for line in path.read_text(encoding="utf-8").splitlines():
        if line and not line.startswith("#"):
            first, *followers = line.split()
            for place, word in enumerate(followers):
                counts[first, word] += HAND_WEIGHT / (place + 2)
    return counts


def followers_of_kinds(pairs: Mapping[Pair, float], kinds: Kinds,
                       function_words: Collection[str]) -> dict[str, dict[str, float]]:
    """For each kind the shares of the function words among all that follows its words."""
    total: Counter[str] = Counter()
    counts: dict[str, Counter[str]] = defaultdict(Counter)
    for (first, second), count in sorted(pairs.items()):
        if (kind := kinds.of(first)) is None:
            continue
        total[kind] += count
        if second in function_words:
            counts[kind][second] += count
    return {kind: {word: count / total[kind] for word, count in followers.items() if count >= LEAST_SHARE * total[kind]}
            for kind, followers in counts.items()}


def shared(data: Path, counted: Mapping[Pair, float], seed: Mapping[str, float], words: Mapping[str, float],
           without: Collection[str]) -> dict[Pair, float]:
    """Counts to add for the frequent ones of `words` that have hardly any followers of their own."""
    function_words = {word for word, tier in seed.items() if tier >= FUNCTION_WORD}
    kinds = Kinds(data, function_words)
    pairs = Counter(counted)
    pairs.update(written_by_hand(data / "pairs.txt"))
    seen: Counter[str] = Counter()
    for (first, _), count in pairs.items():
        seen[first] += count
    followers = followers_of_kinds(pairs, kinds, function_words)
    found: dict[Pair, float] = {}
    for word, probability in words.items():
        shares = followers.get(kinds.of(word) or "", {})
        if probability < FREQUENT or seen[word] >= SEEN_ENOUGH or word in without or not shares:
            continue
        found.update({(word, second): WEIGHT * share for second, share in shares.items()})
        found[word, REST] = WEIGHT * (1.0 - sum(shares.values()))
    return found
