# SPDX-License-Identifier: Apache-2.0
"""Arabic text as the dictionary sees it: plain spelling, segments of words."""
from __future__ import annotations

import re
from collections import Counter
from typing import Iterable, Iterator

from common import Exclusion

_MARKS = re.compile("[\u0610-\u061a\u0640\u064b-\u0655\u0670\u06d6-\u06ed\u200b-\u200f\u202a-\u202e\u2066-\u2069\ufeff]")
_LIGATURES = {
    "\ufef5": "لآ", "\ufef6": "لآ", "\ufef7": "لأ", "\ufef8": "لأ",
    "\ufef9": "لإ", "\ufefa": "لإ", "\ufefb": "لا", "\ufefc": "لا",
    "\u0671": "ا", "\u06cc": "ي", "\u06a9": "ك",
}
_SPELLING = str.maketrans(_LIGATURES)
_LETTERS = "\u0621-\u063a\u0641-\u064a"
WORD = re.compile(f"[{_LETTERS}]+")
# A run of words with nothing but spaces between them; a digit, a Latin word or a sign ends it.
_SEGMENT = re.compile(rf"(?<![\w'’])[{_LETTERS}]+(?:[ \t\n\u00a0]+[{_LETTERS}]+)*(?![\w'’])")
_SENTENCE_END = re.compile(r"(?<=[.!?؟…])\s+|\n+")
_ALEFS = str.maketrans("أإآ", "ااا")
_SHORTEST, _LONGEST = 2, 24


def plain(text: str) -> str:
    """Without vowel marks and stretching, ligatures taken apart."""
    return _MARKS.sub("", text).translate(_SPELLING)


def bare_alef(word: str) -> str:
    """As somebody types it who does not hold the alef key: every hamza alef is a plain one."""
    return word.translate(_ALEFS)


def is_word(word: str) -> bool:
    return _SHORTEST <= len(word) <= _LONGEST and WORD.fullmatch(word) is not None and not _is_stretched(word)


def _is_stretched(word: str) -> bool:
    """Words like "لاااا", which no list should offer."""
    return any(word[i] == word[i + 1] == word[i + 2] for i in range(len(word) - 2))


def segments(text: str) -> Iterator[list[str]]:
    """The runs of neighbouring Arabic words; no pair may be read across the end of one."""
    for match in _SEGMENT.finditer(plain(text)):
        yield match.group().split()


def kept(text: str, exclusion: Exclusion) -> Iterator[str]:
    """The text whole when there is no list to keep out, else its sentences that are not listed, vowelled or plain."""
    if not exclusion:
        yield text
        return
    for sentence in _SENTENCE_END.split(text):
        if not exclusion.drops(sentence) and not exclusion.drops(plain(sentence)):
            yield sentence


def count(texts: Iterable[str], exclusion: Exclusion) -> tuple[Counter[str], Counter[tuple[str, str]]]:
    """Words and neighbouring pairs; a text that occurs many times counts once."""
    words: Counter[str] = Counter()
    pairs: Counter[tuple[str, str]] = Counter()
    for text in sorted(set(texts)):
        for sentence in kept(text, exclusion):
            for segment in segments(sentence):
                words.update(word for word in segment if is_word(word))
                pairs.update(pair for pair in zip(segment, segment[1:]) if is_word(pair[0]) and is_word(pair[1]))
    return words, pairs
