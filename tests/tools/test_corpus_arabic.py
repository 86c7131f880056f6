# SPDX-License-Identifier: Apache-2.0
"""The Arabic extractor: spelling, readers of package files, inflection, and the corrections of loose spelling."""
from __future__ import annotations

import contextlib
import gzip
import io
import struct
import sys
import tempfile
import unittest
import zipfile
from pathlib import Path
from unittest import mock

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tools" / "corpus"))

import arabic  # noqa: E402
import arabic_followers  # noqa: E402
import arabic_forms  # noqa: E402
import arabic_lists  # noqa: E402
import arabic_sources  # noqa: E402
import arabic_text  # noqa: E402
import common  # noqa: E402


def catalogue(entries: dict[str, str], order: str) -> bytes:
    """A message catalogue as the standard tools lay it out."""
    pairs = [(key.encode(), value.encode()) for key, value in sorted(entries.items())]
    at = 28 + 16 * len(pairs)
    tables, body = [[], []], b""
    for column in (0, 1):
        for pair in pairs:
            tables[column].append((len(pair[column]), at + len(body)))
            body += pair[column] + b"\0"
    header = struct.pack(order + "7I", 0x950412DE, 0, len(pairs), 28, 28 + 8 * len(pairs), 0, 0)
    return header + b"".join(struct.pack(order + "2I", *entry) for table in tables for entry in table) + body


class Spelling(unittest.TestCase):
    def test_marks_stretching_and_ligatures(self) -> None:
        for raw, expected in (("شُكْرًا", "شكرا"), ("مـرحـبـا", "مرحبا"), ("\ufefbتخف", "لاتخف"), ("\ufef7ن", "لأن"),
                              ("ٱلله", "الله"), ("هٰذا", "هذا")):
            self.assertEqual(arabic_text.plain(raw), expected)

    def test_segments_end_at_signs_digits_and_other_scripts(self) -> None:
        found = list(arabic_text.segments("هل تريد الخروج، أم 3 أيام من Firefox الآن؟ نعم"))
        self.assertEqual(found, [["هل", "تريد", "الخروج"], ["أم"], ["أيام", "من"], ["الآن"], ["نعم"]])

    def test_equal_texts_count_once_and_listed_sentences_not_at_all(self) -> None:
        with tempfile.NamedTemporaryFile("w", encoding="utf-8") as listed:
            listed.write(common.sentence_hash("ذهبت إلى البيت") + "\n")
            listed.flush()
            exclusion = common.Exclusion(Path(listed.name))
        words, pairs = arabic_text.count(["احفظ الملف", "احفظ الملف", "نعم يمكن. ذهبت إلى البيت!"], exclusion)
        self.assertEqual(dict(words), {"احفظ": 1, "الملف": 1, "نعم": 1, "يمكن": 1})
        self.assertEqual(dict(pairs), {("احفظ", "الملف"): 1, ("نعم", "يمكن"): 1})
        self.assertEqual(exclusion.hits, 1)


class Readers(unittest.TestCase):
    def setUp(self) -> None:
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.folder = Path(scratch.name)

    def put(self, name: str, data: bytes) -> Path:
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(data)
        return path

    def test_catalogue_of_either_byte_order(self) -> None:
        entries = {"": "Language: ar\n", "Open": "ا_فتح %s الآن", "f\0fs": "ملف\0ملفات"}
        for order in "<>":
            path = self.put("share/ar/LC_MESSAGES/x.mo", catalogue(entries, order))
            self.assertEqual(sorted(arabic_sources.catalogue_strings(path)), ["ا_فتح %s الآن", "ملف", "ملفات"])
            segments = [s for text in arabic_sources.catalogues(self.folder) for s in arabic_text.segments(text)]
            self.assertEqual(sorted(segments), [["افتح"], ["الآن"], ["ملف"], ["ملفات"]])

    def test_cut_off_catalogue_ends_quietly(self) -> None:
        whole = catalogue({"": "h", "Open": "افتح", "Save": "احفظ"}, "<")
        for length in range(len(whole)):
            path = self.put("cut.mo", whole[:length])
            self.assertLessEqual(len(list(arabic_sources.catalogue_strings(path))), 2)

    def test_language_pack_reads_values_without_markup(self) -> None:
        with zipfile.ZipFile(self.folder / "pack.xpi", "w") as pack:
            pack.writestr("a.ftl", "# تعليق\nclose = أغلق { $name } النافذة\n")
            pack.writestr("b.properties", "go=اذهب <b>إلى</b> هناك\n")
            pack.writestr("c.png", "صورة")
        segments = [s for text in arabic_sources.language_pack(self.folder) for s in arabic_text.segments(text)]
        self.assertEqual(segments, [["أغلق"], ["النافذة"], ["اذهب"], ["إلى"], ["هناك"]])

    def test_frequencies_move_through_the_glossary(self) -> None:
        text = "Dictionary\nHouse /haʊs/\nالبيت, منزل\nUnheard /x/\nمجهول\n"
        self.put("x/freedict-eng-ara.dict.dz", gzip.compress(text.encode()))
        moved = arabic_sources.transfer(self.folder, arabic_sources.Counter({"house": 8.0}))
        self.assertEqual(dict(moved), {"البيت": 2.0, "بيت": 2.0, "منزل": 4.0})

    def test_packed_list_shares_prefixes(self) -> None:
        packed = b"\x01" + "كتب".encode("iso-8859-6") + b"\x03" + "اب".encode("iso-8859-6") + b"\x01" + "قلم".encode("iso-8859-6")
        self.put("usr/ar.cwl.gz", gzip.compress(packed))
        self.assertEqual(list(arabic_sources.packed_word_list(self.folder)), ["كتب", "كتاب", "قلم"])


class Forms(unittest.TestCase):
    def forms(self, line: str) -> set[str]:
        return set(arabic_forms.verb_forms(arabic_forms.parse_verb(line.split())))

    def test_verbs(self) -> None:
        cases = {
            "عرف = عرف = ا t": ("تعرفين أعرفك عرفتني يعرفونه تعرفينه اعرف سأعرف", "أعرفني تعرفك"),
            "قال قل قول قل = o": ("قلت أقول قل قولي قولوا تقولين قالوا يقل", "قلي قالني"),
            "أعطى أعطي عطي عط أعط t": ("أعطت أعطوا أعطاني تعطيني أعطني يعطون أعطيتك", "أعطىني أعطىت"),
            "رأى رأي رى ر - t": ("رآني رأيتك أراك ترين يرون رأت", "رأاني"),
            "أخذ = أخذ = خذ t": ("آخذ سآخذ يأخذ خذه خذي", "أأخذ"),
            "انتظر = نتظر = = t": ("انتظر انتظرني انتظري ينتظرك", "نتظري"),
            "أعاد أعد عيد عد أعد t": ("أعيدي أعدت يعيد", "عيدي"),
            "بدأ = بدأ = ا o": ("بدأوا بدؤوا تبدئين", ""),
            "جاء جئ جيء جئ - i": ("جاؤوا جاءت يجيئون", "جاءوا يجيءون"),
        }
        for line, (wanted, unwanted) in cases.items():
            forms = self.forms(line)
            self.assertEqual([word for word in wanted.split() if word not in forms], [], line)
            self.assertEqual([word for word in unwanted.split() if word in forms], [], line)

    def test_nouns(self) -> None:
        cases = {
            "سيارة": ("السيارة سيارتي للسيارة وسيارته بالسيارة", "سيارةي سيارةا لالسيارة"),
            "ليلة": ("لليلة الليلة", "للليلة"),
            "كتاب": ("كتابا كتابك للكتاب", ""),
            "أصدقاء": ("أصدقائي أصدقاؤك أصدقائهم", "أصدقاءا أصدقاءي أصدقاؤي"),
        }
        for noun, (wanted, unwanted) in cases.items():
            forms = arabic_forms.noun_forms(noun)
            self.assertEqual([word for word in wanted.split() if word not in forms], [], noun)
            self.assertEqual([word for word in unwanted.split() if word in forms], [], noun)

    def test_errors_name_the_place(self) -> None:
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder) / "x.txt"
            for text, reason in (("[vreb 1e-3]\n", "x.txt:1"), ("كتاب\n", "x.txt:1"), ("[verb 1e-3]\nقال قل\n", "six")):
                path.write_text(text, encoding="utf-8")
                with self.assertRaisesRegex(ValueError, reason):
                    arabic_forms.forms_of(path)


class LooseSpellings(unittest.TestCase):
    def settle(self, probabilities: dict[str, float], protected: tuple[str, ...] = (), rejected: tuple[str, ...] = (),
               by_hand: dict[str, str] | None = None) -> tuple[dict[str, str], arabic_lists.LooseSpelling]:
        loose = arabic_lists.LooseSpelling(probabilities, protected, set(rejected), by_hand or {})
        loose.add_alefs()
        loose.add_endings(100)
        loose.add_needless_hamzas(100)
        return {**loose.alefs, **loose.exact}, loose

    def test_bare_alef_goes_to_the_likeliest(self) -> None:
        corrections, _ = self.settle({"أن": .02, "إن": .01, "أأن": 1e-9})
        self.assertEqual(corrections["ان"], "أن")

    def test_a_word_gives_way_only_when_it_must(self) -> None:
        for p, protected, rejected, gives_way in ((1e-5, (), (), True), (5e-4, (), (), False),
                                                   (5e-4, (), ("اذا",), True), (1e-5, ("اذا",), (), False)):
            corrections, loose = self.settle({"إذا": 1e-3, "اذا": p}, protected, rejected)
            self.assertEqual("اذا" in corrections, gives_way)
            self.assertEqual("اذا" in loose.dropped, gives_way)
        corrections, _ = self.settle({"أستنبط": 5e-7, "استنبط": 1e-8})
        self.assertNotIn("استنبط", corrections)
        # A rare word is found by the key of the alef; its bare spelling is no word all the same.
        corrections, loose = self.settle({"آلات": 5e-6, "الات": 1e-7})
        self.assertNotIn("الات", corrections)
        self.assertEqual(loose.dropped, {"الات"})

    def test_a_word_that_was_not_seen_is_followed_as_its_kind_is(self) -> None:
        counted = {("الباب", "في"): 30.0, ("الباب", "كبير"): 70.0, ("النار", "في"): 2.0, ("كتبوا", "إلى"): 50.0}
        with tempfile.TemporaryDirectory() as name:
            data = Path(name)
            (data / "verbs.txt").write_text("[verb 1e-3]\nكتب = كتب = ا t\n", encoding="utf-8")
            (data / "names.txt").write_text("[name 1e-3]\nسامي\n", encoding="utf-8")
            (data / "pairs.txt").write_text("المفتاح\tفي\n", encoding="utf-8")
            words = {"الباب": 1e-4, "السقف": 1e-4, "الرف": 1e-9, "الجدار": 1e-4, "كتبت": 1e-4, "سامي": 1e-4}
            found = arabic_followers.shared(data, counted, {"في": 5e-3, "إلى": 5e-3}, words, {"الجدار"})
        # Seen often, too rare, dropped, or of a kind of which nothing is known: nothing is added.
        self.assertEqual({first for first, _ in found}, {"السقف", "كتبت"})
        self.assertAlmostEqual(found["السقف", "في"], 100 * (30 + 2 + 12) / (100 + 2 + 12))
        self.assertAlmostEqual(sum(n for (first, _), n in found.items() if first == "السقف"), 100)
        self.assertEqual(found["كتبت", "إلى"], 100)

    def test_people_come_before_rules(self) -> None:
        corrections, loose = self.settle({"أنا": .01, "إنا": .1, "هاذا": 1e-6}, by_hand={"انا": "أنا", "هاذا": "هذا"})
        self.assertEqual(corrections.get("انا"), "أنا")
        self.assertNotIn("هاذا", corrections)
        self.assertEqual(loose.dropped, {"هاذا"})

    def test_last_letters_and_needless_hamzas(self) -> None:
        corrections, _ = self.settle({"الأسرة": 1e-4, "في": .01, "كتابي": 1e-5, "كتابه": 1e-5, "كتابة": 1e-5,
                                      "الاجتماع": 1e-5, "البيت": 1e-4})
        for typed, word in (("الأسره", "الأسرة"), ("الاسره", "الأسرة"), ("فى", "في"), ("كتابى", "كتابي"),
                            ("الإجتماع", "الاجتماع"), ("الأجتماع", "الاجتماع")):
            self.assertEqual(corrections.get(typed), word)
        self.assertFalse({"كتابه", "ألبيت", "إلبيت"} & set(corrections))


class HandWrittenLists(unittest.TestCase):
    """The lists in data/ar as the compiler and people want them."""

    def lines(self, name: str) -> list[str]:
        text = (arabic.DATA / name).read_text(encoding="utf-8")
        return [line for line in text.splitlines() if line and not line.startswith(("#", "["))]

    def test_every_word_is_spelled_as_text_is(self) -> None:
        for name in ("seed.txt", "pairs.txt", "nouns.txt", "names.txt", "offensive.txt"):
            for line in self.lines(name):
                for word in line.split():
                    self.assertEqual(word, arabic_text.plain(word), name)
                    self.assertRegex(word, f"^{arabic_text.WORD.pattern}$", name)

    def test_amounts_and_repetitions(self) -> None:
        seed = [word for line in self.lines("seed.txt") for word in line.split()]
        self.assertEqual(len(seed), len(set(seed)))
        self.assertGreaterEqual(len(seed), 2000)
        self.assertGreaterEqual(sum(len(line.split()) - 1 for line in self.lines("pairs.txt")), 1200)

    def test_corrections_lead_away_from_no_seed_word(self) -> None:
        seed = set(arabic_lists.read_seed(arabic.DATA / "seed.txt"))
        typed = [line.split("\t")[0] for line in self.lines("corrections.tsv")]
        self.assertEqual(len(typed), len(set(typed)))
        self.assertEqual(sorted(set(typed) & seed), [])


class WholeRun(unittest.TestCase):
    def test_without_packages_and_program_the_hand_written_lists_remain_and_repeat(self) -> None:
        with tempfile.TemporaryDirectory() as folder:
            outputs = []
            for name in ("a", "b"):
                out = Path(folder) / name
                with mock.patch.object(sys, "argv", ["arabic.py", "--packages", folder, "--out", str(out)]), \
                        contextlib.redirect_stderr(io.StringIO()):
                    self.assertEqual(arabic.main(), 0)
                outputs.append({path.name: path.read_bytes() for path in out.iterdir()})
            self.assertEqual(outputs[0], outputs[1])
            forms = outputs[0]["forms.tsv"].decode()
            self.assertIn("أعرفك\t", forms)
            self.assertIn("اعطيك\tأعطيك\n", "".join(
                data.decode() for name, data in outputs[0].items() if name == "alef.tsv"))


if __name__ == "__main__":
    unittest.main()
