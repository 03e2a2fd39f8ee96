#!/usr/bin/env python3
"""A yardstick for the Pascal reader: what a human sees who runs a finger down the lines.

    outline_pascal.py DECL_DUMP FOLDER...

Knows lines and words alone: heads of routines, properties and types wherever they begin a line, and
the entries of const, var and type sections of interface parts whose name begins a line. Prints how
many of them DECL_DUMP has with name, kind and line, how many of its own the outline has, and samples
of both rests. Routines that stand indented behind "implementation" are local as often as not and are
set aside; so is all behind the last "end." and within assembler.
"""

import collections
import pathlib
import random
import re
import subprocess
import sys

SUFFIXES = {".pas", ".pp", ".inc", ".dpr", ".lpr", ".dpk"}
COMMENT = re.compile(r"\{(?:[^{}]|\{[^{}]*\})*\}|\{.*?\}|\(\*.*?\*\)|//[^\n]*|'[^'\n]*'|\{.*|\(\*.*", re.S)
NAME = r"&?([A-Za-z_\x80-\xff][\w\x80-\xff]*)"
PATH = r"((?:[\w&]+(?:<[^<>()]*>)?\.)*)" + NAME
ROUTINE = re.compile(
    r"(\s*)(?:generic\s+)?(?:class\s+)?(procedure|function|constructor|destructor)\s+" + PATH, re.I)
PROPERTY = re.compile(r"\s*(?:class\s+)?property\s+" + NAME, re.I)
TYPE = re.compile(r"\s*(?:type\s+)?(?:generic\s+)?" + NAME + r"\s*(?:<[^=]*>)?\s*=\s*(?:(?:bit)?packed\s+)?"
                  r"(class|record|object|interface|dispinterface)\b(?!\s+of\b)", re.I)
ENTRY = re.compile(r"\s*(?:(?:const|var|threadvar|resourcestring|type)\s+)?" + NAME
                   + r"\s*(?:,\s*[\w\s,&]*)?(=|:)(?!=)", re.I)
SECTION = re.compile(r"\s*(const|var|threadvar|resourcestring|type|implementation|interface)\b", re.I)
KINDS = {
    "procedure": "routine", "function": "routine", "method": "routine", "constructor": "routine",
    "destructor": "routine", "class method": "routine", "message method": "routine",
    "property": "property", "event": "property", "class": "type", "record": "type",
    "object": "type", "interface": "type", "dispinterface": "type", "class helper": "type",
    "record helper": "type", "type helper": "type",
}


def blank(match):
    """Comments and strings as blanks of the same lines; directives go, strings leave a sign."""
    text = match.group()
    return re.sub(r"[^\n]", " ", text) if text[0] != "'" else "'" + " " * (len(text) - 2) + "'"


def outline(text):
    """(line, name in small letters, group) of a file."""
    text = COMMENT.sub(blank, text)
    found, section, block, depth, implementation, outer = [], None, None, 0, False, False
    body = 0
    # A program or an include file with bodies has no interface part.
    if not re.search(r"^\s*interface\b", text, re.I | re.M):
        implementation = bool(re.search(r"^\s*(begin|asm)\b", text, re.I | re.M))
    for number, line in enumerate(text.split("\n"), 1):
        words = re.findall(r"[A-Za-z_]\w*", line.lower())
        if re.match(r"\s*end\s*\.", line, re.I):
            break
        head = SECTION.match(line)
        if head and head.group(1).lower() == "implementation":
            implementation = True
        if body == 0:
            routine = ROUTINE.match(line)
            if routine and not re.match(r"\s*end\b", line[routine.end():], re.I):
                if not implementation or routine.group(3) or not routine.group(1):
                    found.append((number, routine.group(4).lower(), "routine"))
            prop = PROPERTY.match(line)
            if prop:
                found.append((number, prop.group(1).lower(), "property"))
            kind = TYPE.match(line)
            if kind and (not implementation or len(line) - len(line.lstrip()) <= 2):
                found.append((number, kind.group(1).lower(), "type"))
            if head:
                block = head.group(1).lower()
            elif routine or prop:
                block = None
            entry = ENTRY.match(line)
            if (entry and not implementation and depth == 0 and not kind and block in
                    ("const", "var", "threadvar", "resourcestring", "type")):
                found.append((number, entry.group(1).lower(), "entry"))
        # Classes and records open; "end" closes; brackets count, so that values stay out.
        for word in words:
            if body and word == "end":
                body -= 1
            elif word in ("begin", "asm") or (body and word in ("case", "try")):
                body += 1
            elif not body and word == "end":
                depth -= depth > 0
        if not body:
            opens = re.search(r"[=:]\s*(?:(?:bit)?packed\s+)?(class|record|object|interface|dispinterface"
                              r"|objcclass|objcprotocol|cppclass)\b"
                              r"(?!\s*;|\s+of\b|\s*\([^)]*\)\s*;)", line, re.I)
            record = re.search(r"\bof\s+(?:packed\s+)?record\b", line, re.I)
            depth += 1 if opens or record else 0
            depth += line.count("(") - line.count(")")
            depth = max(depth, 0)
    return found


def ours(program, folder, files):
    """Per file the list of (line, name, kind)."""
    out = subprocess.run([program, "--pascal", "-"], input="\n".join(map(str, files)),
                         capture_output=True, text=True, errors="replace", check=True).stdout
    found = collections.defaultdict(list)
    for row in out.split("\n"):
        columns = row.split("\t")
        if len(columns) < 3:
            continue
        path, line = columns[0].rsplit(":", 1)
        found[path].append((int(line), columns[2].split("::")[-1].lower(), columns[1]))
    return found


def main():
    program, folders = sys.argv[1], sys.argv[2:]
    random.seed(1)
    total = collections.Counter()
    for folder in folders:
        files = [path for path in sorted(pathlib.Path(folder).rglob("*"))
                 if path.suffix.lower() in SUFFIXES and path.is_file()]
        mine = ours(program, folder, files)
        sums, missing, extra = collections.Counter(), [], []
        for path in files:
            text = path.read_text("latin-1").encode("latin-1").decode("utf-8", "replace")
            expected = outline(text)
            have = collections.defaultdict(set)
            for line, name, kind in mine[str(path)]:
                have[(line, name)].add(KINDS.get(kind, "entry"))
            for line, name, group in expected:
                sums["expected"] += 1
                kinds = have.get((line, name), set())
                good = group in kinds or (group == "entry" and kinds)
                sums["found"] += bool(good)
                if not good:
                    missing.append(f"{path}:{line}: {group} {name} {kinds or ''}")
            known = {(line, name) for line, name, _ in expected}
            for line, name, kind in mine[str(path)]:
                if KINDS.get(kind) in ("routine", "property", "type"):
                    sums["ours"] += 1
                    sums["known"] += (line, name) in known
                    if (line, name) not in known:
                        extra.append(f"{path}:{line}: {kind} {name}")
        total.update(sums)
        report(folder, sums)
        for title, rest in (("missing", missing), ("ours alone", extra)):
            for row in random.sample(rest, min(len(rest), 12)):
                print(f"    {title}: {row}")
    report("all", total)


def report(title, sums):
    share = lambda a, b: 100 * sums[a] / max(sums[b], 1)
    print(f"{title}: {sums['expected']} in the outline, {share('found', 'expected'):.2f} % found; "
          f"{sums['ours']} routines, properties and types of ours, "
          f"{share('known', 'ours'):.2f} % in the outline", flush=True)


if __name__ == "__main__":
    main()
