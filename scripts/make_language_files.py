#!/usr/bin/env python3
"""Makes the language files from the tables in scripts/languages.

A table is UTF-8 text with one tab between columns: key, EN, CHT, CHS, RU, DE. A translator edits the tables
(any spreadsheet opens them) and runs this script; the files in "Language file" are never edited by hand.

    make_language_files.py [FOLDER]     writes to FOLDER, by default to "Language file" of the project
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
TABLES = ROOT / "scripts" / "languages"

CODE_PAGES = {"EN": "cp1252", "CHT": "cp950", "CHS": "gbk", "RU": "cp1251", "DE": "cp1252"}

# Header and table, in the order in which they stand in a file.
SECTIONS = [
    ("[Language]", "language"),
    ("[Main Form]", "main_form"),
    ("[ComSetup Form]", "comsetup_form"),
    ("[QSource Form]", "qsource_form"),
    ("[QuickSetup Form]", "quicksetup_form"),
    ("[Parameter Form]", "parameter_form"),
    ("[Trend Form]", "trend_form"),
    ("[Mtype]", "mtype"),
    ("[Stype]", "stype"),
    ("[Btype]", "btype"),
    ("[Ltype]", "ltype"),
    ("[Vtype]", "vtype"),
    ("[Ftype]", "ftype"),
    ("[Etype]", "etype"),
    ("[ELtype]", "eltype"),
    ("[VLtype]", "vltype"),
    ("[Monitor Form]", "monitor_form"),
    ("[AutoTuning Form]", "autotuning_form"),
    ("[PID Form]", "pid_form"),
    ("[Message]", "message"),
]


class TableError(Exception):
    """Says which table and line are wrong."""


def group_and_number(key):
    group, number = re.fullmatch(r"([A-Za-z]+)(\d\d)?", key).groups()
    return group, int(number or 0)


def read_table(name):
    """Rows of a table as (key, {language: text}); the keys of a group must count 01, 02, and so on."""
    path = TABLES / f"{name}.tsv"
    head, *lines = path.read_text(encoding="utf-8").splitlines()
    columns = head.split("\t")
    if columns != ["key", *CODE_PAGES]:
        raise TableError(f"{path.name}: the first line must name the columns key, {', '.join(CODE_PAGES)}")
    rows, last = [], ("", 0)
    for number, line in enumerate(lines, start=2):
        cells = line.split("\t")
        if len(cells) != len(columns):
            raise TableError(f"{path.name}:{number}: {len(cells)} columns instead of {len(columns)}")
        this = group_and_number(cells[0])
        if this[1] and this[1] != (last[1] + 1 if this[0] == last[0] else 1):
            raise TableError(f"{path.name}:{number}: {cells[0]} is out of order")
        last = this
        rows.append((cells[0], dict(zip(columns[1:], cells[1:]))))
    return rows


def section_lines(header, rows, language):
    """A section of one language; an empty line stands between groups, for the reader counts lines."""
    lines, last_group = [header], None
    for key, texts in rows:
        group = group_and_number(key)[0]
        if last_group not in (None, group):
            lines.append("")
        last_group = group
        lines.append(f"{key}={texts[language]}")
    return lines


def file_bytes(language):
    lines = []
    for header, name in SECTIONS:
        if lines:
            lines.append("")
        lines += section_lines(header, read_table(name), language)
    text = "".join(line + "\r\n" for line in lines)
    try:
        return text.encode(CODE_PAGES[language])
    except UnicodeEncodeError as error:
        wrong = text[error.start : error.end]
        raise TableError(f"{language}: {wrong!r} is not in {CODE_PAGES[language]}") from error


def main():
    folder = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else ROOT / "Language file"
    try:
        files = {f"Lang_{language}.txt": file_bytes(language) for language in CODE_PAGES}
    except TableError as error:
        sys.exit(str(error))
    folder.mkdir(parents=True, exist_ok=True)
    for name, content in files.items():
        (folder / name).write_bytes(content)


if __name__ == "__main__":
    main()
