# SPDX-License-Identifier: Apache-2.0
"""Readers of the unpacked Debian packages that hold Arabic: each takes a package's folder, yields text or words.

A package that is not there yields nothing.
"""
from __future__ import annotations

import gzip
import html
import re
import struct
import zipfile
from collections import Counter, defaultdict
from pathlib import Path
from typing import Iterator

import arabic_text

_PLACEHOLDER = re.compile(r"<[^>]*>|%(?:\d+\$)?[-+ #0]*\d*(?:\.\d+)?[a-zA-Z]|%\w+%|\$\{[^}]*\}|\{[^}]*\}|&\w+;|\$\(\w+\)")
_ACCELERATOR = re.compile(r"[_&~]")
_HTML_BLOCK = re.compile(r"</?(?:p|div|li|h\d|td|dt|dd|title|tr|ul|ol|section)\b[^>]*>")
_HTML_CODE = re.compile(r"<(script|style|pre|code)\b.*?</\1>", re.S)
_TAG = re.compile(r"<[^>]*>")
_ENGLISH = re.compile(r"[a-z]+(?:'[a-z]+)?")


def catalogue_strings(path: Path) -> Iterator[str]:
    """The translations of a message catalogue (.mo), plural forms one by one."""
    data = path.read_bytes()
    if len(data) < 20 or data[:4] not in (b"\xde\x12\x04\x95", b"\x95\x04\x12\xde"):
        return
    order = "<" if data[:4] == b"\xde\x12\x04\x95" else ">"
    total, originals, translations = struct.unpack_from(order + "3I", data, 8)
    for i in range(total):
        if max(originals, translations) + 8 * (i + 1) > len(data):
            return
        length, _ = struct.unpack_from(order + "2I", data, originals + 8 * i)
        size, start = struct.unpack_from(order + "2I", data, translations + 8 * i)
        if length == 0:  # the catalogue's own header
            continue
        yield from data[start:start + size].decode("utf-8", "replace").split("\0")


def cut_markup(text: str) -> str:
    """What a person reads of an interface string; a placeholder becomes a sign that ends a segment."""
    return _ACCELERATOR.sub("", _PLACEHOLDER.sub(" | ", text.replace("\\n", "\n")))


def catalogues(folder: Path) -> Iterator[str]:
    """All Arabic catalogues below a folder."""
    for path in sorted(folder.rglob("*.mo")):
        if path.parent.parent.name == "ar" or path.stem == "ar" or path.stem.endswith("-ar"):
            for text in catalogue_strings(path):
                yield cut_markup(text)


def language_pack(folder: Path) -> Iterator[str]:
    """The values of a browser language pack: `key = value` files (.ftl, .properties) and .dtd in a .xpi."""
    for archive in sorted(folder.rglob("*.xpi")):
        with zipfile.ZipFile(archive) as pack:
            for name in sorted(pack.namelist()):
                if not name.endswith((".ftl", ".properties", ".dtd")):
                    continue
                for line in pack.read(name).decode("utf-8", "replace").splitlines():
                    if line.startswith(("#", "//")):
                        continue
                    value = line.split("=", 1)[-1] if "=" in line else line
                    yield cut_markup(value)


def handbook(folder: Path) -> Iterator[str]:
    """The paragraphs of the Arabic edition of a book in HTML."""
    for path in sorted(folder.glob("usr/share/doc/debian-handbook/html/ar-MA/*.html")):
        text = _HTML_CODE.sub(" | ", path.read_text(encoding="utf-8", errors="replace"))
        for paragraph in _HTML_BLOCK.split(text):
            yield html.unescape(_TAG.sub("", paragraph))


def english_counts(packages: Path) -> Counter[str]:
    """How often English words are said: quotations and dialogue, smoothed with a list of a wider field.

    Returned per million of each, nine parts to one.
    """
    said: Counter[str] = Counter()
    for path in sorted(packages.glob("fortunes/usr/share/games/fortunes/*")):
        if path.is_file() and not path.is_symlink() and not path.suffix:
            said.update(_ENGLISH.findall(path.read_text(encoding="utf-8", errors="replace").lower()))
    listed: Counter[str] = Counter()
    for path in sorted(packages.glob("onboard-data/usr/share/onboard/models/en_US.lm")):
        text = path.read_text(encoding="utf-8", errors="replace")
        for line in text.partition("\\1-grams:")[2].partition("\\2-grams:")[0].splitlines():
            fields = line.split()
            if len(fields) == 2 and _ENGLISH.fullmatch(fields[1].lower()):
                listed[fields[1].lower()] += int(fields[0])
    mixed: Counter[str] = Counter()
    for source, weight in ((said, 9e5), (listed, 1e5)):
        total = sum(source.values())
        for word, number in source.items():
            mixed[word] += weight * number / total
    return mixed


def glossary(folder: Path) -> Iterator[tuple[str, list[str]]]:
    """English heads with their Arabic glosses, of a dictd file: `Head /sound/`, then gloss lines."""
    for path in sorted(folder.rglob("*eng-ara.dict.dz")):
        with gzip.open(path, "rt", encoding="utf-8", errors="replace") as lines:
            head, glosses = "", []
            for line in lines:
                match = re.match(r"(.+?) /.*/\s*$", line)
                if match:
                    if head and glosses:
                        yield head, glosses
                    head, glosses = match.group(1).lower(), []
                elif head:
                    glosses += [part for part in re.split(r"[,،;؛()\[\]]|\s-\s|^\d+\.", line) if part.strip()]
            if head and glosses:
                yield head, glosses


def transfer(folder: Path, english: Counter[str]) -> Counter[str]:
    """Arabic words with the frequency of the English words that they explain.

    A head's frequency is shared by its glosses, and a gloss of several words shares it again. Nouns stand there
    with the article whether the English word is definite or not: half goes to the form without.
    """
    result: Counter[str] = Counter()
    for head, glosses in glossary(folder):
        frequency = english.get(head, 0.0)
        if frequency <= 0:
            continue
        for gloss in glosses:
            words = [word for segment in arabic_text.segments(gloss) for word in segment if arabic_text.is_word(word)]
            for word in words:
                share = frequency / len(glosses) / len(words) ** 1.5
                if word.startswith("ال") and len(word) > 4:
                    result[word] += share / 2
                    result[word[2:]] += share / 2
                else:
                    result[word] += share
    return result


def packed_word_list(folder: Path) -> Iterator[str]:
    """A prefix-compressed list in ISO-8859-6: a byte of 1 to 32 tells how much of the last word is shared, plus one."""
    for path in sorted(folder.rglob("ar.cwl.gz")):
        word = b""
        with gzip.open(path) as file:
            for piece in re.finditer(rb"([\x01-\x20])([^\x00-\x20]*)", file.read()):
                word = word[:piece.group(1)[0] - 1] + piece.group(2)
                text = arabic_text.plain(word.decode("iso-8859-6", "replace"))
                if arabic_text.is_word(text):
                    yield text


def spelling_entries(folder: Path) -> dict[str, list[tuple[str, str]]]:
    """The entries of the spelling dictionary by kind: "verb" with the lemma, "name", "function" and "other"."""
    dictionary = folder / "usr/share/hunspell/ar.dic"
    affixes = folder / "usr/share/hunspell/ar.aff"
    entries: dict[str, list[tuple[str, str]]] = defaultdict(list)
    if not dictionary.is_file() or not affixes.is_file():
        return entries
    notes = [line[3:] for line in affixes.read_text(encoding="utf-8", errors="replace").splitlines()
             if line.startswith("AM ")]
    section = ""
    for line in dictionary.read_text(encoding="utf-8", errors="replace").splitlines():
        if line.endswith(".dic"):
            section = line
            continue
        head, _, alias = line.partition("\t")
        word = arabic_text.plain(head.partition("/")[0])
        if not arabic_text.is_word(word):
            continue
        note = notes[int(alias)] if alias.isdigit() and int(alias) < len(notes) else ""
        lemma = re.search(r"st:(\S+)", note)
        if "po:verb" in note or (lemma and "is:p" in note):
            entries["verb"].append((word, lemma.group(1) if lemma else word))
        elif "stopwords" in section:
            entries["function"].append((word, word))
        elif "name" in section or "علام" in note:
            entries["name"].append((word, word))
        else:
            entries["other"].append((word, word))
    return entries
