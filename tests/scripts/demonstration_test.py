# SPDX-License-Identifier: Apache-2.0
"""What the built dictionaries must get right at the least: everyday slips and everyday pairs."""
from __future__ import annotations

import os
import sys
import unittest
from pathlib import Path

from vorpel_tool import answer, run

SKIPPED = 77
DATA = Path(os.environ["VORPEL_DATA"])

ENGLISH = {"teh": "the", "freind": "friend", "wrold": "world", "recieve": "receive", "definately": "definitely",
           "dont": "don't", "hwllo": "hello", "adn": "and"}
ARABIC = {"انا": "أنا", "اريد": "أريد", "الان": "الآن", "الى": "إلى", "هاذا": "هذا", "لاكن": "لكن", "مرحا": "مرحبا",
          "مدرصة": "مدرسة"}
NEXT_WORDS = {"en": {"thank": "you", "how": "are", "good": "morning"}, "ar": {"صباح": "الخير", "السلام": "عليكم"}}


class DemonstrationTest(unittest.TestCase):
    def replaces(self, language: str, slips: dict[str, str]) -> None:
        for line in answer("suggest", "--language", language, "--json", "--", *slips):
            with self.subTest(line["word"]):
                self.assertEqual(line["words"][0], slips[line["word"]])
                self.assertTrue(line["autocorrect"])

    def test_english_slips_are_replaced(self) -> None:
        self.replaces("en", ENGLISH)

    def test_arabic_slips_are_replaced(self) -> None:
        self.replaces("ar", ARABIC)

    def test_the_next_word_is_among_the_first_three(self) -> None:
        for language, pairs in NEXT_WORDS.items():
            for line in answer("predict", "--language", language, "--json", *pairs):
                self.assertIn(pairs[line["word"]], line["words"][:3])

    def test_a_sentence_with_slips_comes_out_right(self) -> None:
        for options in ([], ["--jitter", "1"], ["--jitter", "2"], ["--jitter", "3"]):
            typed = run("type", "--autocorrect", "on", *options, "i dont knwo waht yuo maen ")
            self.assertIn(" I don't know what you mean ", typed.stdout.splitlines()[-1], options)
        taken = run("type", "--language", "ar", "--take-words", "السلام عليكم ورحمة الله").stdout
        self.assertIn("السلام عليكم ورحمة الله", taken.splitlines()[-1])
        self.assertGreater(taken.count("("), 2, "words are taken from the bar")

    def test_known_words_are_left_alone(self) -> None:
        for language, words in (("en", ["the", "hello", "don't", "well", "its", "Monday"]), ("ar", ["أنا", "من", "بيت"])):
            for line in answer("suggest", "--language", language, "--json", "--", *words):
                self.assertFalse(line["autocorrect"], line["word"])


if __name__ == "__main__":
    if not all((DATA / name).is_file() for name in ("en_US.dic", "ar_SA.dic", "en_US_P_113.json", "ar_SA_P.json")):
        print(f"no dictionaries in {DATA}")
        sys.exit(SKIPPED)
    unittest.main()
