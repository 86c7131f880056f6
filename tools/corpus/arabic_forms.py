# SPDX-License-Identifier: Apache-2.0
"""Inflected forms of the hand-written verbs, nouns and adjectives, with how often each is used.

Arabic writes pronouns and particles onto the word, so a list of lemmas covers little of what people type.
The shares below are estimates of conversation: much of "I" and "you", some of each object pronoun.
"""
from __future__ import annotations

from collections import Counter
from dataclasses import dataclass
from pathlib import Path
from typing import Callable, Iterator

_OBJECTS = {"ني": .08, "ك": .08, "ه": .10, "ها": .06, "نا": .03, "هم": .03, "كم": .015}
_THINGS = ("ه", "ها", "هم")
_OBJECT_PART = .5  # of a form with an object pronoun against the same form without
_FIRST, _SECOND = ("ني", "نا"), ("ك", "كم")

_NOUN = {"": .28, "ال": .30, "بال": .04, "لل": .04, "وال": .03, "و": .012, "ب": .03, "ل": .025, "ك": .004, "كال": .004,
         "فال": .003, "فب": .001}
_ADJECTIVE = {"": .40, "ال": .20, "وال": .01, "و": .02, "لل": .006, "بال": .008, "ب": .012, "ل": .004, "ك": .003}
_OWNERS = {"ي": .05, "ك": .05, "ه": .04, "ها": .025, "نا": .02, "هم": .02, "كم": .008}
_OWNED_PREFIXES = {"": .78, "ب": .08, "ل": .06, "و": .05}
_NAME = {"": .78, "و": .07, "ل": .07, "ب": .05, "يا": .001}
_ATTACHED = {"noun": 1.0, "kin": 6.0, "adjective": 0.0, "name": 0.0}


@dataclass(frozen=True)
class Verb:
    """One verb in the stems that its forms are made of, without vowels."""

    past: str  # he: قال
    past_stem: str  # before -ت and -نا: قل
    present: str  # behind the person's letter: قول
    jussive: str  # the same after لم: قل
    imperative: str  # "" when there is none in use
    takes: str  # "i" nothing, "o" things, "t" anybody


def parse_verb(fields: list[str]) -> Verb:
    """Six columns: past, past stem, present, jussive, imperative, objects; `=` repeats, `-` is none."""
    if len(fields) != 6 or fields[5] not in ("i", "o", "t"):
        raise ValueError(f"a verb has six columns, the last i, o or t: {' '.join(fields)}")
    past, stem, present, jussive, imperative, takes = fields
    jussive = present if jussive == "=" else jussive
    # The derived stems that begin with a plain alef keep it in the imperative: انتظر.
    repeated = "ا" + jussive if past[0] == "ا" else jussive
    imperative = {"=": repeated, "-": "", "ا": "ا" + jussive, "أ": "أ" + jussive}.get(imperative, imperative)
    return Verb(past, past if stem == "=" else stem, present, jussive, imperative, takes)


def _open(stem: str) -> str:
    """A stem without the weak last letter that endings swallow."""
    return stem[:-1] if stem[-1] in "يىو" else stem


def _first_person(stem: str) -> str:
    return "آ" + stem[1:] if stem[0] == "أ" else "أ" + stem


def _joined(stem: str, ending: str) -> tuple[str, ...]:
    """The stem with a vowel ending; a hamza at its end changes its seat, in two accepted ways after a short vowel."""
    if stem.endswith("أ"):
        return stem + ending, stem[:-1] + ("ؤ" if ending[0] == "و" else "ئ") + ending
    if stem.endswith("ء"):
        return (stem[:-1] + ("ؤ" if stem[-2:-1] == "ا" and ending[0] == "و" else "ئ") + ending,)
    return (stem + ending,)


def _before_pronoun(form: str) -> str:
    if form.endswith("أى"):
        return form[:-2] + "آ"
    if form.endswith("ى"):
        return form[:-1] + "ا"
    if form.endswith("وا"):
        return form[:-1]
    return form


# Person's letter, ending and share of the forms that end in a vowel.
_ENDINGS = (("ت", "ين", .035), ("ت", "ون", .025), ("ي", "ون", .04), ("ي", "وا", .012), ("ت", "ي", .012),
            ("ت", "وا", .012), ("ست", "ين", .004), ("سي", "ون", .008))


def verb_forms(verb: Verb) -> Counter[str]:
    """Every form with its share of the verb's uses."""
    forms: Counter[str] = Counter()

    def add(form: str, share: float, objects: bool = False, refuse: tuple[str, ...] = ()) -> None:
        forms[form] += share
        if not objects or verb.takes == "i":
            return
        for pronoun, part in _OBJECTS.items():
            if pronoun not in refuse and (verb.takes == "t" or pronoun in _THINGS):
                forms[_before_pronoun(form) + pronoun] += share * _OBJECT_PART * part / .395

    past, stem, present, jussive = verb.past, verb.past_stem, verb.present, verb.jussive
    weak = past[-1] in "ىا" and len(past) > 2
    add(past, .13, True)
    add((past[:-1] if weak else past) + "ت", .06, True)
    add(stem + "ت", .13, True)
    add(stem + "نا", .04, True, _FIRST)
    add(stem + "تم", .012)
    for form in _joined(past[:-1] if past[-1] in "ىاي" and len(past) > 2 else past, "وا"):
        add(form, .04, True)
    add("و" + past, .012)
    add("ف" + past, .006)
    add("و" + stem + "ت", .006)
    persons = (("ت", .10, _SECOND), ("ي", .13, ()), ("ن", .05, _FIRST))
    add(_first_person(present), .09, True, _FIRST)
    for letter, share, refuse in persons:
        add(letter + present, share, True, refuse)
        add("س" + letter + present, share * .15, True, refuse)
        add("و" + letter + present, share * .08)
        add("ل" + letter + present, share * .06)
        if jussive != present:
            add(letter + jussive, share * .2, jussive[-1] not in present[-1:], refuse)
    add("سأ" + present if present[0] != "أ" else "سآ" + present[1:], .03, True, _FIRST)
    add("ل" + _first_person(present), .006, True, _FIRST)
    add("و" + _first_person(present), .006)
    if jussive != present:
        add(_first_person(jussive), .02)
    for before, ending, share in _ENDINGS:
        for form in _joined(before + _open(present), ending):
            add(form, share, True, _SECOND if before in ("ت", "ست") else ())
    if verb.imperative:
        add(verb.imperative, .03, True, _SECOND)
        hollow = jussive != present and present[-1] not in "يىو"
        command = _open((past[0] if past[0] in "أا" and len(past) > 3 else "") + present if hollow else verb.imperative)
        for ending, share in (("ي", .012), ("وا", .010)):
            for form in _joined(command, ending):
                add(form, share, True, _SECOND)
    return forms


def _with_article(prefix: str, word: str) -> str:
    """The l- of "to" and the article melt into one, before another l too."""
    if prefix == "لل" and word.startswith("ل"):
        return "لل" + word[1:]
    return prefix + word


def _owned(noun: str) -> tuple[str, ...]:
    """The noun as it stands before a possessive; a hamza at the end is written by its case."""
    if noun.endswith("ة"):
        return (noun[:-1] + "ت",)
    if noun.endswith("ى"):
        return (noun[:-1] + "ا",)
    if noun.endswith("اء"):
        return noun, noun[:-1] + "ئ", noun[:-1] + "ؤ"
    return (noun,)


def _accusative(noun: str) -> str:
    """With the written -an of the indefinite accusative, or "" where nothing is written."""
    return "" if noun[-1] in "ةىأا" or noun.endswith("اء") else noun + "ا"


def noun_forms(noun: str, kind: str = "noun") -> Counter[str]:
    forms: Counter[str] = Counter()
    prefixes = {"name": _NAME, "adjective": _ADJECTIVE}.get(kind, _NOUN)
    for prefix, share in prefixes.items():
        if "ال" in prefix and noun.startswith("ال"):
            continue
        forms[_with_article(prefix, noun)] += share
    if kind == "name":
        return forms
    if _accusative(noun):
        forms[_accusative(noun)] += .06
    variants = _owned(noun)
    for owner, share in _OWNERS.items():
        for prefix, part in _OWNED_PREFIXES.items():
            for variant in variants:
                if owner == "ي" and variant.endswith(("ء", "ؤ")):
                    continue
                value = share * part * _ATTACHED[kind] / len(variants)
                if value:
                    forms[prefix + variant + owner] += value
    return forms


def adjective_forms(adjective: str) -> Counter[str]:
    """Masculine, feminine and the sound plural."""
    forms = noun_forms(adjective, "adjective")
    if adjective[-1] in "ةى":
        return forms
    for form, share in noun_forms(adjective + "ة", "adjective").items():
        forms[form] += share * .6
    for ending, share in (("ين", .03), ("ون", .025), ("ات", .012)):
        forms[adjective + ending] += share
        forms["ال" + adjective + ending] += share * .5
    return forms


_SECTIONS: dict[str, Callable[[str], Counter[str]]] = {
    "noun": noun_forms,
    "kin": lambda word: noun_forms(word, "kin"),
    "name": lambda word: noun_forms(word, "name"),
    "adjective": adjective_forms,
}


def _lines(path: Path) -> Iterator[tuple[str, float, list[str]]]:
    """The words of a lemma list, line by line, with the kind and the frequency of their section."""
    kind, frequency = "", 0.0
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        fields = line.split("#")[0].split()
        if not fields:
            continue
        if fields[0].startswith("["):
            kind, frequency = fields[0][1:], float(fields[1].rstrip("]"))
            if kind not in (*_SECTIONS, "verb"):
                raise ValueError(f"{path}:{number}: no section is called {kind}")
            continue
        if not kind:
            raise ValueError(f"{path}:{number}: words before the first section")
        yield kind, frequency, fields


def forms_of(path: Path) -> dict[str, float]:
    """All forms of a lemma list with their probabilities: sections `[KIND FREQUENCY]`, then a verb a line or words."""
    result: Counter[str] = Counter()
    for kind, frequency, fields in _lines(path):
        paradigms = [verb_forms(parse_verb(fields))] if kind == "verb" else [_SECTIONS[kind](word) for word in fields]
        for paradigm in paradigms:
            for form, share in paradigm.items():
                result[form] += frequency * share
    return dict(result)
