// Links to sources where a project keeps them for all: addresses made of a pattern such as
// "https://host/project/blob/$commit/$file#L$line".
#pragma once

#include <map>
#include <mutex>
#include <string>

class gRepository {
public:
  // `commit` stands for $commit; if it is empty, what the working copy has. A pattern that isn't an
  // address of the web makes no links.
  gRepository(std::string pattern, std::string commit);

  // May be called on any thread. An address; empty without a pattern, and for sources that lie in
  // no repository.
  std::string href(std::string const & path, std::string_view line);

private:
  struct gRoot {
    std::string folder; // with its separator; empty for none
    std::string commit;
  };
  gRoot const & root_of(std::string const & folder);

  std::string pattern_, commit_;
  std::mutex mutex_;
  std::map<std::string, gRoot, std::less<>> roots_; // by the folders of sources
};

namespace Repository {
// The commit that a working copy stands at, read from its files; empty if they don't tell.
std::string commit_of(std::string const & folder);
} // namespace Repository
