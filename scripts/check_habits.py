#!/usr/bin/env python3
"""Runs clang-tidy over the sources that changed since the last release, with the flags of the build in build/dev.

The release is the commit named in scripts/last_release, so that a fresh clone without tags knows it too. A clone
that does not hold that commit is looked at whole, as with --all. A changed header is looked at through the sources
that lie beside it under its name."""
import json
import os
import re
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
BUILD = ROOT / "build/dev"
TIDY = ROOT / "build/tidy"
FOLDERS = ("src/", "drive/", "tour/")
# Of the compiler that builds; precompiled headers are each compiler's own.
FOREIGN_FLAGS = re.compile(r" -include \S*cmake_pch\.hxx| -Winvalid-pch| -fpch-preprocess")


def git(*arguments):
    done = subprocess.run(["git", "-C", ROOT, *arguments], capture_output=True, text=True)
    return done.stdout.split("\n") if done.returncode == 0 else None


def changed():
    mark = (ROOT / "scripts/last_release").read_text(encoding="utf-8").split()[0]
    names = git("diff", "--name-only", "--diff-filter=d", mark)
    if names is None:
        print(f"The commit {mark} of the last release is not here: everything is looked at.")
    return names


def wanted(entry, names):
    name = Path(entry["file"]).resolve().relative_to(ROOT).as_posix()
    if not name.startswith(FOLDERS):
        return False
    return names is None or name in names or name.removesuffix(".cpp") + ".h" in names


def look_at(file):
    done = subprocess.run(["clang-tidy", "-p", TIDY, "--quiet", "--warnings-as-errors=*", file],
                          capture_output=True, text=True)
    if done.returncode != 0:
        print(done.stdout, flush=True)
    return done.returncode == 0


def main():
    names = None if sys.argv[1:] == ["--all"] else changed()
    entries = json.loads((BUILD / "compile_commands.json").read_text(encoding="utf-8"))
    entries = [entry for entry in entries if Path(entry["file"]).resolve().is_relative_to(ROOT)
               and wanted(entry, names)]
    for entry in entries:
        entry["command"] = FOREIGN_FLAGS.sub("", entry["command"]).removeprefix("ccache ")
    TIDY.mkdir(parents=True, exist_ok=True)
    (TIDY / "compile_commands.json").write_text(json.dumps(entries), encoding="utf-8")
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        good = list(pool.map(look_at, [entry["file"] for entry in entries]))
    print(f"{len(good)} sources looked at, {good.count(False)} with bad habits")
    return 0 if all(good) else 1


sys.exit(main())
