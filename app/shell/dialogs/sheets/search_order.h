// The methods by which a text unit finds its code element: ranked, and within a rank in an order.
#pragma once

#include <vector>

class gSearchOrder {
public:
  static constexpr int methods = 8;
  static constexpr int highest_rank = 8; // 0 switches a method off

  struct Method {
    int number; // from 1
    int rank;
  };

  // From the lists of numbers and ranks of the options. A method that no element names stands
  // behind the others of rank 0.
  gSearchOrder(std::vector<int> const & order, std::vector<int> const & ranks);

  // All methods, the higher ranks first.
  std::vector<Method> const & rows() const { return rows_; }
  // Moves a row by one, down with 1 and up with -1, within its rank. Answers where it stands then.
  int move(int row, int step);
  // Changes the rank of a row by one. Answers where the row stands then.
  int change_rank(int row, int step);

  std::vector<int> order() const;
  std::vector<int> ranks() const;

private:
  void sort();

  std::vector<Method> rows_;
};
