# SPDX-License-Identifier: Apache-2.0
"""The program from its command line: what it answers, and what it says of bad input."""
from __future__ import annotations

import json
import tempfile
import unittest
from pathlib import Path

from vorpel_tool import answer, make_language, run, write_table


class ToolTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls) -> None:
        cls._temporary = tempfile.TemporaryDirectory()
        cls.folder = Path(cls._temporary.name)
        make_language(cls.folder)
        cls.dictionary = cls.folder / "en_US.dic"
        cls.files = ("--dictionary", cls.dictionary, "--geometry", cls.folder)

    @classmethod
    def tearDownClass(cls) -> None:
        cls._temporary.cleanup()

    def fails(self, status: int, reason: str, *arguments: str | Path) -> None:
        """One line on standard error that holds the reason, nothing on standard output."""
        done = run(*arguments)
        self.assertEqual(done.returncode, status, done.stderr)
        self.assertEqual(done.stdout, "")
        self.assertEqual(len(done.stderr.splitlines()), 1, done.stderr)
        self.assertIn(reason, done.stderr)


class SuggestTest(ToolTest):
    def test_json_names_the_word_and_what_may_replace_it(self) -> None:
        lines = answer("suggest", *self.files, "--json", "--", "teh", "hello", "frend")
        self.assertEqual([line["word"] for line in lines], ["teh", "hello", "frend"])
        slip, known, missed = lines
        self.assertEqual(set(slip), {"word", "words", "scores", "kinds", "autocorrect"})
        self.assertEqual((slip["words"][0], slip["kinds"][0], slip["autocorrect"]), ("the", "whitelist", True))
        self.assertFalse(known["autocorrect"])
        self.assertNotIn("hello", known["words"])
        self.assertEqual((missed["words"][0], missed["autocorrect"]), ("friend", True))
        self.assertEqual(missed["scores"], sorted(missed["scores"], reverse=True))

    def test_a_person_sees_an_arrow_and_a_trace(self) -> None:
        done = run("suggest", *self.files, "--trace", "wrold")
        self.assertIn("wrold -> world\n", done.stdout)
        self.assertIn("continued", done.stdout)
        self.assertNotIn("isGestureBool", done.stdout)
        line, = answer("suggest", *self.files, "--json", "--trace", "wrold")
        self.assertEqual(line["words"][0], "world")

    def test_the_word_before_counts(self) -> None:
        alone, after = (answer("suggest", *self.files, "--json", *before, "worl")[0]
                        for before in ((), ("--previous", "hello")))
        self.assertGreater(after["scores"][0], alone["scores"][0])

    def test_offensive_words_stay_words_and_are_not_offered_for_others(self) -> None:
        self.assertFalse(answer("suggest", *self.files, "--json", "damn")[0]["autocorrect"])
        self.assertFalse(answer("suggest", *self.files, "--json", "dumn")[0]["autocorrect"])

    def test_predicts_the_likelier_word_first(self) -> None:
        line, = answer("predict", *self.files, "--json", "hello")
        self.assertEqual((line["words"], line["autocorrect"]), (["world", "friend"], False))


class ServeTest(ToolTest):
    def ask(self, *lines: object) -> list[dict]:
        text = "".join((line if isinstance(line, str) else json.dumps(line)) + "\n" for line in lines)
        return answer("serve", *self.files, stdin=text)

    def test_answers_each_line_and_goes_on_after_bad_ones(self) -> None:
        good = {"op": "suggest", "word": "frend", "prev": "", "points": None, "lang": "en"}
        bad = ["not JSON", "[1]", {"op": "sing"}, {"op": "suggest"}, {"op": "suggest", "word": 7}, "",
               {"op": "suggest", "word": "ab", "points": [[1, 2]]}, {"op": "suggest", "word": "a", "points": [[1]]},
               {"op": "suggest", "word": "a", "lang": "tlh"}, {"op": "suggest", "word": "a", "width": 0},
               {"op": "suggest", "word": "a" * 2000}, "[" * 5000, " " * (1 << 21)]
        lines = [line for wrong in bad for line in (wrong, good)]
        answers = self.ask(*lines)
        self.assertEqual(len(answers), len(lines))
        for wrong, refused, served in zip(bad, answers[::2], answers[1::2]):
            self.assertEqual(list(refused), ["error"], wrong)
            self.assertEqual((served["words"][0], served["autocorrect"]), ("friend", True))
            self.assertGreater(served["us"], 0)

    def test_predicts(self) -> None:
        line, = self.ask({"op": "predict", "prev": "Hello"})
        self.assertEqual((line["words"], line["autocorrect"]), (["world", "friend"], False))

    def test_a_touch_beside_its_key_speaks_for_the_neighbour(self) -> None:
        # "help" with a last touch between o and p; then the same keys, touched in the middle.
        places = {"h": (192, 81), "e": (80, 27), "l": (288, 81), "o": (272, 27)}
        middle = [places[letter] for letter in "helo"]
        aside = middle[:-1] + [(287, 27)]
        scores = {}
        for name, points in (("middle", middle), ("aside", aside)):
            words = self.ask({"op": "suggest", "word": "helo", "points": points})[0]["words"]
            scores[name] = words.index("help")
        self.assertLessEqual(scores["aside"], scores["middle"])

    def test_a_grid_of_twice_the_size_is_the_same_keyboard(self) -> None:
        points = [(190, 70), (85, 30), (280, 90), (300, 20)]
        small, large = self.ask(
            {"op": "suggest", "word": "help", "points": points},
            {"op": "suggest", "word": "help", "points": [(2 * x, 2 * y) for x, y in points], "width": 640,
             "height": 432})
        self.assertEqual(small["words"], large["words"])

    def test_a_grid_of_no_size_to_speak_of_is_answered(self) -> None:
        line, = self.ask('{"op":"suggest","word":"held","points":[[0,0],[1,1],[-1,0],[0,1e300]],'
                         '"width":5e-324,"height":5e-324}')
        self.assertIn("words", line)


class DictTest(ToolTest):
    def test_what_was_built_reads_back(self) -> None:
        listing = run("dict", "words", self.dictionary).stdout.splitlines()
        entries = {line.split("\t")[0]: line.split("\t")[1:] for line in listing}
        self.assertEqual(len(listing), len(entries))
        self.assertEqual(entries["teh"][1:], ["not-a-word", "=> the"])
        self.assertEqual(entries["damn"][0], "0")
        self.assertGreater(int(entries["the"][0]), int(entries["held"][0]))
        self.assertEqual([word[:-2].rstrip() for word in sorted(entries["hello"][1:])], ["+friend", "+world"])
        self.assertEqual(run("dict", "lookup", self.dictionary, "teh").stdout, "teh\t" + "\t".join(entries["teh"]) + "\n")
        self.fails(1, 'no word "absent"', "dict", "lookup", self.dictionary, "absent")
        self.assertRegex(run("dict", "info", self.dictionary).stdout, r"words +9\n")

    def test_the_same_inputs_give_the_same_bytes(self) -> None:
        again = self.folder / "again.dic"
        run("dict", "build", self.folder / "small.recipe", "--out", again)
        self.assertEqual(again.read_bytes(), self.dictionary.read_bytes())

    def test_verify_tells_sound_from_damaged(self) -> None:
        self.assertEqual(run("dict", "verify", self.dictionary).returncode, 0)
        sound = self.dictionary.read_bytes()
        for name, bytes_ in (("cut.dic", sound[:-1]), ("long.dic", sound + b"\0"), ("empty.dic", b"")):
            damaged = self.folder / name
            damaged.write_bytes(bytes_)
            done = run("dict", "verify", damaged)
            self.assertEqual(done.returncode, 1, name)
            self.assertIn(str(damaged), done.stderr)

    def test_a_faulty_list_is_named_with_its_line_and_nothing_is_lost(self) -> None:
        recipe = self.folder / "faulty.recipe"
        recipe.write_text("words words.tsv\nnonsense x\n", encoding="utf-8")
        before = self.dictionary.read_bytes()
        self.fails(1, "faulty.recipe:2: ", "dict", "build", recipe, "--out", self.dictionary)
        recipe.write_text("words absent.tsv\n", encoding="utf-8")
        self.fails(1, "absent.tsv", "dict", "build", recipe, "--out", self.dictionary)
        self.assertEqual(self.dictionary.read_bytes(), before)
        self.fails(1, "no/such/folder", "dict", "build", self.folder / "small.recipe", "--out", "no/such/folder/x.dic")


class BadInputTest(ToolTest):
    def test_each_failure_is_one_line(self) -> None:
        garbage = self.folder / "garbage.dic"
        garbage.write_bytes(b"\x9b\xc1\x3a\xfe\x00\x04" + bytes(40))
        here = ("--geometry", self.folder)
        self.fails(1, "garbage.dic", "suggest", "--dictionary", garbage, *here, "word")
        self.fails(1, "absent.dic", "suggest", "--dictionary", "absent.dic", *here, "word")
        self.fails(1, "en_US_P_113.json", "predict", "--dictionary", self.dictionary, "--geometry", "/nowhere", "a")
        self.fails(1, "absent.tsv", "eval", *self.files, "--set", "absent.tsv")
        self.fails(1, "not UTF-8", "suggest", *self.files, "\udcff")
        self.fails(2, "", "suggest")
        self.fails(2, "language", "suggest", "--language", "fr", "word")
        self.fails(2, "", "dict")
        self.fails(2, "", "nonsense")

    def test_a_broken_geometry_file_is_named(self) -> None:
        with tempfile.TemporaryDirectory() as name:
            broken = Path(name) / "en_US_P_113.json"
            broken.write_text('{"keyCount": 2}', encoding="utf-8")
            self.fails(1, str(broken), "suggest", "--dictionary", self.dictionary, "--geometry", name, "word")

    def test_every_command_has_help_with_an_example(self) -> None:
        for command in ((), ("suggest",), ("predict",), ("serve",), ("dict",), ("dict", "build"), ("dict", "info"),
                        ("dict", "words"), ("dict", "lookup"), ("dict", "verify"), ("geometry",), ("eval",)):
            done = run(*command, "--help")
            self.assertEqual(done.returncode, 0)
            self.assertIn("Example: ", done.stdout, command)


class EvalTest(ToolTest):
    def test_figures_are_those_of_a_hand_count(self) -> None:
        rows = self.folder / "rows.tsv"
        # Mended; mended; a word left alone; a word that is not known and is left wrong.
        write_table(rows, [("typed", "intended", "level"), ("teh", "the", "a"), ("Frend", "friend", "b"),
                           ("held", "held", "b"), ("held", "gold", "b")])
        result, = answer("eval", *self.files, "--json", "--set", rows)
        self.assertEqual(set(result), {"all", "a", "b", "time"})
        expected = {"rows": 4, "errors": 3, "wer_raw": 75, "wer": 25, "precision": 100, "recall": 66.67,
                    "false_fire": 0, "errors_top1": 66.67, "missed_unknown_word": 1, "changed": 50}
        self.assertEqual({name: result["all"][name] for name in expected}, expected)
        self.assertEqual(result["time"]["requests"], 3 + 5 + 4 + 4)

    def test_savings_are_those_of_a_hand_count(self) -> None:
        sentences = self.folder / "sentences.txt"
        sentences.write_text("Hello, world!\n", encoding="utf-8")
        result, = answer("eval", *self.files, "--json", "--set", sentences)
        # "world" is predicted: one stroke for six. "hello" is among three after "h": two for six.
        self.assertEqual(result["all"], {"words": 2, "next_word_top1": 100, "next_word_top3": 100,
                                         "keystroke_savings": 75})

    def test_a_faulty_set_is_named_with_its_line(self) -> None:
        faulty = self.folder / "faulty.tsv"
        write_table(faulty, [("typed", "intended", "points"), ("a", "b", "")])
        write_table(faulty, [("typed", "intended", "points"), ("a", "b", ""), ("a", "b", "[[1")])
        self.fails(1, "faulty.tsv:3: ", "eval", *self.files, "--set", faulty)
        write_table(faulty, [("wrong", "header")])
        self.fails(1, "faulty.tsv:1: ", "eval", *self.files, "--set", faulty)


if __name__ == "__main__":
    unittest.main()
