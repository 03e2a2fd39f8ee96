// The table of a scanner as its language file writes it down.
#pragma once

#include <initializer_list>

// A set of start conditions. Conditions are even numbers from 0 to 62, as the scanners'
// enumerations give them.
constexpr unsigned in(std::initializer_list<int> conditions) {
  unsigned mask = 0;
  for (int condition : conditions)
    mask |= 1u << (condition / 2);
  return mask;
}

// What an action answers when it returns no token.
constexpr int scan_go_on = -1000;  // no token: scanning goes on behind the match
constexpr int scan_reject = -1001; // the rule gives up: the next rule, or the next shorter match

// One row. Patterns are in lex syntax: [sets], "quoted", (groups), |, *, +, ?, {n,m}, {name} for a
// definition, "." for any character but the line feed, "^" in front for a line head, "/" for
// trailing context, which counts for the longest match but isn't part of it. A backslash makes the
// letters n t r f v a b control characters, xHH a byte, and any other character itself. A blank is
// a character like any other. NUL belongs to no set. The longest match wins, then the earlier rule;
// an empty match doesn't count. An action must reject before it has any other effect.
//
// A pattern that begins with \R (in front of a "^") is a run: where the text gets longer than a
// token may be, the match ends there, and the action runs again for the rest. So it must not matter
// to the action how its text is cut.
template <class Scanner> struct gScanRule {
  unsigned conditions;
  char const * pattern;
  int (*action)(Scanner &);
};

// {name} in a pattern; a definition may use others.
struct gScanDefinition {
  char const * name;
  char const * pattern;
};
