# SPDX-License-Identifier: Apache-2.0
"""The typist of the benchmarks: figures can be compared only if everybody measures the same keystrokes."""
import json
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

TYPIST = Path(__file__).resolve().parents[2] / "bench" / "data" / "typist.py"
sys.dont_write_bytecode = True
sys.path.insert(0, str(TYPIST.parent))
import typist  # noqa: E402

PAIRS = {"en": [("I", "don't", 90), ("of", "Course", 30), ("the", "naïve", 900), ("a", "keyboard", 60)],
         "ar": [("في", "أمان", 5), ("هذا", "الكتاب", 9)]}


class TypistTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.sources = Path(self.folder.name)
        for language, pairs in PAIRS.items():
            (self.sources / typist.TEXTS[language][0]).write_text(
                "".join("\t".join(map(str, pair)) + "\n" for pair in pairs), encoding="utf-8")
        for name in typist.WORD_LISTS:
            (self.sources / name).write_text("keyboard\t3\nsurrounding\t2\nto\t50\n", encoding="utf-8")

    def rows(self, *options):
        out = self.sources / "out.tsv"
        subprocess.run([sys.executable, "-B", TYPIST, "--sources", self.sources, "--out", out, *options], check=True)
        header, *lines = out.read_text(encoding="utf-8").splitlines()
        return [dict(zip(header.split("\t"), line.split("\t"))) for line in lines]

    def test_the_same_seed_types_the_same_and_another_does_not(self):
        first = self.rows("--rows", "200")
        self.assertEqual(first, self.rows("--rows", "200"))
        self.assertNotEqual(first, self.rows("--rows", "200", "--seed", "1"))

    def test_every_letter_is_the_key_nearest_to_its_touch(self):
        for language in PAIRS:
            keyboard = typist.Keyboard(language)
            rows = self.rows("--rows", "300", "--language", language)
            for row in rows:
                points = json.loads(row["points"])
                self.assertEqual(len(points), len(row["typed"]))
                self.assertEqual("".join(keyboard.key_at(*point) for point in points), row["typed"])
            self.assertNotIn("naïve", {row["intended"] for row in rows})
            right = sum(keyboard.letters_of(row["intended"]) == row["typed"] for row in rows)
            self.assertTrue(len(rows) * 0.5 < right < len(rows), f"{language}: {right} of {len(rows)} typed right")

    def test_words_by_length_leave_one_letter_to_delete(self):
        rows = self.rows("--rows", "2", "--lengths", "9")
        self.assertEqual([int(row["level"]) for row in rows], [length for length in range(1, 10) for _ in range(2)])
        self.assertEqual([len(row["typed"]) for row in rows], [int(row["level"]) + 1 for row in rows])


if __name__ == "__main__":
    unittest.main()
