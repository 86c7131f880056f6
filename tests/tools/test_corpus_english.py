# SPDX-License-Identifier: Apache-2.0
"""The English extractor on small packages written by the tests themselves."""
from __future__ import annotations

import gzip
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CORPUS = Path(__file__).resolve().parents[2] / "tools" / "corpus"
sys.path.insert(0, str(CORPUS))

import english  # noqa: E402
import english_sounds  # noqa: E402
from common import Exclusion, sentence_hash  # noqa: E402
from english_case import CaseModel, mark_run  # noqa: E402

SCOWL = {
    "english-words.10": "the dog may house see love it's he bites",
    "english-words.35": "abacus march falling dog's",
    "english-words.70": "tha abaci abacist",
    "english-upper.70": "Abaci Thae",
    "english-words.80": "abacinate",
    "english-words.95": "zyzzyva",
    "english-upper.10": "I London March May",
    "english-abbreviations.40": "NASA",
    "english-contractions.10": "don't you'll",
    "american-words.20": "color",
    "british-words.20": "colour",
    "british-words.80": "manoeuvrable",
}
FORTUNES = """The dog bites.  You don't see the dog in London.
\t\t-- Ambrose Bierce
%
THE DOG BITES, but NASA sees it; it's NASA’s house.
%
Falling in Love With Your House
%
I see the x in march, March and the 3 dogs of the dog's house. See section B.3 of it.
Old man's man's man's man's love.
%
"""
PRONUNCIATIONS = """;; comment
("abacus" nil (((ae) 1) ((b ax) 0) ((k ax s) 0)))
("falling" nil (((f ao l) 1) ((ih ng) 0)))
("thnask" nil (((th n ae s k) 1)))
("see" nil (((s iy) 1)))
"""
WORDNET = """  1 licence "not this"
00001 00 a 01 w 0 000 | a gloss; "the dog may march"; "good-natured people"
"""
ONBOARD = """\\data\\
ngram 1=6
\\1-grams:
1 <s>
900 London
800 facebooker
700 XQZ
90 the
5 q
\\2-grams:
1000 London the
\\end\\
"""


def write_packages(root: Path) -> Path:
    packages = root / "packages"

    def put(path: str, data: bytes) -> None:
        target = packages / path
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_bytes(data)

    for name, words in SCOWL.items():
        put(f"scowl/usr/share/dict/scowl/{name}", words.replace(" ", "\n").encode())
    put("fortunes/usr/share/games/fortunes/love", FORTUNES.encode())
    put("fortunes/usr/share/games/fortunes/love.dat", b"\0\1\2")
    put("fortunes/usr/share/games/fortunes/linux", b"The kernel panics.\n%\n")
    put("wordnet-base/usr/share/wordnet/data.adj", WORDNET.encode())
    put("onboard-data/usr/share/onboard/models/en_US.lm", ONBOARD.encode())
    put("jargon-text/usr/share/doc/jargon-text/jargon.txt.gz", gzip.compress("see the {dog}\n".encode(), mtime=0))
    put("festlex-cmu/usr/share/festival/dicts/cmu/cmudict-0.4.out", PRONUNCIATIONS.encode())
    put("anarchism/usr/share/doc/anarchism/html/secA1.html",
        b"<p>the <b>dog</b>&amp;the house</p><p>see also the dog</p>")
    return packages


def read_table(path: Path) -> dict[tuple[str, ...], str]:
    rows = [line.split("\t") for line in path.read_text(encoding="utf-8").splitlines()]
    return {tuple(row[:-1]): row[-1] for row in rows}


class ExtractionTest(unittest.TestCase):
    def setUp(self) -> None:
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.root = Path(scratch.name)
        self.packages = write_packages(self.root)

    def extract(self, exclusion: Exclusion | None = None, out: str = "out") -> Path:
        folder = self.root / out
        folder.mkdir()
        self.missing = english.extract(self.packages, folder, exclusion or Exclusion())
        return folder

    def counts(self, folder: Path, name: str) -> dict[str, int]:
        return {word: int(count) for (word,), count in read_table(folder / f"{name}.words.tsv").items()}

    def test_sentence_starts_titles_and_shouting_count_under_the_form_of_running_text(self) -> None:
        words = self.counts(self.extract(), "fortunes")
        self.assertEqual({form: words.get(form, 0) for form in ("the", "The", "THE", "dog", "DOG", "love", "Love")},
                         {"the": 6, "The": 0, "THE": 0, "dog": 4, "DOG": 0, "love": 2, "Love": 0})
        self.assertEqual((words["march"], words["March"], words["London"], words["I"], words["NASA"]), (1, 1, 1, 1, 2))

    def test_contractions_stay_and_possessives_stay_only_when_frequent(self) -> None:
        words = self.counts(self.extract(), "fortunes")
        self.assertEqual((words["don't"], words["it's"]), (1, 1))
        self.assertNotIn("dog's", words)
        self.assertNotIn("NASA's", words)

    def test_signatures_references_single_letters_and_programmers_files_are_left_out(self) -> None:
        words = self.counts(self.extract(), "fortunes")
        for junk in ("Bierce", "Ambrose", "kernel", "x", "B", "section"):
            self.assertNotIn(junk, words)

    def test_no_pair_crosses_punctuation_digits_or_a_dropped_letter(self) -> None:
        folder = self.extract()
        pairs = read_table(folder / "fortunes.pairs.tsv")
        self.assertEqual(pairs["the", "dog"], "4")
        for pair in (("bites", "but"), ("bites", "you"), ("the", "dogs"), ("the", "in"), ("London", "the")):
            self.assertNotIn(pair, pairs)
        self.assertNotIn(("good", "natured"), read_table(folder / "examples.pairs.tsv"))
        self.assertEqual(read_table(folder / "anarchism.pairs.tsv"), {("the", "dog"): "1", ("the", "house"): "1"})

    def test_vocabulary_holds_levels_names_regions_and_letters(self) -> None:
        folder = self.extract()
        floors = {word: float(p) for (word,), p in read_table(folder / "vocabulary.tsv").items()}
        self.assertGreater(floors["the"], floors["abacus"])
        self.assertGreater(floors["color"], floors["colour"])
        self.assertIn("facebooker", floors)
        self.assertIn("q", floors)
        self.assertLess(floors["Thnask"], floors["q"])  # a name that only the pronouncing dictionary has
        for absent in ("zyzzyva", "manoeuvrable", "abacinate", "XQZ", "Q", "dog's", "Falling", "See"):
            self.assertNotIn(absent, floors)
        self.assertNotIn("q", self.counts(folder, "onboard"))
        self.assertEqual(read_table(folder / "onboard.pairs.tsv"), {("London", "the"): "2.00"})

    def test_rare_short_words_are_left_out_and_longer_names_are_not(self) -> None:
        floors = read_table(self.extract() / "vocabulary.tsv")
        rare = ("tha", "abaci", "abacist", "Abaci", "Thae")
        self.assertEqual([word for word in rare if (word,) in floors], ["abacist", "Abaci"])

    def test_listed_sentences_are_not_learned_from(self) -> None:
        hashes = self.root / "hashes"
        hashes.write_text(sentence_hash("you DON'T see: the dog, in London!") + "\n", encoding="utf-8")
        exclusion = Exclusion(hashes)
        words = self.counts(self.extract(exclusion), "fortunes")
        self.assertEqual(exclusion.hits, 1)
        self.assertNotIn("don't", words)
        self.assertIn("bites", words)

    def test_missing_packages_leave_the_rest_and_are_named(self) -> None:
        whole = self.extract(out="whole")
        self.assertEqual(self.missing, [])
        for name in ("anarchism", "jargon-text"):
            (self.packages / name).rename(self.root / name)
        part = self.extract(out="part")
        self.assertEqual(self.missing, ["anarchism", "jargon"])
        self.assertFalse((part / "jargon.words.tsv").exists())
        self.assertEqual((part / "vocabulary.tsv").read_bytes(), (whole / "vocabulary.tsv").read_bytes())

    def test_two_runs_of_the_program_write_the_same_bytes(self) -> None:
        outputs = []
        for seed in ("1", "2"):
            out = self.root / seed
            command = [sys.executable, str(CORPUS / "english.py"), "--packages", str(self.packages), "--out", str(out)]
            subprocess.run(command, check=True, env={"PYTHONHASHSEED": seed})
            outputs.append({path.name: path.read_bytes() for path in out.iterdir()})
        self.assertEqual(outputs[0], outputs[1])


class SpellingByEarTest(unittest.TestCase):
    TABLE = english_sounds.read_spellings(english.SOUNDS)

    def test_letters_are_laid_along_their_phones(self) -> None:
        for word, phones, expected in (
                ("knight", "n ay t", [("n", "kn"), ("ay", "igh"), ("t", "t")]),
                ("nation", "n ey sh ax n", [("n", "n"), ("ey", "a"), ("sh ax n", "tion")]),
                ("quick", "k w ih k", [("k w", "qu"), ("ih", "i"), ("k", "ck")])):
            units = english_sounds.align(word, tuple(phones.split()), self.TABLE)
            self.assertEqual(units, [(tuple(sounds.split()), letters) for sounds, letters in expected])
        self.assertIsNone(english_sounds.align("xyz", ("m", "ow"), self.TABLE))

    def test_forms_sound_alike_and_are_more_than_a_slip_away(self) -> None:
        spoken = {"phonetic": tuple("f ax n eh t ih k".split()), "fanatic": tuple("f ax n ae t ih k".split())}
        known = {"phonetic", "fanatic", "fantastic", "finish", "frenetic", "kinetic", "network"}
        forms = english_sounds.spelled_by_ear({"phonetic": 3.0, "fanatic": 9.0}, spoken, english.SOUNDS, known)
        self.assertEqual(forms.get("fonetic"), "phonetic")
        self.assertFalse(known & set(forms))
        for form, word in forms.items():
            self.assertTrue(english_sounds.is_far(form, word), form)

    def test_one_slip_is_not_far(self) -> None:
        for near in ("word", "wrod", "wordd", "ord", "wird"):
            self.assertFalse(english_sounds.is_far(near, "word"), near)
        for far in ("wrd0", "drow", "wo", "wordly"):
            self.assertTrue(english_sounds.is_far(far, "word"), far)


class CaseTest(unittest.TestCase):
    def test_the_form_seen_in_running_text_wins_over_the_word_list(self) -> None:
        known = {"may", "May", "turkey"}
        case = CaseModel(known)
        case.learn([mark_run(["in", "May"], False, known), mark_run(["they", "may"], False, known),
                    mark_run(["we", "may"], False, known)])
        for words, expected in ((["May", "we"], "may"), (["Turkey", "is"], "turkey"), (["Qwx", "is"], "qwx")):
            self.assertEqual(case.settle(mark_run(words, True, known)[0]), expected)

    def test_a_run_behind_punctuation_inside_a_sentence_keeps_its_capitals(self) -> None:
        runs = list(english.split_runs("When May comes, May stays. 'cause we’re fine"))
        self.assertEqual(runs, [(["When", "May", "comes"], True), (["May", "stays"], False),
                                (["'cause", "we're", "fine"], True)])


class FetchTest(unittest.TestCase):
    """The download script with stand-ins for the programs it calls."""

    def setUp(self) -> None:
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.root = Path(scratch.name)
        programs = self.root / "bin"
        programs.mkdir()
        self.log = self.root / "calls"
        self._program(programs / "apt-get", f'echo "$@" >> {self.log}\nfor last; do :; done\n'
                      '[ "$last" = nosuch ] && { echo "E: Unable to locate package nosuch" >&2; exit 100; }\n'
                      'touch "${last}_1.0_all.deb"')
        self._program(programs / "dpkg-deb", 'if [ "$1" = -x ]; then mkdir -p "$3/usr" && touch "$3/usr/data"; '
                      'else echo 1.0-2; fi')
        self.path = f"{programs}:/usr/bin:/bin"

    @staticmethod
    def _program(path: Path, body: str) -> None:
        path.write_text(f"#!/bin/sh\n{body}\n", encoding="utf-8")
        path.chmod(0o755)

    def fetch(self, *packages: str) -> subprocess.CompletedProcess[str]:
        return subprocess.run([sys.executable, str(CORPUS / "fetch"), "--out", str(self.root / "cache"), *packages],
                              env={"PATH": self.path}, capture_output=True, text=True, check=False)

    def test_missing_packages_are_named_and_cached_ones_not_asked_for_again(self) -> None:
        first = self.fetch("words", "nosuch", "counts")
        self.assertEqual(first.returncode, 0)
        self.assertIn("nosuch: E: Unable to locate package nosuch", first.stderr)
        cache = self.root / "cache"
        self.assertEqual((cache / "packages.txt").read_text(encoding="utf-8"), "counts=1.0-2\nwords=1.0-2\n")
        self.assertTrue((cache / "words" / "usr" / "data").is_file())
        self.assertEqual([path.name for path in cache.glob(".fetch-*")], [])
        self.log.unlink()
        self.assertEqual(self.fetch("words", "counts").stderr, "")
        self.assertFalse(self.log.exists())


if __name__ == "__main__":
    unittest.main()
