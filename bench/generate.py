#!/usr/bin/env python3
"""Writes generated C++ headers of a wanted total size: generate.py FOLDER BYTES.

The mix is that of ordinary code: classes with documented and plain members, functions with bodies,
templates, enumerations, macros, long comments. The same arguments give the same bytes.
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


def main():
    folder, wanted = sys.argv[1], int(sys.argv[2])
    rnd = random.Random(1)
    os.makedirs(folder, exist_ok=True)
    written = number = file_number = 0
    bases = []
    while written < wanted:
        text = f"#ifndef FILE_{file_number}\n#define FILE_{file_number}\n\n"
        while len(text) < min(FILE_SIZE, wanted - written):
            number += 1
            makers = (function, function, other)
            text += a_class(rnd, number, bases) if rnd.random() < 0.3 else rnd.choice(makers)(rnd, number)
        text += "#endif\n"
        with open(os.path.join(folder, f"file{file_number:05}.h"), "w") as out:
            out.write(text)
        written += len(text)
        file_number += 1
        bases = bases[-50:]


main()
