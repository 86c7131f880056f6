# SPDX-License-Identifier: Apache-2.0
"""The built window program from start to end, on a display that only SDL knows of."""
from __future__ import annotations

import json
import os
import subprocess
import tempfile
import unittest
from pathlib import Path

PROGRAM = Path(os.environ["VORPEL"]).with_name("vorpel-playground")


class WindowTest(unittest.TestCase):
    def setUp(self) -> None:
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def start(self, *arguments: str, **environment: str) -> subprocess.CompletedProcess[str]:
        surroundings = {**os.environ, "SDL_VIDEODRIVER": "dummy", "SDL_AUDIODRIVER": "dummy",
                        "XDG_CONFIG_HOME": str(self.folder), "XDG_DATA_HOME": str(self.folder), **environment}
        return subprocess.run([PROGRAM, *arguments], env=surroundings, capture_output=True, text=True, check=False,
                              timeout=120)

    def settings(self) -> dict:
        return json.loads((self.folder / "vorpel" / "preferences.json").read_text(encoding="utf-8"))

    def test_it_shows_a_frame_and_ends_by_itself(self) -> None:
        for arguments in ([], ["--dark", "--width", "1024"], ["--language", "ar", "--scale", "1.5"]):
            done = self.start("--times", "--quit-after", "0.3", *arguments)
            self.assertEqual((done.returncode, done.stdout), (0, ""), done.stderr)
            self.assertRegex(done.stderr, r"\Afirst frame: [0-9.]+ ms\n\Z")

    def test_the_language_is_remembered(self) -> None:
        for arguments, language in ((["--language", "ar"], "ar"), ([], "ar"), (["--language", "en"], "en")):
            self.assertEqual(self.start("--quit-after", "0.1", *arguments).returncode, 0)
            self.assertEqual(self.settings()["Language"], language)

    def test_what_cannot_be_is_said_in_one_line(self) -> None:
        displayless = {"SDL_VIDEODRIVER": "none-such"}
        homeless = {"XDG_CONFIG_HOME": "", "HOME": ""}
        cases = ((["--width", "10"], {}, 2), (["--langauge", "en"], {}, 2), (["--quit-after", "0"], {}, 2),
                 (["--theme", "none.json"], {}, 1),
                 ([], displayless, 1), ([], homeless, 1))
        for arguments, environment, status in cases:
            with self.subTest(arguments=arguments, environment=environment):
                done = self.start(*arguments, **environment)
                self.assertEqual((done.returncode, done.stdout), (status, ""))
                self.assertRegex(done.stderr, r"\Avorpel-playground: [^\n]+\n\Z")

    def test_help_has_an_example(self) -> None:
        done = self.start("--help")
        self.assertEqual(done.returncode, 0)
        self.assertIn("Example: vorpel-playground", done.stdout)


if __name__ == "__main__":
    unittest.main()
