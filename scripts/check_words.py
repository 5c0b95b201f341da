#!/usr/bin/env python3
"""Keeps words out of the tree that mean nothing to its readers: references to papers that do not lie in it, and
paths of the machine on which something was written. Looks at contents and names of all files under version
control and at the messages of the history.

check_words.py                checks the tree this script lies in
check_words.py --self-test    checks the check"""
import re
import subprocess
import sys
from pathlib import Path

# Written in pieces, so that the script does not find itself.
PAPER = "spec"
WORDS = re.compile(
    r"\bpart [0-9]+\.[0-9]+\b"
    rf"|\b{PAPER}\.md\b|\b{PAPER}ifications?\b|\bthe {PAPER}\b"
    r"|\bseed" + r" document", re.I)
# This word in a comment speaks of a paper that nobody has; the rule or its reason is what a reader needs.
TOLD = re.compile(r"\bto" + r"ld\b", re.I)
COMMENTS = {".h": re.compile(r"//(.*)|/\*(.*?)\*/"), ".cpp": re.compile(r"//(.*)|/\*(.*?)\*/"),
            ".md": re.compile(r"(.*)"), ".txt": re.compile(r"#(.*)"), ".py": re.compile(r"#(.*)"),
            ".sh": re.compile(r"#(.*)"), "": re.compile(r"#(.*)")}
STRING = re.compile(r'"(?:\\.|[^"\\])*"')
NAMES = re.compile(rf"{PAPER}\.md|part[-_ ]?[0-9]+[._][0-9]+", re.I)
PATHS = re.compile(r"/(?:work|farm|tmp/\w[^ /]*)/[A-Za-z.]|(?<![\w.$}~-])/root/[A-Za-z.]")
SKIPPED = re.compile(r"(^|/)LICENSE[^/]*$|\.svg$")


def git(root, *arguments):
    return subprocess.run(["git", "-C", str(root), *arguments], check=True, capture_output=True).stdout


def found_in(text, patterns):
    for number, line in enumerate(text.splitlines(), 1):
        for pattern in patterns:
            match = pattern.search(line)
            if match:
                yield number, match[0]


def told_in(name, text):
    suffix = Path(name).suffix
    if suffix not in COMMENTS or name.startswith("Language file/"):
        return
    for number, line in enumerate(text.splitlines(), 1):
        code = STRING.sub('""', line) if suffix in (".h", ".cpp") else line
        if any(TOLD.search(comment[0]) for comment in COMMENTS[suffix].finditer(code)):
            yield number


def check(root):
    breaches = []
    names = [name.decode() for name in git(root, "ls-files", "-z").split(b"\0") if name]
    for name in names:
        if NAMES.search(name):
            breaches.append(f"{name}: a name that does not belong here")
        path = root / name
        if SKIPPED.search(name) or not path.is_file():
            continue
        content = path.read_bytes()
        if b"\0" in content[:8000]:
            continue
        text = content.decode("utf-8", "replace")
        for number, word in found_in(text, (WORDS, PATHS)):
            breaches.append(f"{name}:{number}: {word!r} does not belong here")
        for number in told_in(name, text):
            breaches.append(f"{name}:{number}: a comment says the rule or its reason, not that it was to" "ld")
    history = git(root, "log", "--format=%h %s%n%b").decode("utf-8", "replace")
    for _, word in found_in(history, (WORDS,)):
        breaches.append(f"history: {word!r} does not belong in a message")
    return len(names), breaches


def self_test():
    bad = ["see P" + "art 1.2", "as the " + PAPER + " says", PAPER + "ification", PAPER + ".md", "seed" + " document",
           "/ro" + "ot/x", '"/wo' + 'rk/shared/x"', "cd /tm" + "p/bash_jobs.0/a"]
    good = ["part 3 of 4", "special", "specific", "a part 1.", "inspect", "build/root/x", "/dev/ttyUSB0", "/tmp/x",
            "/home/anna/x", "/usr/share/kelvane"]
    for text in bad:
        assert list(found_in(text, (WORDS, PATHS))), text
    for text in good:
        assert not list(found_in(text, (WORDS, PATHS))), text
    word = "to" + "ld"
    for name, text in [("a.h", f"int x;  // as {word}"), ("b.cpp", f"/* {word} */"), ("c.md", f"as {word}"),
                       ("run", f"# the {word} order")]:
        assert list(told_in(name, text)), name
    for name, text in [("a.h", f"QString {word};"), ("b.cpp", f'f("// {word}");'), ("c.cpp", "// bold, toldi")]:
        assert not list(told_in(name, text)), name
    assert NAMES.search("docs/P" + "art_1.2.txt") and not NAMES.search("src/link/com_port.h")
    print("check_words: the self-test holds")


def main():
    if sys.argv[1:] == ["--self-test"]:
        self_test()
        return 0
    count, breaches = check(Path(__file__).resolve().parent.parent)
    for breach in breaches:
        print(breach)
    print(f"{count} files, {len(breaches)} words that do not belong here")
    return 1 if breaches or count == 0 else 0


sys.exit(main())
