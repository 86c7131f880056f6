# SPDX-License-Identifier: Apache-2.0
"""The driver of the language data in a made-up tree, whose programs note each call of theirs."""
import shutil
import stat
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

TOOL = Path(__file__).resolve().parents[2] / "tools" / "build_language_data"

FETCH = """
out, names = Path(sys.argv[2]), sys.argv[3:]
for name in names:
    wanted = name not in ROOT.joinpath("missing").read_text().split()
    if wanted and not (out / name).exists():
        (out / name).mkdir(parents=True, exist_ok=True)
        (out / name / ".version").write_text("1")
note("fetch")
"""
EXTRACT = """
out = Path(sys.argv[sys.argv.index("--out") + 1])
out.mkdir(parents=True, exist_ok=True)
(out / "words.tsv").write_text(ROOT.joinpath("corpus").read_text())
note("count " + out.name + (" excluding" if "--exclude" in sys.argv else ""))
"""
COMPILER = """
out = Path(sys.argv[sys.argv.index("--out") + 1])
note("make " + out.name)
if ROOT.joinpath("broken").exists():
    sys.exit("no such recipe")
out.write_text("made")
"""
HEAD = """#!{python}
import sys
from pathlib import Path
ROOT = Path({root!r})
def note(line):
    with ROOT.joinpath("calls").open("a") as calls:
        calls.write(line + "\\n")
"""
GEOMETRY = {"make en_US_P_113.json", "make en_US_P_81.json", "make ar_SA_P.json"}
ALL = {"fetch", "count en", "count ar", "make en_US.dic", "make ar_SA.dic"} | GEOMETRY


class BuildLanguageDataTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name).resolve()
        self.write("missing", "")
        self.write("corpus", "the\t100\n")
        self.write("data/en/en_US.recipe", "words")
        self.write("data/ar/ar_SA.recipe", "words")
        self.program("tools/corpus/fetch", FETCH)
        self.program("tools/corpus/english.py", EXTRACT)
        self.program("tools/corpus/arabic.py", EXTRACT)
        self.program("vorpel", COMPILER)
        shutil.copy(TOOL, self.root / "tools")

    def write(self, path, content):
        (self.root / path).parent.mkdir(parents=True, exist_ok=True)
        (self.root / path).write_text(content)

    def program(self, path, body):
        self.write(path, HEAD.format(python=sys.executable, root=str(self.root)) + body)
        (self.root / path).chmod(stat.S_IRWXU)

    def build(self, *options):
        """Runs it; returns the status, what was called, and what was said."""
        (self.root / "calls").write_text("")
        done = subprocess.run([sys.executable, self.root / "tools" / TOOL.name, "--tool", self.root / "vorpel",
                               "--build", self.root / "build", "--out", self.root / "build" / "data", *options],
                              capture_output=True, text=True, check=False)
        return done.returncode, set((self.root / "calls").read_text().splitlines()), done.stdout + done.stderr

    def test_builds_all_and_then_nothing(self):
        self.assertEqual(self.build()[:2], (0, ALL))
        self.assertEqual(self.build(), (0, set(), ""))

    def test_only_what_a_change_concerns_is_made_again(self):
        def change(path, content):
            return lambda: self.write(path, content)

        changes = [
            ("a recipe", change("data/en/en_US.recipe", "more words"), {"make en_US.dic"}),
            ("a file touched without a change", change("data/en/en_US.recipe", "more words"), set()),
            ("a new seed", change("data/ar/seed.txt", "word"), {"count ar", "make ar_SA.dic"}),
            ("the version of a package", change("build/packages/fortunes/.version", "2"), {"count en"}),
            ("a lost dictionary", (self.root / "build/data/en_US.dic").unlink, {"make en_US.dic"}),
            ("a lost package", lambda: shutil.rmtree(self.root / "build/packages/scowl"), {"fetch"}),
            ("the compiler", lambda: self.program("vorpel", COMPILER + "\n# newer\n"),
             {"make en_US.dic", "make ar_SA.dic"} | GEOMETRY),
            ("an extractor", lambda: self.program("tools/corpus/arabic.py", EXTRACT + "\n# newer\n"),
             {"count en", "count ar"}),
        ]
        self.build()
        for what, act, expected in changes:
            with self.subTest(what):
                act()
                self.assertEqual(self.build()[:2], (0, expected))

    def test_counts_that_come_out_different_make_a_new_dictionary(self):
        self.build()
        self.write("corpus", "the\t101\n")
        self.write("hashes", "0123456789abcdef\n")
        status, calls, _ = self.build("--exclude", self.root / "hashes")
        self.assertEqual(status, 0)
        self.assertEqual(calls, {"count en excluding", "count ar excluding", "make en_US.dic", "make ar_SA.dic"})

    def test_goes_on_without_a_package_and_asks_again_the_next_time(self):
        self.write("missing", "wordpress-l10n scowl")
        self.assertEqual(self.build()[:2], (0, ALL))
        self.assertEqual(self.build()[:2], (0, {"fetch"}))
        self.write("missing", "scowl")
        self.assertEqual(self.build()[:2], (0, {"fetch", "count ar"}))

    def test_a_failed_step_is_told_and_tried_again(self):
        self.write("broken", "")
        status, _, said = self.build()
        self.assertEqual(status, 1)
        self.assertIn("building en_US.dic failed", said)
        self.assertIn("no such recipe", said)
        (self.root / "broken").unlink()
        status, calls, _ = self.build()
        self.assertEqual(status, 0)
        self.assertLessEqual({"make en_US.dic", "make ar_SA.dic"} | GEOMETRY, calls)


if __name__ == "__main__":
    unittest.main()
