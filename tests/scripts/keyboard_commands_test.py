# SPDX-License-Identifier: Apache-2.0
"""The commands that list, draw and touch the keyboard."""
from __future__ import annotations

import json
import os
import struct
import tempfile
import unittest
from pathlib import Path

from vorpel_tool import answer, run

THEMES = sorted((Path(os.environ["VORPEL_SOURCE_DIR"]) / "data" / "themes").glob("*.json"))


def size_of_png(path: Path) -> tuple[int, int]:
    content = path.read_bytes()
    assert content.startswith(b"\x89PNG"), content[:8]
    return struct.unpack(">II", content[16:24])


def field_after(*arguments: str) -> str:
    """What stands in the field after the last key, between the key and the bar."""
    done = run("type", *arguments)
    assert done.returncode == 0, done.stderr
    return done.stdout.splitlines()[-1][11:].rsplit(" [", 1)[0].rstrip()


def channels(color: str) -> list[float]:
    return [int(color[at:at + 2], 16) / 255 for at in (1, 3, 5)]


def contrast(*colors: list[float]) -> float:
    def light(share: float) -> float:
        return share / 12.92 if share <= 0.04045 else ((share + 0.055) / 1.055) ** 2.4
    low, high = sorted(sum(part * light(share) for part, share in zip((0.2126, 0.7152, 0.0722), color))
                       for color in colors)
    return (high + 0.05) / (low + 0.05)


class KeyboardTest(unittest.TestCase):
    def setUp(self) -> None:
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory()))

    def test_a_page_as_data(self) -> None:
        page, = answer("page", "--language", "ar", "--page", "1", "--width", "320", "--json")
        self.assertEqual([len(row) for row in page["rows"]], [10, 9, 9, 5])
        mode = page["rows"][2][0]
        self.assertEqual((mode["type"], mode["uppercaseKeyCap"], mode["toMode"]), ("ModeChange", "#+=", 2))
        self.assertEqual(page["rows"][0][0]["lowercaseOutput"], "١")
        for row in page["rows"]:
            edges = [(key["frame"][0], key["frame"][0] + key["frame"][2]) for key in row]
            self.assertTrue(all(left[1] <= right[0] for left, right in zip(edges, edges[1:])), edges)
            self.assertTrue(edges[0][0] >= 0 and edges[-1][1] <= 320.5, edges)

    def test_a_picture_has_the_pixels_it_was_asked_for(self) -> None:
        for size, options in (((750, 432), []), ((1125, 648), ["--scale", "3", "--dark", "--page", "12"]),
                              ((1000, 243), ["--scale", "1.5", "--landscape", "--width", "667"]),
                              ((750, 522), ["--bar", "--press", "t"]), ((2048, 452), ["--width", "1024", "--page", "emoji"]),
                              ((640, 432), ["--category", "recent", "--recent", "😀", "--width", "320"]), ((640, 432), ["--width", "320", "--settings"])):
            out = self.folder / "page.png"
            done = run("render", *options, "--out", out)
            self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))
            self.assertEqual(size_of_png(out)[1], size[1])
            self.assertAlmostEqual(size_of_png(out)[0], size[0], delta=1)

    def test_typing_reaches_the_field(self) -> None:
        for typed, field, *options in (
                ("hi  there", "Hi. There"), ("aB", "AB"), ("x[1]?", "X[1]?"), ("a@b.de", "a@b.de", "--field", "email"),
                ("x.com/y", "x.com/y", "--field", "url"), ("12", "12", "--field", "number"),
                ("سلام ؟", "سلام ؟", "--language", "ar"), ("one\ntwo", "One⏎Two")):
            with self.subTest(typed):
                self.assertEqual(field_after(*options, typed), field)
        self.assertNotEqual(field_after("--jitter", "3", "a rather long sentence"), "")

    def test_emoji_are_found_and_typed(self) -> None:
        """By their icons, and by scrolling: the last flag is far down, on a low keyboard too."""
        for options in ([], ["--language", "ar"], ["--width", "320", "--height", "140"], ["--landscape", "--width", "667"]):
            self.assertEqual(field_after(*options, "😀🐌 🇻🇪❤️✌️💍 "), "😀🐌 🇻🇪❤️✌️💍", options)

    def test_learnt_words_are_listed_and_forgotten(self) -> None:
        surroundings = {"XDG_DATA_HOME": str(self.folder)}
        self.assertEqual(run("words", "list", **surroundings).stdout, "")
        file = self.folder / "vorpel" / "words.txt"
        file.parent.mkdir()
        file.write_text("vorpel\nsnicker\nsnack", encoding="utf-8")
        self.assertEqual(run("words", "list", **surroundings).stdout, "vorpel\nsnicker\nsnack\n")
        done = run("words", "remove", "vorpel", "boojum", **surroundings)
        self.assertEqual((done.returncode, done.stderr), (1, f'vorpel: {file}: "boojum" was not learnt\n'))
        self.assertEqual(run("words", "remove", "vorpel", "snack", **surroundings).returncode, 0)
        self.assertEqual(file.read_text(encoding="utf-8"), "snicker\n")

    def test_our_themes_can_be_read_and_drawn(self) -> None:
        self.assertEqual(len(THEMES), 3)
        for path in THEMES:
            with self.subTest(path.name):
                theme = {name: channels(value) for name, value in json.loads(path.read_text()).items() if value is not True
                         and value is not False}
                special = [(key + ground) / 2 for key, ground in zip(theme["keyColor"], theme["keyboardBackgroundColor"])]
                for ground in (theme["keyColor"], special):
                    self.assertGreater(contrast(theme["keyTextcolor"], ground), 7)
                self.assertGreater(contrast(theme["suggestionTextColor"], theme["suggestionBarColor"]), 7)
                self.assertGreater(contrast(theme["suggestionDividerColor"], theme["suggestionBarColor"]), 2.5)
                self.assertGreater(contrast(theme["keyColor"], special), 1.2, "special keys stand apart")
                self.assertEqual(run("render", "--theme", path, "--out", self.folder / "x.png").returncode, 0)

    def test_a_theme_file_that_is_none_is_named_with_the_reason(self) -> None:
        whole = json.loads(THEMES[0].read_text())
        path = self.folder / "theme.json"
        for content, reason in (
                ("{", "not JSON: "), ("[]", "not an object of colours"), ("", "not JSON: "),
                ({**whole, "keyColor": "#12345"}, '"keyColor" is not of the form "#RRGGBB"'),
                ({**whole, "keyColor": 7}, '"keyColor" is not of the form'),
                ({**whole, "keyTextcolor": "#12345G"}, '"keyTextcolor" is not of the form'),
                ({**whole, "isThemeDarkType": "true"}, '"isThemeDarkType" is neither true nor false'),
                ({**whole, "keyTextColor": "#000000"}, '"keyTextColor" is no part of a theme'),
                *(({name: whole[name] for name in whole if name != left}, f'"{left}" is missing') for left in whole)):
            with self.subTest(reason):
                path.write_text(content if isinstance(content, str) else json.dumps(content))
                for command in (["render", "--out", self.folder / "y.png"], ["type", "a"]):
                    done = run(*command, "--theme", path)
                    self.assertEqual((done.returncode, done.stdout), (1, ""))
                    self.assertRegex(done.stderr, r"\Avorpel: [^\n]+\n\Z")
                    self.assertIn(f"{path}: {reason}", done.stderr)
        self.assertIn("No such file", run("type", "--theme", self.folder / "none.json", "a").stderr)

    def test_what_cannot_be_done_is_said_in_one_line(self) -> None:
        out = self.folder / "x.png"
        for status, reason, arguments in (
                (1, "page 9", ["page", "--page", "9"]), (1, "page 700", ["render", "--page", "700", "--out", out]),
                (1, "nowhere", ["render", "--out", self.folder / "nowhere" / "x.png"]),
                (1, "no key", ["render", "--press", "ß", "--out", out]), (1, "no key", ["type", "a𐍈"]),
                (1, "no key for emoji", ["type", "--field", "email", "a😀"]),
                (2, "--page", ["render", "--page", "emojis", "--out", out]),
                (2, "--width", ["page", "--width", "0"]), (2, "--out", ["render"]), (2, "--field", ["type", "--field", "x", "a"])):
            with self.subTest(reason):
                done = run(*arguments)
                self.assertEqual(done.returncode, status, done.stderr)
                self.assertEqual(len(done.stderr.splitlines()), 1, done.stderr)
                self.assertIn(reason, done.stderr)
        self.assertFalse(out.exists())


if __name__ == "__main__":
    unittest.main()
