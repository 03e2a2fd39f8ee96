// Reads gSrcFiles. Fills gInputFiles, and all tables of text units and code elements.
// The modern dialect: one look at the macros of all sources, one at each source. No copy is made;
// what comes behind knows files by the user's path.

#include <map>

#include "ana/anadat/tables.h"
#include "ana/cmdpar/keywords.h"
#include "ana/file_loop.h"
#include "ana/included_members.h"
#include "ana/read/enter.h"
#include "ana/read/read_modern.h"
#include "ana/stages.h"
#include "vlb/gfilesystem.h"
#include "vlb/source_bytes.h"

namespace {

constexpr int deepest_include = 8;

// A source that can't be read costs itself alone.
bool read_text(gSrcFile const & file, std::string & text, gReportSink & reports) {
  if (Vlb::read_source(file.path(), text))
    return true;
  reports(Msg::cannot_read, file.opath(), file.opath());
  return false;
}

gString unit_type_of(gPatternInput const & pattern) {
  for (auto const & [name, value] : pattern.attributes)
    if (name == "UNITTYPE")
      return value;
  return {};
}

// The keywords that say that a comment is in the project's own mark-up.
std::map<std::string, gString, std::less<>> unit_words() {
  std::map<std::string, gString, std::less<>> words;
  if (gInput->comments.foreign)
    return words; // all comments are those of other systems
  for (gPatternInput const & pattern : gInput->patterns)
    for (gKeywordInput const & keyword : pattern.keywords)
      words.emplace(keyword.first, unit_type_of(pattern));
  return words;
}

class SourceReading {
public:
  explicit SourceReading(std::list<gSrcFile> const & files) : files_(files) {}
  void run();

private:
  void collect_macros();
  void read_all();
  int read(gSrcFile const & file, gReportSink & reports);
  void enter(gModernFile & file, gReportSink & reports);
  void read_includes();
  void read_fragments();
  void adopt_all_members();
  void read_include(gIncludeRequest const & request, gReportSink & reports);
  gPathstring find_include(gIncludeRequest const & request) const;
  void take_text_file(gSrcFile const & file, std::string const & text, gReportSink & reports);

  std::list<gSrcFile> const & files_;
  gModernInput input_;
  gTableTemplates const tables_ = gVLAttributes.tables();
  gModernReader reader_{input_, tables_};
  std::vector<gIncludeRequest> includes_;
  std::vector<gIncludeRequest> members_;    // what classes of C++ take in
  std::vector<gSrcFile> fragments_;         // Pascal inputs that aren't units by themselves
  std::set<std::string> taken_;             // paths that are read
  std::map<std::string, gSrcFile> by_name_; // inputs by their name in lower case
};

void SourceReading::collect_macros() {
  Msg::log(Msg::preprocessing);
  input_.unit_words = unit_words();
  for (gSrcFile const & file : files_) {
    by_name_.emplace(Vlb::to_lower(file.opath().file_name()), file);
    if (file.language() != gLanguage::cpp)
      continue;
    Vapp::poll_break();
    std::string text;
    if (Vlb::read_source(file.path(), text))
      input_.macros.collect(text);
  }
}

// What stands in a file of text is one comment.
void SourceReading::take_text_file(gSrcFile const & file, std::string const & text,
                                   gReportSink & reports) {
  gModernFile one = reader_.read_comment(file, text);
  enter(one, reports);
}

int SourceReading::read(gSrcFile const & file, gReportSink & reports) {
  std::string text;
  if (!read_text(file, text, reports))
    return 1;
  if (file.language() == gLanguage::pascal && !Decl::has_pascal_head(text)) {
    fragments_.push_back(file);
    return 0;
  }
  taken_.insert(file.path());
  if (file.language() == gLanguage::text) {
    take_text_file(file, text, reports);
    return 0;
  }
  gModernFile one = reader_.read(file, text);
  enter(one, reports);
  return 0;
}

void SourceReading::enter(gModernFile & file, gReportSink & reports) {
  gFindings.declarations += file.declarations;
  if (!file.skipped.empty())
    gFindings.incomplete.insert(file.facts.file.opath());
  std::move(file.skipped.begin(), file.skipped.end(), std::back_inserter(gFindings.skipped));
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
  file_loop(
      files_, {Msg::analyzing_code, Msg::code_failed, gRunStage::code},
      [](gSrcFile const & file) { return language_label(file.language()); },
      [&](gSrcFile const & file, gReportSink & reports) { return read(file, reports); });
}

// Beside the file that names it, else among the inputs.
gPathstring SourceReading::find_include(gIncludeRequest const & request) const {
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
  return input == by_name_.end() ? gPathstring() : input->second.path();
}

// The first one that takes a file in gives it its scope. What isn't there costs nothing.
void SourceReading::read_include(gIncludeRequest const & request, gReportSink & reports) {
  gPathstring const path = find_include(request);
  bool const declares = request.context.section != Decl::gPascalContext::body;
  if (!declares || path.empty() || !taken_.insert(path).second)
    return;
  std::string text;
  if (!Vlb::read_source(path, text))
    return;
  gSrcFile const file(path, request.by);
  gModernFile one = reader_.read(file, text, request.scope, request.context);
  enter(one, reports);
}

void SourceReading::read_includes() {
  for (int depth = 0; depth < deepest_include && !includes_.empty(); ++depth) {
    std::vector<gIncludeRequest> const requests = std::exchange(includes_, {});
    for (gIncludeRequest const & request : requests) {
      Vapp::poll_break();
      read_include(request, Msg::log);
    }
  }
}

// What no unit takes in stands for itself.
void SourceReading::read_fragments() {
  for (gSrcFile const & file : fragments_) {
    Vapp::poll_break();
    std::string text;
    if (!taken_.insert(file.path()).second || !read_text(file, text, Msg::log))
      continue;
    gModernFile one = reader_.read(file, text);
    enter(one, Msg::log);
    read_includes();
  }
}

// A file that several classes take in goes to the first.
void SourceReading::adopt_all_members() {
  std::set<std::string> adopted;
  for (gIncludeRequest const & request : members_) {
    gPathstring path = request.by.opath().dir_name();
    path.append(request.name);
    path.normalize(true);
    if (adopted.insert(path).second)
      adopt_members(path, request);
  }
}

void SourceReading::run() {
  collect_macros();
  read_all();
  read_includes();
  read_fragments();
  adopt_all_members();
}

} // namespace

void ana_read_sources(std::list<gSrcFile> const & files) {
  SourceReading(files).run();
}
