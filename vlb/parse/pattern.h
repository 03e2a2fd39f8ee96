// Patterns of scanner rules, from their text to positions.
#pragma once

#include <bitset>
#include <span>
#include <string_view>
#include <vector>

#include "vlb/parse/scan_table.h"

using gByteSet = std::bitset<256>;

// The tree of a pattern. Nodes refer to each other by their index.
struct gPatternNode {
  enum Kind { empty, set, sequence, choice, repeat };
  Kind kind = empty;
  gByteSet bytes;            // of a set
  int left = -1, right = -1; // parts; a repeat has the left one
  int low = 0, high = 0;     // counts of a repeat; high is `unlimited` where there is none
  static constexpr int unlimited = -1;
};

struct gPattern {
  std::vector<gPatternNode> nodes;
  int head = -1;
  int tail = -1;          // trailing context, -1 if there is none
  bool line_head = false; // began with ^
  bool run = false;       // began with \R: may end anywhere when the token gets too long

  // The length that every text of the node has, -1 if it varies.
  int fixed_length(int node) const;
};

// A pattern that can't be read raises gExcInternalErr with the pattern.
gPattern parse_pattern(std::string_view text, std::span<gScanDefinition const> definitions);

// Patterns as positions: each position stands for one byte of a set, and knows the positions that
// may follow it. A position without bytes is the end of a rule.
class gPositions {
public:
  // Adds a part of a pattern and the end of the rule behind it; answers where a match begins.
  // Backwards, the texts of the part are read from their end.
  std::vector<int> add(gPattern const & pattern, std::span<int const> parts, int rule,
                       bool backwards = false);

  struct Position {
    gByteSet bytes;
    std::vector<int> follow;
    int rule = -1; // whose end this is
  };
  std::vector<Position> const & all() const { return positions_; }

private:
  // Where the texts of a node may begin and end.
  struct Piece {
    bool nullable = true;
    std::vector<int> first, last;
  };
  Piece piece(gPattern const & pattern, int node, bool backwards);
  Piece single(gByteSet const & bytes);
  Piece repeated(gPattern const & pattern, gPatternNode const & node, bool backwards);
  Piece looped(Piece body);
  Piece joined(Piece left, Piece const & right);

  std::vector<Position> positions_;
};
