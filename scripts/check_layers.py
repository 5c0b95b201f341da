#!/usr/bin/env python3
"""Reads the rules of docs/architecture.md off the sources: who may include whom, no window in an engine, no
nested event loop outside the shell, no timer outside the clock. Prints every breach and fails if there is one.

check_layers.py [TREE]        checks a tree, by default the one this script lies in
check_layers.py --self-test   checks the check"""
import re
import sys
import tempfile
from pathlib import Path

# Folder -> folders that it may include. A folder may always include itself.
BELOW_CATALOGUE = {"base", "localisation", "link"}
BELOW_PARAMETERS = BELOW_CATALOGUE | {"catalogue", "spreadsheet"}
ABOVE_PARAMETERS = BELOW_PARAMETERS | {"parameters"}
MAY_INCLUDE = {
    "base": set(),
    "localisation": {"base"},
    "ui": {"base"},
    "manual": {"base"},
    "drive": {"base"},
    "spreadsheet": {"base"},
    "link": {"base", "localisation"},
    "catalogue": BELOW_CATALOGUE,
    "parameters": BELOW_PARAMETERS,
    "quicksetup": ABOVE_PARAMETERS,
    "diagnostics": ABOVE_PARAMETERS,
    "commissioning": ABOVE_PARAMETERS | {"diagnostics"},
    "console": BELOW_CATALOGUE | {"catalogue"},
}
ALL_FOLDERS = set(MAY_INCLUDE) | {"shell", "tour"}
MAY_INCLUDE["shell"] = set(MAY_INCLUDE)
MAY_INCLUDE["tour"] = ALL_FOLDERS

GROUND_HEADERS = {"base/drive_family.h", "link/com_port.h"}

# (including file, included header) -> why. One that nobody needs any longer fails the check.
EXCEPTIONS = {}

WINDOWLESS_QT = {"QtCore", "QtSerialPort"}
SOURCE_SUFFIXES = {".h", ".cpp"}

INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)', re.M)
MODULE = re.compile(r"(Qt[A-Z]\w*)/|(QtGui|QtWidgets|QtPrintSupport|QtSvg|QtNetwork|QtTest)$")
NOT_CODE = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])*\'', re.S)
NESTED_LOOP = re.compile(r"\b(exec|processEvents)\s*\(")
TIMER = re.compile(r"\b(QTimer|QBasicTimer|QChronoTimer)\b|\bstartTimer\s*\(")
SOURCES_OF = re.compile(r"kelvane_sources\(\s*(\w+)([^)]*)\)")


class Tree:
    def __init__(self, root, exceptions=None):
        self.root = root
        self.exceptions = EXCEPTIONS if exceptions is None else exceptions
        self.used_exceptions = set()
        self.breaches = []
        self.listed_in_engine = set(self.engine_files())

    def engine_files(self):
        for lists in self.root.glob("src/**/CMakeLists.txt"):
            for target, files in SOURCES_OF.findall(lists.read_text(encoding="utf-8")):
                if target in ("kelvane_base", "kelvane_engine"):
                    yield from ((lists.parent / name).resolve() for name in files.split())

    def check(self):
        files = [path for top in ("src", "drive", "tour") for path in sorted((self.root / top).rglob("*"))
                 if path.suffix in SOURCE_SUFFIXES]
        for path in files:
            self.check_file(path)
        for edge in sorted(set(self.exceptions) - self.used_exceptions):
            self.breaches.append(f"{edge[0]}: the exception for {edge[1]} is no longer needed")
        return len(files)

    def check_file(self, path):
        name = path.relative_to(self.root).as_posix()
        folder = name.split("/")[1] if name.startswith("src/") else name.split("/")[0]
        text = path.read_text(encoding="utf-8")
        if folder not in MAY_INCLUDE:
            self.breaches.append(f"{name}: the folder has no row in the table of layers")
            return
        form = path.stem.endswith("_form")
        for quoted, angled in INCLUDE.findall(text):
            if quoted:
                self.check_edge(name, folder, form, quoted)
            elif self.is_engine(path, folder, form):
                self.check_window_header(name, angled)
        self.check_code(name, folder, NOT_CODE.sub(" ", text))

    def check_edge(self, name, folder, form, header):
        if header in GROUND_HEADERS or header.endswith(".moc"):
            return
        target = header.split("/")[0] if "/" in header else None
        if target not in ALL_FOLDERS:
            self.breaches.append(f'{name}: "{header}" is not written as "folder/file.h"')
            return
        if target == folder or target in MAY_INCLUDE[folder] or (form and target == "ui"):
            return
        if (name, header) in self.exceptions:
            self.used_exceptions.add((name, header))
            return
        self.breaches.append(f"{name}: {folder} may not include {header}")

    def is_engine(self, path, folder, form):
        return path.resolve() in self.listed_in_engine or not (form or folder in ("ui", "shell", "tour"))

    # Plain names such as <QWidget> do not compile in an engine; those written with their module do.
    def check_window_header(self, name, header):
        module = MODULE.match(header)
        if module and (module[1] or module[2]) not in WINDOWLESS_QT:
            self.breaches.append(f"{name}: an engine may not include <{header}>")

    def check_code(self, name, folder, code):
        nested = NESTED_LOOP.search(code)
        if name.startswith("src/") and folder != "shell" and nested:
            self.breaches.append(f"{name}: {nested[0]} stands outside src/shell")
        timer = TIMER.search(code)
        if not name.startswith("tour/") and name != "src/base/qt_tick_clock.cpp" and timer:
            self.breaches.append(f"{name}: {timer[0]} stands outside src/base/qt_tick_clock.cpp")


SELF_TEST_FILES = {
    "src/base/ground.h": "// exec( in a comment, QTimer too\n#include <QtGlobal>\n#include <QtCore/QString>\n",
    "src/base/up.h": '#include "link/frame.h"\n',
    "src/base/qt_tick_clock.cpp": "#include <QTimer>\nQTimer t;\n",
    "src/link/frame.h": '#include "base/ground.h"\n#include "localisation/lang.h"\nauto s = "QTimer";\n',
    "src/link/late.cpp": "void f() { startTimer(5); }\n",
    "src/link/near.cpp": '#include "frame.h"\n',
    "src/parameters/box.cpp": "#include <QtWidgets/QMessageBox>\n",
    "src/parameters/table_form.cpp": '#include <QtWidgets/QDialog>\n#include "ui/grid.h"\n',
    "src/parameters/table.cpp": '#include "ui/grid.h"\n',
    "src/diagnostics/loop_form.cpp": "void f() { dialog.exec(); }\n",
    "src/diagnostics/pump_form.cpp": "void f() { QCoreApplication::processEvents(); }\n",
    "src/shell/boxes.cpp": '#include <QMessageBox>\n#include "drive/x.h"\nint i = box.exec();\n',
    "src/diagnostics/keypad/keypad.h": '#include "parameters/table/sheet.h"\n#include "console/page.h"\n',
    "src/diagnostics/keypad/keypad_form.h": '#include "ui/lamp.h"\n#include "diagnostics/keypad/keypad.h"\n',
    "src/shell/CMakeLists.txt": "kelvane_sources(kelvane_engine\n  project.h project.cpp)\n",
    "src/shell/project.cpp": "#include <QtGui>\n",
    "src/attic/x.h": "\n",
    "drive/motor.h": '#include "base/ground.h"\n#include "link/com_port.h"\n',
    "drive/peek.h": '#include "link/frame.h"\n',
    "tour/walk.cpp": '#include "shell/main_form.h"\n#include <QTimer>\nQTimer t;\n',
}
SELF_TEST_BREACHES = {
    "src/base/up.h", "src/link/late.cpp", "src/link/near.cpp", "src/parameters/box.cpp",
    "src/parameters/table.cpp", "src/diagnostics/loop_form.cpp", "src/diagnostics/pump_form.cpp",
    "src/diagnostics/keypad/keypad.h", "src/shell/project.cpp", "src/attic/x.h",
    "drive/peek.h",
}


def self_test():
    with tempfile.TemporaryDirectory() as folder:
        for name, text in SELF_TEST_FILES.items():
            path = Path(folder) / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")
        tree = Tree(Path(folder))
        tree.check()
        found = sorted(breach.split(":")[0] for breach in tree.breaches)
        assert found == sorted(SELF_TEST_BREACHES), found

        needed, stale = ("drive/peek.h", "link/frame.h"), ("drive/motor.h", "link/frame.h")
        tree = Tree(Path(folder), {needed: "a reason", stale: "a reason"})
        tree.check()
        found = sorted(breach.split(":")[0] for breach in tree.breaches)
        expected = SELF_TEST_BREACHES - {"drive/peek.h"} | {"drive/motor.h"}
        assert found == sorted(expected), found
    print("check_layers: the self-test holds")


def main():
    if sys.argv[1:] == ["--self-test"]:
        self_test()
        return 0
    root = Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).parent.parent
    tree = Tree(root.resolve())
    count = tree.check()
    for breach in tree.breaches:
        print(breach)
    print(f"{count} source files, {len(tree.breaches)} breaches of the layers")
    return 1 if tree.breaches or count == 0 else 0


sys.exit(main())
