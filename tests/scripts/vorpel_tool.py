# SPDX-License-Identifier: Apache-2.0
"""The built program as the script tests call it, and a small language of its own to call it with."""
from __future__ import annotations

import json
import os
import subprocess
from pathlib import Path

TOOL = os.environ["VORPEL"]

RECIPE = """
attribute locale en_US
attribute date 1700000000
words words.tsv
ngrams pairs.tsv
corrections corrections.tsv
offensive offensive.txt
"""
WORDS = {"the": 9000, "hello": 700, "help": 600, "held": 200, "world": 500, "friend": 400, "you": 3000,
         "then": 800, "damn": 90}
PAIRS = {("hello", "world"): 600, ("hello", "friend"): 20}
CORRECTIONS = {"teh": "the", "wrld": "world"}


def run(*arguments: str | Path, stdin: str | None = None, **environment: str) -> subprocess.CompletedProcess[str]:
    return subprocess.run([TOOL, *map(str, arguments)], input=stdin, capture_output=True, text=True, check=False,
                          timeout=600, env={**os.environ, **environment})


def answer(*arguments: str | Path, stdin: str | None = None) -> list[dict]:
    """The lines of JSON that a command prints; a failure shows what it said."""
    done = run(*arguments, stdin=stdin)
    if done.returncode != 0:
        raise AssertionError(f"{arguments}: status {done.returncode}: {done.stderr}")
    return [json.loads(line) for line in done.stdout.splitlines()]


def write_table(path: Path, rows) -> None:
    path.write_text("".join("\t".join(map(str, row)) + "\n" for row in rows), encoding="utf-8")


def make_language(folder: Path) -> None:
    """A recipe with its lists, the dictionary made of it, and the geometry of the English page."""
    (folder / "small.recipe").write_text(RECIPE, encoding="utf-8")
    write_table(folder / "words.tsv", WORDS.items())
    write_table(folder / "pairs.tsv", [(*pair, count) for pair, count in PAIRS.items()])
    write_table(folder / "corrections.tsv", CORRECTIONS.items())
    (folder / "offensive.txt").write_text("damn\n", encoding="utf-8")
    for command in (["dict", "build", folder / "small.recipe", "--out", folder / "en_US.dic"],
                    ["geometry", "--out", folder / "en_US_P_113.json"],
                    ["geometry", "--capitals", "--out", folder / "en_US_P_81.json"]):
        done = run(*command)
        if done.returncode != 0:
            raise AssertionError(f"{command}: {done.stderr}")
