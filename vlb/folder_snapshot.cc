// Names, sizes, times and numbers of files come from the system; nothing is opened but what was
// written a moment before.
#include "vlb/folder_snapshot.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

#include "vlb/file_state.h"
#include "vlb/folder.h"

namespace {

constexpr std::int64_t margin = 50'000'000; // nanoseconds

// Block by block: results may be larger than what fits into memory beside all else. A file that
// can't be read is like an empty one.
gContentHash hash_of_bytes(std::string const & path) {
  gContentHash hash;
  std::array<char, 1 << 16> block;
  int const file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (file < 0)
    return hash;
  for (;;) {
    ssize_t const size = ::read(file, block.data(), block.size());
    if (size > 0)
      hash = Vlb::content_hash({block.data(), static_cast<std::size_t>(size)}, hash);
    else if (size == 0 || errno != EINTR)
      break;
  }
  ::close(file);
  return hash;
}

class Walk {
public:
  explicit Walk(gPathstring const & folder) : folder_(folder) {}

  gFolderSnapshot run(std::set<std::string> const & left_out) {
    for (Vlb::FolderEntry const & entry : Vlb::list_folder(folder_))
      if (!left_out.contains(entry.name))
        found_.tops[entry.name] = hash_below(entry);
    return std::move(found_);
  }

private:
  gContentHash hash_below(Vlb::FolderEntry const & top) {
    gContentHash hash;
    take(top, top.name, hash);
    while (!open_.empty()) {
      std::string const below = std::move(open_.back());
      open_.pop_back();
      for (Vlb::FolderEntry const & entry : Vlb::list_folder(gPathstring(folder_).append(below)))
        take(entry, below + "/" + entry.name, hash);
    }
    return hash;
  }

  void take(Vlb::FolderEntry const & entry, std::string const & name, gContentHash & hash) {
    hash = Vlb::content_hash(name, hash);
    if (entry.kind == Vlb::EntryKind::folder) {
      open_.push_back(name);
      return;
    }
    std::string const path = gPathstring(folder_).append(name);
    gFileState const state = gFileState::of_link(path);
    for (std::uint64_t const part :
         {state.device, state.inode, state.mode, state.size,
          static_cast<std::uint64_t>(state.written), static_cast<std::uint64_t>(state.changed)})
      hash = Vlb::content_hash({reinterpret_cast<char const *>(&part), sizeof part}, hash);
    if (Vlb::is_young(state, now_, margin))
      found_.young.emplace(name, hash_of_bytes(path));
  }

  gPathstring const & folder_;
  std::int64_t const now_ = Vlb::now_in_nanoseconds();
  std::vector<std::string> open_;
  gFolderSnapshot found_;
};

} // namespace

gFolderSnapshot gFolderSnapshot::take(gPathstring const & folder,
                                      std::set<std::string> const & left_out) {
  return Walk(folder).run(left_out);
}

bool gFolderSnapshot::holds(gPathstring const & folder) const {
  return take(folder).tops == tops && std::ranges::all_of(young, [&](auto const & one) {
           return hash_of_bytes(gPathstring(folder).append(one.first)) == one.second;
         });
}

void gFolderSnapshot::add(gFolderSnapshot other) {
  tops.merge(other.tops);
  young.merge(other.young);
}
