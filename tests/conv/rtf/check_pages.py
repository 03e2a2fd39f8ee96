"""Reads the pages that a word processor made of the examples. Usage: check_pages.py FOLDER"""

import re
import sys


def pages_of(name):
    with open(f"{sys.argv[1]}/{name}.txt", encoding="utf-8") as file:
        return file.read().split("\f")


def entries(page, pattern):
    return [(title.strip(), int(number)) for title, number in re.findall(pattern, page, re.M)]


def check_contents(pages, headings):
    """The contents lead, in order, to the pages where the headlines stand."""
    at = next(i for i, page in enumerate(pages) if re.search(r"^\s*Contents$", page, re.M))
    lines = entries(pages[at], r"^\s*(\S.*?)[. ]+(\d+)$")
    numbers = [number for _, number in lines]
    assert numbers == sorted(numbers) and numbers[0] == at + 2, numbers
    for title, heading in headings.items():
        places = [number for name, number in lines if name == title]
        assert places, f"{title} is missing in {lines}"
        found = [n for n in places if re.search(rf"^\s*{re.escape(heading)}$", pages[n - 1], re.M)]
        assert found == places, f"{heading} isn't on {places}"


def check_index(pages, words):
    """Each place of an entry shows what the entry is about."""
    page = pages[-2] if "Index" in pages[-2] else pages[-3]
    lines = dict(entries(page, r"(?:^|\s{2,})(\S[^\n]*?), (\d+)$"))
    for key, text in words.items():
        assert text in pages[lines[key] - 1], f"{key} isn't on page {lines[key]}"


tally = pages_of("tally")
check_contents(tally, {"Introduction": "Measuring with Tally", "Names": "Names", "Steps": "Steps",
                       "PeakGauge": "PeakGauge", "lower": "Limits::lower", "Ticks": "Ticks"})
check_index(tally, {"Counter": "How to count", "Gauge": "Follows a value",
                    "~ for events event counted": "Counts events", "cheap": "cheap"})
noted = next(page for page in tally if "At LONG_MAX" in page)
assert "No meter of this library wraps around." in noted, "a footnote isn't on its page"
assert any("They separate columns." in page for page in tally), "the endnote is missing"
assert re.search(r"Slashes make\s", tally[2]), "the margin note is missing"
assert "void add(long n = 1);" in noted
# The page number in a running head, and the date in a foot.
assert re.search(r"^\s+5$", tally[4], re.M) and re.search(r"^\s*\d{4}-\d\d-\d\d$", tally[4], re.M)

check_contents(pages_of("almanac"), {"Almanac": "Days and holidays", "Dates": "Dates",
                                     "Split": "Dates.Split"})
