# SPDX-License-Identifier: Apache-2.0
"""What is a word: the spelling checker where it is installed, a rule of thumb elsewhere."""
from __future__ import annotations

import shutil
import subprocess
from pathlib import Path
from typing import Callable, Iterable, Mapping

Checker = Callable[[Iterable[str]], set[str]]


def checker(packages: Path) -> Checker | None:
    """A function that gives the valid ones of some words, or None without the program or its dictionary."""
    program = shutil.which("hunspell")
    dictionary = packages / "hunspell-ar" / "usr/share/hunspell/ar"
    if program is None or not dictionary.with_suffix(".dic").is_file():
        return None

    def valid(words: Iterable[str]) -> set[str]:
        lines = "\n".join(sorted(set(words))) + "\n"
        done = subprocess.run([program, "-G", "-i", "utf-8", "-d", str(dictionary)], input=lines,
                              capture_output=True, encoding="utf-8", check=False)
        if done.returncode != 0:
            raise RuntimeError(f"hunspell: {done.stderr.strip() or done.returncode}")
        return set(done.stdout.split())

    return valid


def attested(counts: Mapping[str, Mapping[str, float]]) -> set[str]:
    """Words seen three times or more, in two sources or more: no slip of one translator."""
    total: dict[str, float] = {}
    sources: dict[str, int] = {}
    for words in counts.values():
        for word, number in words.items():
            total[word] = total.get(word, 0) + number
            sources[word] = sources.get(word, 0) + 1
    return {word for word, number in total.items() if number >= 3 and sources[word] >= 2}
