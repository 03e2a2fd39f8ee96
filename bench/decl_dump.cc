// Prints the declarations of files, one a line: path:line<TAB>kind<TAB>scope::name<TAB>number of
// parameters<TAB>marks<TAB> parameters<TAB>condition, for comparisons with other tools.
//
//   decl_dump [--time] [--skipped] [--pascal] FILE...
//
// "-" reads names of files from standard input. A Pascal file that another one includes is read
// from the place that includes it.
#include "ana/decl/readers.h"

#include <algorithm>
#include <ctime>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>

namespace {

using namespace Decl;

std::string read_file(std::string const & path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

std::string name_of(std::string_view text, gFileDeclarations const & file,
                    gDeclaration const & one) {
  return one.marks & mark_unnamed ? "(unnamed)" : shown_name(text, file, one);
}

std::string scope_of(std::string_view text, gFileDeclarations const & file,
                     gDeclaration const & one) {
  std::string scope = one_line(text, one.qualifier);
  for (std::int32_t at = one.scope; at >= 0;) {
    gDeclaration const & outer = file.items[static_cast<std::size_t>(at)];
    std::string name = name_of(text, file, outer) + one_line(text, outer.arguments);
    if (!outer.qualifier.empty())
      name = one_line(text, outer.qualifier) + "::" + name;
    scope = scope.empty() ? name : name + "::" + scope;
    at = outer.scope;
  }
  return scope;
}

void print(std::string const & path, std::string_view text, gFileDeclarations const & file) {
  for (gDeclaration const & one : file.items) {
    std::string const scope = scope_of(text, file, one);
    std::cout << path << ':' << one.line << '\t' << kind_word(one.kind) << '\t'
              << (scope.empty() ? "" : scope + "::") << name_of(text, file, one)
              << one_line(text, one.arguments) << '\t' << one.params << '\t' << one.marks << '\t'
              << one_line(text, one.parameter_list) << '\t'
              << (one.condition < 0 ? ""
                                    : file.conditions[static_cast<std::size_t>(one.condition)].text)
              << '\n';
  }
}

// Pascal files, each after those that include it; the first include gives the place.
class PascalFiles {
public:
  PascalFiles(std::vector<std::string> const & paths, std::vector<std::string> const & texts)
      : paths_(paths),
        texts_(texts),
        read_(paths.size()),
        placed_(paths.size()),
        files_(paths.size()),
        contexts_(paths.size()) {
    for (std::size_t at = 0; at < paths.size(); ++at)
      by_name_.emplace(base_name(paths[at]), at);
  }

  std::vector<gFileDeclarations> all() {
    for (bool const includes : {false, true})
      for (std::size_t at = 0; at < paths_.size(); ++at)
        if (base_name(paths_[at]).ends_with(".inc") == includes)
          read_with_includes(at);
    return std::move(files_);
  }

private:
  std::vector<std::string> const & paths_;
  std::vector<std::string> const & texts_;
  std::vector<bool> read_, placed_;
  std::vector<gFileDeclarations> files_;
  std::vector<gPascalContext> contexts_;
  std::multimap<std::string, std::size_t> by_name_;

  static std::string base_name(std::string const & path) {
    std::string name = path.substr(path.find_last_of("/\\") + 1);
    std::transform(name.begin(), name.end(), name.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return name.find('.') == name.npos ? name + ".inc" : name;
  }

  // The file of this name whose path has most in common with that of the including one.
  std::size_t file_of(std::string const & name, std::string const & from) const {
    std::size_t best = paths_.size(), best_common = 0;
    auto const [first, last] = by_name_.equal_range(base_name(name));
    for (auto found = first; found != last; ++found) {
      std::string const & path = paths_[found->second];
      auto const ends = std::mismatch(path.begin(), path.end(), from.begin(), from.end());
      auto const common = static_cast<std::size_t>(ends.first - path.begin());
      if (best == paths_.size() || common > best_common) {
        best = found->second;
        best_common = common;
      }
    }
    return best;
  }

  void read_with_includes(std::size_t first) {
    std::vector<std::size_t> pending{first};
    while (!pending.empty()) {
      std::size_t const at = pending.back();
      pending.pop_back();
      if (read_[at])
        continue;
      read_[at] = true;
      files_[at] = read_pascal(texts_[at], contexts_[at]);
      for (gInclude const & one : files_[at].includes) {
        std::size_t const included = file_of(std::string(one.name.of(texts_[at])), paths_[at]);
        if (included == paths_.size() || placed_[included] ||
            (read_[included] && one.context.section == gPascalContext::body))
          continue;
        // Where nothing is declared the file has its other parts for other places.
        placed_[included] = one.context.section != gPascalContext::body;
        contexts_[included] = one.context;
        read_[included] = false;
        pending.push_back(included);
      }
    }
  }
};

struct Sums {
  std::size_t files = 0, bytes = 0, declarations = 0, skipped = 0, with_skipped = 0;
};

} // namespace

int main(int count, char ** words) {
  bool timed = false, only_skipped = false, pascal = false;
  std::vector<std::string> paths;
  for (int at = 1; at < count; ++at) {
    std::string const word = words[at];
    if (word == "--time")
      timed = true;
    else if (word == "--skipped")
      only_skipped = true;
    else if (word == "--pascal")
      pascal = true;
    else if (word == "-")
      for (std::string line; std::getline(std::cin, line);)
        paths.push_back(line);
    else
      paths.push_back(word);
  }
  std::ios::sync_with_stdio(false);
  std::vector<std::string> texts;
  gMacroTable macros;
  auto const begin = std::clock();
  for (std::string const & path : paths)
    texts.push_back(read_file(path));
  auto const loaded = std::clock();
  for (std::string const & text : texts)
    if (!pascal)
      macros.collect(text);
  auto const collected = std::clock();
  Sums sums;
  std::vector<gFileDeclarations> pascal_files;
  if (pascal)
    pascal_files = PascalFiles(paths, texts).all();
  std::clock_t reading = std::clock() - collected;
  for (std::size_t at = 0; at < paths.size(); ++at) {
    auto const from = std::clock();
    gFileDeclarations const file =
        pascal ? std::move(pascal_files[at]) : read_cpp(texts[at], macros);
    reading += std::clock() - from;
    sums.bytes += texts[at].size();
    sums.declarations += file.items.size();
    sums.skipped += file.skipped.size();
    sums.with_skipped += !file.skipped.empty();
    if (only_skipped)
      for (gSkipped const & one : file.skipped)
        std::cout << paths[at] << ':' << one.line << '\t' << one.reason << '\n';
    else if (!timed)
      print(paths[at], texts[at], file);
  }
  if (timed) {
    auto const seconds = [](std::clock_t ticks) {
      return static_cast<double>(ticks) / CLOCKS_PER_SEC;
    };
    std::cout << paths.size() << " files, " << static_cast<double>(sums.bytes) / 1e6 << " MB, load "
              << seconds(loaded - begin) << " s, macros " << seconds(collected - loaded)
              << " s, reading " << seconds(reading) << " s, "
              << static_cast<double>(sums.bytes) / 1e6 / seconds(reading) << " MB/s, "
              << sums.declarations << " declarations, " << sums.skipped << " skipped in "
              << sums.with_skipped << " files\n";
  }
  return 0;
}
