#include "vlb/file_state.h"

#include <algorithm>
#include <ctime>

#include <sys/stat.h>

namespace {

constexpr std::int64_t second = 1'000'000'000;
constexpr std::int64_t longest_step = 2 * second;

std::int64_t nanoseconds(timespec const & time) {
  return time.tv_sec * second + time.tv_nsec;
}

} // namespace

unsigned gFileState::kind() const {
  return static_cast<unsigned>(mode & S_IFMT);
}

gFileState gFileState::of(struct stat const & info) {
  return {info.st_dev,
          info.st_ino,
          info.st_mode,
          static_cast<std::uint64_t>(info.st_size),
          nanoseconds(info.st_mtim),
          nanoseconds(info.st_ctim)};
}

gFileState gFileState::of(std::string const & path) {
  struct stat info;
  return ::stat(path.c_str(), &info) == 0 ? of(info) : gFileState();
}

gFileState gFileState::of_link(std::string const & path) {
  struct stat info;
  return ::lstat(path.c_str(), &info) == 0 ? of(info) : gFileState();
}

std::int64_t Vlb::now_in_nanoseconds() {
  timespec now{};
  ::clock_gettime(CLOCK_REALTIME, &now);
  return nanoseconds(now);
}

bool Vlb::is_young(gFileState const & state, std::int64_t now, std::int64_t margin) {
  std::int64_t const latest = std::max(state.written, state.changed);
  bool const coarse = state.written % second == 0 && state.changed % second == 0;
  return latest > now - (coarse ? longest_step : margin);
}
