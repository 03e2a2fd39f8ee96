// Scanners for tests, made of a few patterns.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "vlb/gexception.h"
#include "vlb/parse/scan_base.h"

// The text of the fatal error that the work ends with.
inline std::string fault_of(std::function<void()> const & work) {
  try {
    work();
  } catch (gExcFatalErr const & fault) {
    return fault.text();
  }
  return "none";
}

// Notes every match as "rule<text>" and then does what the test has asked for.
class TestScan : public gScanBase {
public:
  // Rules of condition 0; a pattern that begins with "2:" belongs to condition 2 instead.
  explicit TestScan(std::vector<std::string> patterns,
                    std::vector<gScanDefinition> definitions = {})
      : patterns_(std::move(patterns)),
        definitions_(std::move(definitions)),
        table_(rules(), definitions_) {}

  int scan() override { return run(*this, table_); }

  // Called for each match with the number of its rule; answers as an action does.
  std::function<int(int rule)> on_match = [](int) { return scan_go_on; };
  std::string notes;

  std::string notes_of(std::string_view input) {
    notes.clear();
    reset();
    open_text(gSrcFile("in.txt", "", 1), input);
    while (scan() != 0) {
    }
    return notes;
  }

  using gScanBase::shield_quotes;

private:
  template <int Rule> static int act(TestScan & scan) {
    int const answer = scan.on_match(Rule);
    if (answer != scan_reject)
      scan.notes += std::to_string(Rule) + "<" + std::string(scan.token()) + ">";
    return answer;
  }

  std::span<gScanRule<TestScan> const> rules() {
    constexpr int (*actions[])(TestScan &) = {act<0>, act<1>, act<2>, act<3>, act<4>, act<5>};
    for (std::size_t i = 0; i < patterns_.size(); ++i) {
      bool const second = patterns_[i].starts_with("2:");
      rules_.push_back({in({second ? 2 : 0}), patterns_[i].c_str() + (second ? 2 : 0), actions[i]});
    }
    return rules_;
  }

  std::vector<std::string> patterns_;
  std::vector<gScanDefinition> definitions_;
  std::vector<gScanRule<TestScan>> rules_;
  gScanTable<TestScan> table_;
};
