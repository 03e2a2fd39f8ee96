// No program is run: what a working copy stands at is told by small files in ".git". Where that is
// a file itself, as in a second working copy, it names the folder.

#include "conv/set/repository.h"

#include <algorithm>

#include "vlb/gfilesystem.h"
#include "vlb/gstring.h"

namespace {

constexpr std::size_t longest_name = 100, longest_ref = 4096;

std::string first_line(std::string const & path) {
  std::string text;
  if (!gFileSystem::file_exists(path) || !gFileSystem::read_file(path, text))
    return {};
  text.resize(std::min({text.size(), text.find_first_of("\r\n"), longest_ref}));
  return text;
}

bool is_commit(std::string_view text) {
  return text.size() >= 7 && text.size() <= longest_name && std::ranges::all_of(text, [](char c) {
           return Vlb::is_digit(c) || (c >= 'a' && c <= 'f');
         });
}

// What a file says, from a folder that it may be relative to.
std::string folder_told(std::string const & folder, std::string told) {
  if (!told.empty() && told[0] != '/')
    told.insert(0, folder + "/");
  return told;
}

std::string git_folder(std::string const & folder) {
  std::string const own = folder + "/.git";
  if (gFileSystem::dir_exists(own))
    return own;
  std::string const line = first_line(own);
  return line.starts_with("gitdir: ") ? folder_told(folder, line.substr(8)) : std::string();
}

std::string packed_commit(std::string const & git, std::string_view ref) {
  std::string text;
  if (!gFileSystem::file_exists(git + "/packed-refs") ||
      !gFileSystem::read_file(git + "/packed-refs", text))
    return {};
  std::size_t const at = text.find(' ' + std::string(ref) + '\n');
  if (at == text.npos)
    return {};
  std::size_t const begin = text.rfind('\n', at) + 1; // npos + 1 is 0
  return text.substr(begin, at - begin);
}

// A path or number as part of an address, its markup escaped.
std::string url_escaped(std::string_view text) {
  static constexpr char digits[] = "0123456789ABCDEF";
  std::string out;
  for (char const c : text)
    if (Vlb::is_word(c) || c == '/' || c == '.' || c == '-' || c == '~') {
      out += c;
    } else {
      auto const byte = static_cast<unsigned char>(c);
      ((out += '%') += digits[byte >> 4]) += digits[byte & 15];
    }
  return out;
}

void replace_all(std::string & text, std::string_view what, std::string_view by) {
  for (std::size_t at = 0; (at = text.find(what, at)) != text.npos; at += by.size())
    text.replace(at, what.size(), by);
}

} // namespace

std::string Repository::commit_of(std::string const & folder) {
  std::string const git = git_folder(folder);
  std::string const head = git.empty() ? std::string() : first_line(git + "/HEAD");
  if (!head.starts_with("ref: "))
    return is_commit(head) ? head : std::string();
  std::string const ref = head.substr(5);
  if (ref.find("..") != ref.npos)
    return {};
  std::string common = folder_told(git, first_line(git + "/commondir"));
  if (common.empty())
    common = git;
  for (std::string const & commit :
       {first_line(git + "/" + ref), first_line(common + "/" + ref), packed_commit(common, ref)})
    if (is_commit(commit))
      return commit;
  return {};
}

gRepository::gRepository(std::string pattern, std::string commit)
    : pattern_(std::move(pattern)),
      commit_(std::move(commit)) {
  if (!pattern_.starts_with("https://") && !pattern_.starts_with("http://"))
    pattern_.clear();
}

gRepository::gRoot const & gRepository::root_of(std::string const & folder) {
  if (auto const found = roots_.find(folder); found != roots_.end())
    return found->second;
  gRoot root;
  std::string const git = folder + "/.git";
  if (gFileSystem::dir_exists(git) || gFileSystem::file_exists(git))
    root = {folder + "/", commit_.empty() ? Repository::commit_of(folder) : commit_};
  else if (std::size_t const end = folder.rfind('/'); end != folder.npos)
    root = root_of(folder.substr(0, end));
  return roots_.emplace(folder, std::move(root)).first->second;
}

std::string gRepository::href(std::string const & path, std::string_view line) {
  std::size_t const end = path.rfind('/');
  if (pattern_.empty() || end == path.npos)
    return {};
  std::unique_lock lock(mutex_);
  gRoot const & root = root_of(path.substr(0, end));
  lock.unlock(); // what was found stays
  if (root.folder.empty())
    return {};
  std::string href;
  for (char const c : pattern_)
    if (c == '"')
      href += "%22";
    else if (c == '<')
      href += "%3C";
    else
      href += c;
  replace_all(href, "$commit", url_escaped(root.commit.empty() ? "HEAD" : root.commit));
  replace_all(href, "$line", url_escaped(line));
  replace_all(href, "$file", url_escaped(std::string_view(path).substr(root.folder.size())));
  return href;
}
