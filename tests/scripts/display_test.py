# SPDX-License-Identifier: Apache-2.0
"""The window on a real X display: a mouse on its keys, a desk's keyboard, and what comes of it."""
from __future__ import annotations

import json
import os
import shutil
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

from vorpel_tool import answer

SKIPPED = 77
DATA = Path(os.environ["VORPEL_DATA"])
PROGRAM = Path(os.environ["VORPEL"]).with_name("vorpel-playground")
WIDTH, BAR = 375, 45


class DisplayTest(unittest.TestCase):
    def setUp(self) -> None:
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory()))
        read_end, write_end = os.pipe()
        self.server = subprocess.Popen(["Xvfb", "-displayfd", str(write_end), "-screen", "0", "1000x1000x24"],
                                       pass_fds=[write_end], stderr=subprocess.DEVNULL)
        self.addCleanup(self.server.wait)
        self.addCleanup(self.server.terminate)
        os.close(write_end)
        with os.fdopen(read_end) as stream:
            display = stream.readline().strip()
        self.surroundings = {**os.environ, "DISPLAY": f":{display}", "SDL_VIDEODRIVER": "x11",
                             "SDL_AUDIODRIVER": "dummy", "XDG_CONFIG_HOME": str(self.folder),
                             "XDG_DATA_HOME": str(self.folder)}

    def xdotool(self, *arguments: str) -> str:
        return subprocess.run(["xdotool", *arguments], env=self.surroundings, capture_output=True, text=True,
                              check=True, timeout=60).stdout

    def start(self, *arguments: str, **settings: bool) -> subprocess.Popen[str]:
        (self.folder / "vorpel").mkdir(exist_ok=True)
        (self.folder / "vorpel" / "preferences.json").write_text(json.dumps(settings), encoding="utf-8")
        window = subprocess.Popen([PROGRAM, "--width", str(WIDTH), "--scale", "1", "--print-text", *arguments],
                                  env=self.surroundings, stdout=subprocess.PIPE, text=True)
        self.addCleanup(window.kill)
        place = self.xdotool("search", "--sync", "--onlyvisible", "--name", "Vorpel playground", "getwindowgeometry",
                             "--shell")
        values = dict(line.split("=") for line in place.split())
        self.id, self.left, self.top, self.bottom = (values["WINDOW"], int(values["X"]), int(values["Y"]),
                                                     int(values["Y"]) + int(values["HEIGHT"]))
        self.xdotool("windowfocus", "--sync", self.id)
        time.sleep(1)  # the first frame
        return window

    def end(self, window: subprocess.Popen[str]) -> str:
        time.sleep(0.2)
        window.terminate()  # which the window takes for a click on its cross
        return window.communicate(timeout=30)[0].removesuffix("\n")

    def click(self, x: float, y: float) -> None:
        self.xdotool("mousemove", "--sync", str(round(x)), str(round(y)), "mousedown", "1", "sleep", "0.04",
                     "mouseup", "1", "sleep", "0.08")

    def touch(self, keys: str, language: str = "en") -> None:
        page, = answer("page", "--language", language, "--width", str(WIDTH), "--json")
        frames = {key["lowercaseOutput"] or key["type"]: key["frame"] for row in page["rows"] for key in row}
        for key in keys:
            if key == " ":
                time.sleep(1)  # a machine that is busy answers late, and a blank corrects what is known by then
            x, y, width, height = frames["Backspace" if key == "\b" else key]
            self.click(self.left + x + width / 2, self.bottom - page["height"] + y + height / 2)

    def open_emoji(self) -> None:
        page, = answer("page", "--language", "en", "--width", str(WIDTH), "--json")
        x, y, width, height = next(key["frame"] for row in page["rows"] for key in row if key["type"] == "LaunchEmoji")
        self.click(self.left + x + width / 2, self.bottom - page["height"] + y + height / 2)
        time.sleep(0.5)

    def tap_label(self, number: int, height: float) -> None:
        time.sleep(1)
        self.click(self.left + (number - 0.5) * WIDTH / 3, self.bottom - height - BAR / 2)

    def test_slips_are_corrected_and_words_taken_from_the_bar(self) -> None:
        window = self.start(Language="en", kAutoCorrection=True)
        self.touch("i dont knwo ")
        self.tap_label(1, 216)
        self.touch("yuo \b")
        text = self.end(window)
        self.assertRegex(text, r"\AI don't know \w+ yuo\Z", "the last correction was taken back")

    def swipe(self, left: float, top: float, x: float, y: float) -> None:
        """Of a mouse that draws what it has got hold of along, and lets go of it on the way."""
        moves = [part for step in range(1, 9)
                 for part in ("mousemove", str(round(left + x * step / 8)), str(round(top + y * step / 8)), "sleep", "0.016")]
        self.xdotool("mousemove", "--sync", str(round(left)), str(round(top)), "mousedown", "1", "sleep", "0.04", *moves,
                     "mouseup", "1", "sleep", "1.2")

    def test_emoji_are_opened_scrolled_paged_and_typed(self) -> None:
        window = self.start(Language="en")
        self.touch("hi")
        self.open_emoji()
        first = (self.left + 25, self.bottom - 216 + 20)
        self.click(*first)  # a face
        self.swipe(self.left + 300, self.bottom - 120, -150, 0)
        self.click(*first)  # an animal
        self.swipe(self.left + 180, self.bottom - 90, 0, -100)
        self.click(*first)  # another one, further down
        self.click(self.left + 40 + 295 * 8.5 / 9, self.bottom - 20)  # the icon of the flags
        time.sleep(0.5)
        self.click(*first)
        self.xdotool("mousemove", str(self.left + WIDTH - 20), str(self.bottom - 20), "mousedown", "1", "sleep", "0.8",
                     "mouseup", "1")
        self.click(*first)
        self.click(self.left + 20, self.bottom - 20)  # ABC
        self.touch("o")
        text = self.end(window)
        self.assertRegex(text, r"\A(Hi)?.*🇦🇫o\Z")
        settings = json.loads((self.folder / "vorpel" / "preferences.json").read_text(encoding="utf-8"))
        recent = settings["recent"]
        self.assertEqual([recent[0], *recent[2:]], ["🇦🇫", "🐌", "😀"])
        self.assertIn(recent[1], map(chr, range(0x1F40D, 0x1F43E)))

    def test_a_desks_keyboard_types_too(self) -> None:
        window = self.start(Language="en")
        self.touch("he")
        self.xdotool("type", "--delay", "30", "llo wor")
        self.xdotool("key", "BackSpace", "Home")
        self.touch("x")
        self.assertEqual(self.end(window), "XHello wo", "the first letter of a text is a capital")

    def test_arabic_is_typed_and_drawn(self) -> None:
        window = self.start(Language="ar")
        self.touch("سلام", "ar")
        picture = self.folder / "window.xwd"
        with picture.open("wb") as stream:
            subprocess.run(["xwd", "-id", self.id, "-silent"], env=self.surroundings, stdout=stream, check=True)
        self.assertGreater(len(set(picture.read_bytes()[-4 * WIDTH * 260:])), 30, "the keys are drawn")
        self.assertEqual(self.end(window), "سلام")


if __name__ == "__main__":
    wanted = ("Xvfb", "xdotool", "xwd")
    if not all(map(shutil.which, wanted)) or not (DATA / "en_US.dic").is_file():
        print(f"not to be tried without {', '.join(wanted)} and dictionaries in {DATA}")
        sys.exit(SKIPPED)
    unittest.main()
