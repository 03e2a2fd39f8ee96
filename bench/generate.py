#!/usr/bin/env python3
"""Writes generated sources of a wanted total size: generate.py FOLDER BYTES [cpp|pascal].

The mix is that of ordinary code: classes with documented and plain members, routines with bodies,
types, constants, long comments; in C++ also templates and macros. The same arguments give the same
bytes.
"""
import os
import random
import sys

WORDS = ("buffer stream record index table node value count state list range token cache queue "
         "entry frame channel packet region policy").split()
FILE_SIZE = 20_000


def sentence(rnd, words):
    return " ".join(rnd.choice(WORDS) for _ in range(words)).capitalize() + "."


def name(rnd, number):
    return f"{rnd.choice(WORDS)}_{rnd.choice(WORDS)}_{number}"


def unit_comment(rnd, keyword):
    return (f"/* @{keyword} {sentence(rnd, 8)}\n   {sentence(rnd, 10)} @em{{{rnd.choice(WORDS)}}}\n\n"
            f"   - {sentence(rnd, 6)}\n   - {sentence(rnd, 5)}\n   @comment {sentence(rnd, 4)} */\n")


def plain_comment(rnd):
    return "".join(f"// {sentence(rnd, 11)}\n" for _ in range(rnd.randint(1, 4)))


def comment(rnd, keyword):
    return unit_comment(rnd, keyword) if rnd.random() < 0.4 else plain_comment(rnd)


def function(rnd, number):
    head = f"int {name(rnd, number)}(int count, char const * text, std::vector<int> & out)"
    if rnd.random() < 0.5:
        return comment(rnd, "function") + head + ";\n\n"
    lines = "".join(f"  if (text[{i}] == 'x' && count > {i})\n    out.push_back(count * {i});\n"
                    for i in range(rnd.randint(1, 8)))
    return comment(rnd, "function") + head + " {\n" + lines + "  return count;\n}\n\n"


def a_class(rnd, number, bases):
    base = f" : public {rnd.choice(bases)}" if bases and rnd.random() < 0.6 else ""
    text = comment(rnd, "class") + f"class Class{number}{base} {{\npublic:\n"
    text += f"  explicit Class{number}(int size = {rnd.randint(1, 99)}) : size_(size) {{}}\n"
    for i in range(rnd.randint(3, 12)):
        text += "  // " + sentence(rnd, 6) + "\n"
        text += f"  virtual int {name(rnd, i)}(int a, Class{number} const & other) const;\n"
    text += "private:\n  int size_;\n  std::map<int, std::list<long> > table_;\n};\n\n"
    bases.append(f"Class{number}")
    return text


def other(rnd, number):
    return rnd.choice([
        f"enum Kind{number} {{ first_{number}, second_{number} = 4, third_{number} }};\n\n",
        f"#define LIMIT_{number} ({rnd.randint(1, 9999)})\n\n",
        f"template <class T> T const & pick_{number}(T const & a, T const & b);\n\n",
        f"typedef unsigned long Id{number};\n\n",
        f"extern int const table_{number}[] ;\n\n",
    ])


def header(rnd, file_number, size, bases):
    text = f"#ifndef FILE_{file_number}\n#define FILE_{file_number}\n\n"
    number = file_number * 1000
    while len(text) < size:
        number += 1
        makers = (function, function, other)
        text += a_class(rnd, number, bases) if rnd.random() < 0.3 else rnd.choice(makers)(rnd, number)
    return text + "#endif\n"


def pascal_comment(rnd, keyword):
    if rnd.random() < 0.6:
        return "".join(f"  // {sentence(rnd, 11)}\n" for _ in range(rnd.randint(1, 4)))
    result = f"\n    @return {sentence(rnd, 4)}" if keyword == "function" else ""
    return (f"  {{ @{keyword} {sentence(rnd, 8)}\n    {sentence(rnd, 10)} @em{{{rnd.choice(WORDS)}}}\n\n"
            f"    - {sentence(rnd, 6)}\n    - {sentence(rnd, 5)}{result} }}\n")


def pascal_class(rnd, number, bases):
    base = f"({rnd.choice(bases)})" if bases and rnd.random() < 0.6 else ""
    names = [name(rnd, i) for i in range(rnd.randint(3, 12))]
    text = pascal_comment(rnd, "class") + f"  TClass{number} = class{base}\n  private\n    FSize: Integer;\n"
    text += "  public\n    constructor Create(ASize: Integer);\n"
    bodies = f"constructor TClass{number}.Create(ASize: Integer);\nbegin\n  FSize := ASize;\nend;\n\n"
    for member in names:
        head = f"{member}(A: Integer; const Other: TClass{number}): Boolean;"
        text += f"    // {sentence(rnd, 6)}\n    function {head} virtual;\n"
        bodies += f"function TClass{number}.{head}\nbegin\n  if (A > {number}) and (Other <> nil) then\n"
        bodies += f"    case A of 1: Inc(FSize); end; // {sentence(rnd, 4)}\n  Result := A <> 0;\nend;\n\n"
    text += f"  published\n    property Size{number}: Integer read FSize write FSize default 0;\n  end;\n\n"
    bases.append(f"TClass{number}")
    return "type\n" + text, bodies


def pascal_routine(rnd, number, _):
    head = f"function {name(rnd, number)}(Count: Integer; const Text: string; var Sum: Integer): Integer;\n"
    lines = "".join(f"  if (Text[{i + 1}] = 'x') and (Count > {i}) then\n    Inc(Sum, Count * {i});\n"
                    for i in range(rnd.randint(1, 8)))
    return pascal_comment(rnd, "function") + head + "\n", head + "begin\n" + lines + "  Result := Sum;\nend;\n\n"


def pascal_other(rnd, number, _):
    return rnd.choice([
        f"type\n  TKind{number} = (First{number}, Second{number}, Third{number});\n\n",
        f"type\n  TPoint{number} = record\n    X, Y: Integer;\n    Name: string[20];\n  end;\n\n",
        f"const\n  Limit{number} = {rnd.randint(1, 9999)};\n  Names{number}: array[0..1] of string = ('a', '{{');\n\n",
        f"var\n  Table{number}: array[0..{number}] of Integer;\n\n",
    ]), ""


def pascal_unit(rnd, file_number, size, bases):
    text = f"{{ @unit {sentence(rnd, 12)} }}\nunit file{file_number:05};\n\n{{$MODE DELPHI}}\n\ninterface\n\n"
    text += "uses Classes, SysUtils;\n\n"
    bodies = "implementation\n\n"
    number = file_number * 1000
    while len(text) + len(bodies) < size:
        number += 1
        makers = (pascal_routine, pascal_routine, pascal_other)
        make = pascal_class if rnd.random() < 0.3 else rnd.choice(makers)
        declaration, body = make(rnd, number, bases)
        text += declaration
        bodies += body
    return text + bodies + "end.\n"


LANGUAGES = {"cpp": (header, "h"), "pascal": (pascal_unit, "pas")}


def main():
    folder, wanted = sys.argv[1], int(sys.argv[2])
    make, extension = LANGUAGES[sys.argv[3] if len(sys.argv) > 3 else "cpp"]
    rnd = random.Random(1)
    os.makedirs(folder, exist_ok=True)
    written = file_number = 0
    bases = []
    while written < wanted:
        text = make(rnd, file_number, min(FILE_SIZE, wanted - written), bases)
        with open(os.path.join(folder, f"file{file_number:05}.{extension}"), "w") as out:
            out.write(text)
        written += len(text)
        file_number += 1
        bases = bases[-50:]


main()
