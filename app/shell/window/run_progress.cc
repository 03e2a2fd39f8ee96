// A stage's speed says little about its first moments and nothing about the stages behind it, so
// only the rest of the stage is guessed, and only after some seconds.

#include "app/shell/window/run_progress.h"

#include <algorithm>

namespace {

using namespace std::chrono_literals;

constexpr auto time_to_go_by = 2s;
constexpr int percents_to_go_by = 2;

// The number in front of the "%" that ends the text, -1 if there is none; it goes from the text.
int cut_percent(std::string & text) {
  if (!text.ends_with('%'))
    return -1;
  std::size_t const digits = text.find_last_not_of("0123456789", text.size() - 2) + 1;
  std::size_t const count = text.size() - 1 - digits;
  if (count == 0 || count > 3)
    return -1;
  int const percent = std::stoi(text.substr(digits, count));
  text.erase(digits);
  return std::min(percent, 100);
}

void cut_end(std::string & text) {
  text.erase(text.find_last_not_of(" .") + 1);
}

// To two digits at most, since more would pretend to know.
std::string shown(std::chrono::seconds left) {
  auto const seconds = left.count();
  if (seconds < 60)
    return "about " + std::to_string(std::max<long>(1, (seconds + 4) / 5 * 5)) + " s left";
  if (seconds < 3600)
    return "about " + std::to_string((seconds + 59) / 60) + " min left";
  return "about " + std::to_string((seconds + 3599) / 3600) + " h left";
}

} // namespace

void gRunProgress::take(std::string const & status, Clock::time_point now) {
  std::string stage = status;
  int const percent = cut_percent(stage);
  if (percent >= 0)
    cut_end(stage);
  bool const same = percent >= 0 && percent_ >= 0 && stage == stage_ && percent >= percent_;
  if (!same) {
    began_ = now;
    began_at_ = percent;
  }
  stage_ = stage;
  percent_ = percent;
  reached_ = now;
}

std::optional<std::chrono::seconds> gRunProgress::remaining(Clock::time_point now) const {
  int const done = percent_ - began_at_;
  auto const used = reached_ - began_;
  if (!busy() || percent_ >= 100 || done < percents_to_go_by || used < time_to_go_by)
    return std::nullopt;
  auto const left = used * (100 - percent_) / done - (now - reached_);
  return std::chrono::duration_cast<std::chrono::seconds>(std::max(left, Clock::duration(1s)));
}

std::string gRunProgress::text(Clock::time_point now) const {
  if (!busy())
    return stage_;
  std::string text = stage_ + " " + std::to_string(percent_) + "%";
  if (auto const left = remaining(now))
    text += ", " + shown(*left);
  return text;
}
