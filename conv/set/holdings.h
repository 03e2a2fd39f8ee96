// What belongs to a topic, and what stands in a namespace, a module or a unit of Pascal.
#pragma once

#include <span>
#include <unordered_map>
#include <vector>

#include "conv/atc/document.h"

class gHoldings {
public:
  explicit gHoldings(gDocument const & document);

  // Units in the order of the document; what stands below one of them in the document is left out.
  std::span<int const> of(int unit) const;
  // The topics that a unit belongs to.
  std::vector<int> topics_of(int unit) const;

private:
  gDocument const & document_;
  std::unordered_map<int, std::vector<int>> members_;
};
