# SPDX-License-Identifier: Apache-2.0
"""Which spelling of an English word a token stands for: a capital at a sentence's start says nothing."""
from __future__ import annotations

import re
from collections import Counter
from collections.abc import Collection, Iterable
from dataclasses import dataclass

SHORTEST_TITLE = 3
SHARE_OF_CAPITALS_IN_TITLE = 0.6


@dataclass(frozen=True)
class Token:
    """One word as written. `free` means that its capitals come from its place (sentence start, title, shouting)."""

    text: str
    free: bool


def mark_run(words: list[str], starts_sentence: bool, known: Collection[str]) -> list[Token]:
    """Tell the words whose capitals mean something from those where they come from the place."""
    shouted = len(words) > 1 and not any(any(c.islower() for c in word) for word in words)
    if shouted or _is_title(words):
        return [Token(word, True) for word in words]
    return [Token(word, (index == 0 and starts_sentence) or (len(word) > 1 and word.isupper() and word not in known))
            for index, word in enumerate(words)]


def _is_title(words: list[str]) -> bool:
    """A heading: most of its longer words have a capital ("Falling in Love With Someone")."""
    longer = [word for word in words[1:] if len(word) > SHORTEST_TITLE]
    if len(words) < SHORTEST_TITLE or len(longer) < 2:
        return False
    return sum(word[0].isupper() for word in longer) > SHARE_OF_CAPITALS_IN_TITLE * len(longer)


class CaseModel:
    """Learns from the tokens that are not free how a word is written, and settles the free ones."""

    def __init__(self, known: Collection[str]) -> None:
        self._known = known
        self._forms: dict[str, Counter[str]] = {}
        self._settled: dict[str, str] = {}

    def learn(self, runs: Iterable[list[Token]]) -> None:
        for run in runs:
            for token in run:
                if not token.free:
                    self._forms.setdefault(token.text.lower(), Counter())[token.text] += 1
        self._settled.clear()

    def settle(self, token: Token) -> str:
        """The spelling to count a token under."""
        if not token.free:
            return token.text
        if token.text not in self._settled:
            self._settled[token.text] = self._best_form(token.text)
        return self._settled[token.text]

    def _best_form(self, text: str) -> str:
        lower = text.lower()
        seen = self._forms.get(lower)
        if seen:
            return min(seen.items(), key=lambda item: (-item[1], item[0]))[0]
        candidates = (lower, capitalised(lower), text)
        return next((form for form in candidates if form in self._known), lower)


def capitalised(word: str) -> str:
    """The word with a capital first letter, the rest as it stands."""
    return re.sub(r"[^\W\d_]", lambda match: match.group().upper(), word, count=1)
