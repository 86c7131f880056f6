# SPDX-License-Identifier: Apache-2.0
"""Hold the dictionaries that were built to the figures in tests/accuracy/floors.tsv.

The project's own sets lie beside the floors. The larger sets of an evaluation folder (VORPEL_EVAL_DIR)
are held to theirs where that folder is; every Nth row of them, so that the whole takes a minute or two.
"""
from __future__ import annotations

import os
import sys
from dataclasses import dataclass
from pathlib import Path

from vorpel_tool import answer

SKIPPED = 77
OWN_SETS = Path(__file__).resolve().parent.parent / "accuracy"
DATA = Path(os.environ["VORPEL_DATA"])


@dataclass(frozen=True)
class Floor:
    set_name: str
    language: str
    every: int
    group: str
    measure: str
    relation: str
    limit: float

    def holds(self, figure: float) -> bool:
        return figure >= self.limit if self.relation == ">=" else figure <= self.limit


def read_floors() -> list[Floor]:
    lines = (OWN_SETS / "floors.tsv").read_text(encoding="utf-8").splitlines()
    fields = [line.split("\t") for line in lines[1:] if line and not line.startswith("#")]
    return [Floor(name, language, int(every), group, measure, relation, float(limit))
            for name, language, every, group, measure, relation, limit in fields]


def find_set(name: str) -> Path | None:
    evaluation = os.environ.get("VORPEL_EVAL_DIR", "")
    for folder in (OWN_SETS, *([Path(evaluation)] if evaluation else [])):
        if (folder / name).is_file():
            return folder / name
    return None


def main() -> int:
    if not (DATA / "en_US.dic").is_file() or not (DATA / "ar_SA.dic").is_file():
        print(f"no dictionaries in {DATA}")
        return SKIPPED
    results: dict[tuple[str, str, int], dict] = {}
    failed = 0
    for floor in read_floors():
        path = find_set(floor.set_name)
        if path is None:
            print(f"{floor.set_name}: not here, passed over")
            continue
        key = (floor.set_name, floor.language, floor.every)
        if key not in results:
            results[key], = answer("eval", "--json", "--language", floor.language, "--every", str(floor.every),
                                   "--set", path)
        figure = results[key][floor.group][floor.measure]
        verdict = "ok" if floor.holds(figure) else "MISSED"
        failed += verdict != "ok"
        print(f"{floor.set_name} {floor.group}: {floor.measure} {figure} ({floor.relation} {floor.limit}) {verdict}")
    return 1 if failed else 0


if __name__ == "__main__":
    try:
        sys.exit(main())
    except AssertionError as error:
        sys.exit(f"accuracy: {error}")
