// Prints the declarations of files, one a line: path:line<TAB>kind<TAB>scope::name<TAB>parameters,
// for comparisons with other tools.
//
//   decl_dump [--time] [--skipped] FILE...   ("-" reads names of files from standard input)
#include "ana/decl/readers.h"

#include <ctime>
#include <fstream>
#include <iostream>
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
  if (one.spelled >= 0)
    return file.spelled[static_cast<std::size_t>(one.spelled)];
  return one.marks & mark_unnamed ? "(unnamed)" : shown_name(text, one);
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
              << one_line(text, one.parameter_list) << '\n';
  }
}

struct Sums {
  std::size_t files = 0, bytes = 0, declarations = 0, skipped = 0, with_skipped = 0;
};

} // namespace

int main(int count, char ** words) {
  bool timed = false, only_skipped = false;
  std::vector<std::string> paths;
  for (int at = 1; at < count; ++at) {
    std::string const word = words[at];
    if (word == "--time")
      timed = true;
    else if (word == "--skipped")
      only_skipped = true;
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
    macros.collect(text);
  auto const collected = std::clock();
  Sums sums;
  std::clock_t reading = 0;
  for (std::size_t at = 0; at < paths.size(); ++at) {
    auto const from = std::clock();
    gFileDeclarations const file = read_cpp(texts[at], macros);
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
