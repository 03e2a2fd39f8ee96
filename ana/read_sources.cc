// Reads gSrcFiles. Fills gInputFiles, and all tables of text units and code elements.
// The modern dialect: one look at the macros of all sources, one at each source. No copy is made;
// what comes behind knows files by the user's path.

#include <map>
#include <optional>

#include "ana/anadat/tables.h"
#include "ana/file_loop.h"
#include "ana/include_tree.h"
#include "ana/included_members.h"
#include "ana/modern_input.h"
#include "ana/read/enter.h"
#include "ana/read/facts_folder.h"
#include "ana/read/read_modern.h"
#include "ana/stages.h"
#include "vlb/gfilesystem.h"
#include "vlb/source_bytes.h"

namespace {

constexpr int deepest_include = 8;
constexpr std::size_t most_classes = 16; // that one file gives its members

// A source as it lies on the disk, and what it says.
struct ReadSource {
  bool readable = false;
  bool fragment = false; // of Pascal, no unit by itself: not looked into yet
  gModernFile file;
};

class SourceReading {
public:
  explicit SourceReading(std::list<gSrcFile> const & files)
      : files_(files),
        readers_(threads_, [this] { return std::make_unique<gModernReader>(input_, tables_); }) {}
  void run();

private:
  void collect_macros();
  void read_all();
  ReadSource read(gModernReader & reader, gSrcFile const & file) const;
  int take(gSrcFile const & file, ReadSource source, gReportSink & reports);
  void enter(gModernFile & file, gReportSink & reports);
  void read_includes();
  void read_fragments();
  void adopt_all_members();
  void adopt_again(gPathstring const & path, gIncludeRequest const & request);
  struct Include {
    gIncludeRequest const * request;
    gPathstring path;
  };
  std::vector<Include> choose_includes(std::vector<gIncludeRequest> const & requests);
  std::optional<gModernFile> read_include(gModernReader & reader, Include const & include) const;
  gPathstring find_include(gIncludeRequest const & request);

  std::list<gSrcFile> const & files_;
  gModernInput input_;
  std::optional<gFactsFolder> facts_; // what other runs have read
  gTableTemplates const tables_ = gVLAttributes.tables();
  unsigned const threads_ = Vlb::thread_count(gInput->jobs);
  Vlb::gPerWorker<gModernReader> readers_;
  std::vector<gIncludeRequest> includes_;
  std::vector<gIncludeRequest> members_; // what classes of C++ take in
  std::vector<gSrcFile> fragments_;      // Pascal inputs that aren't units by themselves
  // How often something stands in comments, and where first.
  using Words = std::map<std::string, std::pair<std::size_t, gLoc>>;
  static void note(Words & words, std::vector<gUnknownWord> const & found, gSrcFile const & file);
  static void report(gMessage const & message, Words const & words);
  Words unknown_;                           // commands that nobody knows
  Words missing_;                           // files that would be shown
  std::set<std::string> taken_;             // paths that are read
  std::map<std::string, gSrcFile> by_name_; // inputs by their name in lower case
  gIncludeTree include_tree_{files_};
};

void SourceReading::collect_macros() {
  Msg::log(Msg::preprocessing);
  for (gSrcFile const & file : files_)
    by_name_.emplace(Vlb::to_lower(file.opath().file_name()), file);
  input_ = {collect_all_macros(files_, threads_), unit_words(), comment_options(),
            gExampleFiles(gInput->comments.examples), gExampleFiles(gInput->comments.pictures)};
  if (!gInput->facts.empty())
    facts_.emplace(gInput->facts, gInput->facts_key, input_.macros);
}

ReadSource SourceReading::read(gModernReader & reader, gSrcFile const & file) const {
  ReadSource source;
  std::string text;
  source.readable = Vlb::read_source(file.path(), text);
  source.fragment = file.language() == gLanguage::pascal && !Decl::has_pascal_head(text);
  if (!source.readable || source.fragment)
    return source;
  if (std::optional<gModernFile> known = facts_ ? facts_->find(file, text) : std::nullopt)
    source.file = std::move(*known);
  else
    source.file = read_whole(reader, file, text);
  return source;
}

// A source that can't be read costs itself alone.
int SourceReading::take(gSrcFile const & file, ReadSource source, gReportSink & reports) {
  if (!source.readable) {
    reports(Msg::cannot_read, file.opath(), file.opath());
    return 1;
  }
  if (source.fragment) {
    fragments_.push_back(file);
    return 0;
  }
  taken_.insert(file.path());
  enter(source.file, reports);
  return 0;
}

void SourceReading::enter(gModernFile & file, gReportSink & reports) {
  gFindings.declarations += file.declarations;
  if (!file.skipped.empty())
    gFindings.incomplete.insert(file.facts.file.opath());
  std::move(file.skipped.begin(), file.skipped.end(), std::back_inserter(gFindings.skipped));
  note(unknown_, file.unknown, file.facts.file);
  note(missing_, file.missing, file.facts.file);
  bool const pascal = file.facts.file.language() == gLanguage::pascal;
  std::move(file.includes.begin(), file.includes.end(),
            std::back_inserter(pascal ? includes_ : members_));
  file.facts.text.reports.hand_on(reports);
  file.facts.code.reports.hand_on(reports);
  enter_text(file.facts);
  enter_code(file.facts);
  gInputFiles.push_back(file.facts.file);
}

void SourceReading::read_all() {
  Msg::log.stage(gRunStage::code);
  Msg::log(Msg::analyzing_code);
  read_files<ReadSource>(
      files_, {Msg::analyzing_code, Msg::code_failed, gRunStage::code},
      [](gSrcFile const & file) { return language_label(file.language()); },
      [&](unsigned worker, gSrcFile const & file) { return read(readers_[worker], file); },
      [&](gSrcFile const & file, auto const & source, gReportSink & reports) {
        return take(file, source(), reports);
      });
}

// Beside the file that names it, else among the inputs, else below their folders.
gPathstring SourceReading::find_include(gIncludeRequest const & request) {
  std::string name = request.name;
  std::replace(name.begin(), name.end(), '\\', '/');
  if (name.empty())
    return {};
  for (std::string const & form : {name, Vlb::to_lower(name), name + ".inc", name + ".pas"}) {
    gPathstring path = request.by.opath().dir_name();
    path.append(form);
    path.normalize(true);
    if (gFileSystem::file_exists(path))
      return path;
  }
  auto const input = by_name_.find(Vlb::to_lower(gPathstring(name).file_name()));
  return input == by_name_.end() ? include_tree_.find(name, request.by.opath())
                                 : input->second.path();
}

// The first one that takes a file in gives it its scope, those first that let others see it. What
// isn't there costs nothing.
std::vector<SourceReading::Include>
SourceReading::choose_includes(std::vector<gIncludeRequest> const & requests) {
  using enum Decl::gPascalContext::Section;
  std::vector<Include> chosen;
  for (bool const hidden : {false, true})
    for (gIncludeRequest const & request : requests) {
      auto const section = request.context.section;
      if (section == body || (section == implementation) != hidden)
        continue;
      gPathstring path = find_include(request);
      if (!path.empty() && taken_.insert(path).second)
        chosen.push_back({&request, std::move(path)});
    }
  return chosen;
}

std::optional<gModernFile> SourceReading::read_include(gModernReader & reader,
                                                       Include const & include) const {
  Vapp::poll_break();
  std::string text;
  if (!Vlb::read_source(include.path, text))
    return {};
  gIncludeRequest const & request = *include.request;
  return reader.read(gSrcFile(include.path, request.by), text, request.scope, request.context);
}

void SourceReading::read_includes() {
  for (int depth = 0; depth < deepest_include && !includes_.empty(); ++depth) {
    std::vector<gIncludeRequest> const requests = std::exchange(includes_, {});
    std::vector<Include> const chosen = choose_includes(requests);
    Vlb::gOrdered<std::optional<gModernFile>> files(
        threads_, chosen.size(),
        [&](unsigned worker, std::size_t i) { return read_include(readers_[worker], chosen[i]); });
    for (std::size_t i = 0; i < chosen.size(); ++i)
      if (std::optional<gModernFile> file = files.next())
        enter(*file, Msg::log);
  }
}

// What no unit takes in stands for itself. Most are taken in by what comes before them in this
// list, so they are read one by one.
void SourceReading::read_fragments() {
  for (gSrcFile const & file : fragments_) {
    Vapp::poll_break();
    if (!taken_.insert(file.path()).second)
      continue;
    std::string text;
    if (!Vlb::read_source(file.path(), text)) {
      Msg::log(Msg::cannot_read, file.opath(), file.opath());
      continue;
    }
    gModernFile one = readers_[0].read(file, text);
    enter(one, Msg::log);
    read_includes();
  }
}

// Its members once more, for another class. All else that it says is known.
void SourceReading::adopt_again(gPathstring const & path, gIncludeRequest const & request) {
  std::string text;
  gSrcFile const file(path, request.by);
  if (!gCodeElems.map_of(file) || !Vlb::read_source(path, text))
    return;
  gModernFile one = readers_[0].read(file, text);
  adopt_members(one.facts.code, request);
  one.facts.code.comments.clear();
  enter_text(one.facts);
  enter_code(one.facts);
}

void SourceReading::adopt_all_members() {
  std::map<std::string, std::set<gString>> classes; // that take in a file, by its path
  for (gIncludeRequest const & request : members_) {
    Vapp::poll_break();
    gPathstring path = request.by.opath().dir_name();
    path.append(request.name);
    path.normalize(true);
    std::set<gString> & adopters = classes[path];
    if (adopters.size() == most_classes ||
        !adopters.insert(request.scope.make_string(request.by.name_sep())).second)
      continue;
    if (adopters.size() == 1)
      adopt_members(path, request);
    else
      adopt_again(path, request);
  }
}

void SourceReading::note(Words & words, std::vector<gUnknownWord> const & found,
                         gSrcFile const & file) {
  for (gUnknownWord const & one : found)
    words.try_emplace(one.word, 0, gLoc(file, one.line)).first->second.first += one.count;
}

void SourceReading::report(gMessage const & message, Words const & words) {
  for (auto const & [word, found] : words)
    Msg::log(message, word + (found.first > 1 ? ", " + std::to_string(found.first) + " times" : ""),
             found.second);
}

void SourceReading::run() {
  collect_macros();
  read_all();
  read_includes();
  read_fragments();
  adopt_all_members();
  report(Msg::unknown_command, unknown_);
  report(Msg::missing_example, missing_);
}

} // namespace

void ana_read_sources(std::list<gSrcFile> const & files) {
  SourceReading(files).run();
}
