# SPDX-License-Identifier: Apache-2.0
"""Small made-up trees, each with one thing against the map or nothing against it."""
import importlib.machinery
import importlib.util
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

TOOL = Path(__file__).resolve().parents[2] / "tools" / "check_imports"


def load_tool():
    loader = importlib.machinery.SourceFileLoader("check_imports", str(TOOL))
    spec = importlib.util.spec_from_loader(loader.name, loader)
    module = importlib.util.module_from_spec(spec)
    sys.modules[loader.name] = module
    keep, sys.dont_write_bytecode = sys.dont_write_bytecode, True
    try:
        loader.exec_module(module)
    finally:
        sys.dont_write_bytecode = keep
    return module


check_imports = load_tool()


class TreeTest(unittest.TestCase):
    def findings(self, files):
        """What the check says of a tree: {path: [what it includes, with its quotes]}."""
        with tempfile.TemporaryDirectory() as folder:
            root = Path(folder)
            for path, includes in files.items():
                (root / path).parent.mkdir(parents=True, exist_ok=True)
                (root / path).write_text("#pragma once\n" + "".join(f"#include {name}\n" for name in includes))
            return check_imports.check(root)

    def assert_one(self, files, expected):
        findings = self.findings(files)
        self.assertEqual(len(findings), 1, findings)
        self.assertIn(expected, findings[0])

    def test_a_tree_that_keeps_to_the_map(self):
        self.assertEqual([], self.findings({
            "include/vorpel/export.h": [],
            "src/text/utf8.h": ["<vector>", "<sys/mman.h>"],
            "src/dictionary/policy.h": ['"text/utf8.h"'],
            "src/dictionary/factory.cpp": ['"dictionary/v2/reader.h"'],
            "src/dictionary/v2/reader.h": ['"dictionary/policy.h"', "<unistd.h>"],
            "src/search/driver.h": ['"dictionary/policy.h"', '"proximity/keys.h"'],
            "src/proximity/keys.h": ['"text/utf8.h"'],
            "src/suggestion/vp_word_suggestions.h": ['"search/driver.h"', "<json/json.h>", '"vorpel/export.h"'],
            "src/ui/view.h": [],
            "src/ui/cairo/painter.cpp": ['"ui/view.h"', "<cairo.h>", "<pango/pangocairo.h>", "<librsvg/rsvg.h>"],
            "src/platform/characters.cpp": ["<unicode/uchar.h>"],
            "src/platform/posix/files.cpp": ["<sys/inotify.h>", "<json/json.h>"],
            "src/keyboard/session/typing.h": ['"suggestion/vp_word_suggestions.h"', '"ui/view.h"', "<string>"],
        }))

    def test_includes_that_go_upwards_or_sideways(self):
        upper = {"text": "storage", "storage": "node", "node": "dictionary", "dictionary": "search",
                 "proximity": "search", "search": "suggestion", "suggestion": "compiler", "compiler": "search",
                 "platform": "text", "keyboard": "suggestion"}
        for layer, target in upper.items():
            with self.subTest(layer=layer):
                self.assert_one({f"src/{layer}/a.h": [f'"{target}/b.h"'], f"src/{target}/b.h": []},
                                f'src/{layer}/a.h:2: {layer} must not include "{target}/b.h"')

    def test_layers_within_layers(self):
        for path in ("src/ui/a.cpp", "src/keyboard/a.cpp"):
            with self.subTest(path=path):
                self.assert_one({path: ['"ui/cairo/painter.h"'], "src/ui/cairo/painter.h": []},
                                'must not include "ui/cairo/painter.h"')
        self.assert_one({"src/ui/cairo/a.h": ['"keyboard/b.h"'], "src/keyboard/b.h": []},
                        'ui/cairo must not include "keyboard/b.h"')

    def test_foreign_headers(self):
        forbidden = {
            "src/search/typing/a.cpp": ["<json/json.h>", "<unicode/uchar.h>", "<gtest/gtest.h>", "<sys/socket.h>"],
            "src/platform/a.cpp": ["<unistd.h>", "<json/json.h>", "<cairo.h>"],
            "src/platform/posix/a.cpp": ["<unicode/uchar.h>", "<cairo.h>"],
            "src/ui/a.h": ["<cairo.h>", "<pango/pango.h>", "<unistd.h>", "<unicode/uchar.h>"],
            "src/ui/cairo/a.cpp": ["<unistd.h>", "<json/json.h>", "<SDL.h>"],
            "src/keyboard/theme/a.cpp": ["<cairo.h>", "<pango/pango.h>", "<sys/stat.h>", "<json/json.h>"],
        }
        for path, headers in forbidden.items():
            for header in headers:
                with self.subTest(path=path, header=header):
                    self.assert_one({path: [header]}, f"must not include {header}")
        self.assertEqual([], self.findings({"src/compiler/a.cpp": ["<json/json.h>"]}))

    def test_what_is_no_header_of_the_tree(self):
        self.assert_one({"src/text/a.cpp": ['"b.h"'], "src/text/b.h": []}, '"b.h" is no path from src/')
        self.assert_one({"src/text/a.cpp": ['"text/b.cpp"'], "src/text/b.cpp": []}, "is a source")
        self.assert_one({"src/text/a.cpp": ['"vorpel/gone.h"']}, "is not in include/")
        self.assert_one({"src/attic/a.cpp": ["<vector>"]}, "src/attic: this folder is not on the map")

    def test_cycles(self):
        self.assert_one({"src/text/a.h": ['"text/b.h"'], "src/text/b.h": ['"text/c.h"'],
                         "src/text/c.h": ['"text/b.h"']}, "files include each other: text/b.h -> text/c.h -> text/b.h")
        self.assert_one({"src/search/results/a.h": ['"search/typing/b.h"'], "src/search/typing/b.h": [],
                         "src/search/typing/c.h": ['"search/results/d.h"'], "src/search/results/d.h": []},
                        "folders include each other: search/results -> search/typing -> search/results")

    def test_the_command_fails_on_a_finding_and_only_then(self):
        with tempfile.TemporaryDirectory() as folder:
            source = Path(folder) / "src" / "text" / "a.cpp"
            source.parent.mkdir(parents=True)
            for content, status in (("#include <vector>\n", 0), ("# include <vendor/all.h>\n", 1)):
                source.write_text(content)
                done = subprocess.run([TOOL, "--root", folder], capture_output=True, text=True, check=False)
                self.assertEqual(done.returncode, status)
                self.assertEqual("src/text/a.cpp:1:" in done.stderr, status == 1)


if __name__ == "__main__":
    unittest.main()
