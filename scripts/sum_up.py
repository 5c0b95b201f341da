#!/usr/bin/env python3
"""Adds up what the test programs of the given build folders reported: "N passed, N failed".

Cases come from the GoogleTest reports in <folder>/cases, programs from CTest's <folder>/programs.xml. A program
that failed without a failed case (it crashed or took too long) counts as one failure, a program that is no
GoogleTest as one test. Skipped cases are named. A folder without reports counts as one failure."""
import sys
import xml.etree.ElementTree as xml
from pathlib import Path


def cases_of(report):
    root = xml.parse(report).getroot()
    cases = [case for case in root.iter("testcase") if case.get("status") == "run"]
    failed = sum(1 for case in cases if case.find("failure") is not None)
    skipped = sum(1 for case in cases if case.find("skipped") is not None)
    return len(cases) - failed - skipped, failed, skipped


def add_up(folder):
    programs = folder / "programs.xml"
    if not programs.exists():
        return 0, 1, 0
    reports = {path.stem: cases_of(path) for path in (folder / "cases").glob("*.xml")}
    passed, failed, skipped = (sum(column) for column in zip(*reports.values())) if reports else (0, 0, 0)
    for program in xml.parse(programs).getroot().iter("testcase"):
        bad = program.get("status") == "fail"
        report = reports.get(program.get("name"))
        if bad and (report is None or report[1] == 0):
            failed += 1
        elif not bad and report is None:
            passed += 1
    return passed, failed, skipped


def main():
    total = [0, 0, 0]
    for folder in map(Path, sys.argv[1:]):
        for index, count in enumerate(add_up(folder)):
            total[index] += count
    skipped = f", {total[2]} skipped" if total[2] else ""
    print(f"{total[0]} passed, {total[1]} failed{skipped}")


main()
