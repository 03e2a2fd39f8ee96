// How far a run is, made of the texts of the status line.
#pragma once

#include <chrono>
#include <optional>
#include <string>

// A stage tells itself and how much of it is done: "Analyzing program code... 45%". How long it
// still takes is guessed from its own speed, once there is enough to go by.
class gRunProgress {
public:
  using Clock = std::chrono::steady_clock;

  // A new text of the status line.
  void take(std::string const & status, Clock::time_point now);

  // False between stages and without a run.
  bool busy() const { return percent_ >= 0; }
  // Without its dots; the whole text of the line where that tells no percentage.
  std::string const & stage() const { return stage_; }
  // 0 to 100; -1 if not known.
  int percent() const { return percent_; }
  // For the rest of the stage; nothing as long as it is anybody's guess.
  std::optional<std::chrono::seconds> remaining(Clock::time_point now) const;
  // For the status line: "Analyzing program code 45%, about 2 min left".
  std::string text(Clock::time_point now) const;

private:
  std::string stage_;
  int percent_ = -1;
  Clock::time_point began_; // the stage
  int began_at_ = 0;        // its percentage then
  Clock::time_point reached_;
};
