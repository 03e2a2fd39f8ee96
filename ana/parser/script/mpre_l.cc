// Copies a script line by line: a comment leaves its line feed, and an included file is pasted
// between "#line" directives, so that the next pass can tell the position of everything.
#include "ana/parser/script/mpre_scan.h"

#include "ana/anadat/input_table.h"
#include "vlb/gfilesystem.h"
#include "vlb/messages.h"

namespace {

constexpr int INITIAL = mpre_scan::INITIAL, INCLUDE = mpre_scan::INCLUDE,
              ENDLINE = mpre_scan::ENDLINE, COMMENT = mpre_scan::COMMENT;

int copy(mpre_scan & s) {
  s.echo_text();
  return scan_go_on;
}

int drop(mpre_scan &) {
  return scan_go_on;
}

int enter(mpre_scan & s, int condition) {
  s.begin(condition);
  return scan_go_on;
}

int end_of_dropped_line(mpre_scan & s) {
  s.echo_text();
  return enter(s, INITIAL);
}

int include(mpre_scan & s) {
  s.include_file();
  return enter(s, ENDLINE);
}

// Runs stop in front of "#" and "!", so that a directive and a comment are always seen.
gScanRule<mpre_scan> const rules[] = {
    {in({INITIAL}), "^[ \t]*#[ \t]*include", [](mpre_scan & s) { return enter(s, INCLUDE); }},
    {in({INITIAL}), "!=", copy}, // the operator
    {in({INITIAL}), "!", [](mpre_scan & s) { return enter(s, COMMENT); }},
    {in({INITIAL}), "\\R[^!#\n]+", copy},
    {in({INITIAL}), "\\R#", copy},
    {in({INITIAL}), "\n", copy},
    {in({INCLUDE}), "[ \t]*\\\"[^\\\"\n]+\\\"", include},
    {in({INCLUDE}), "[ \t]*<[^>\n]+>", include},
    {in({ENDLINE, COMMENT}), "\\R[^\n]+", drop},
    {in({ENDLINE, COMMENT}), "\n", end_of_dropped_line},
};

gScanTable<mpre_scan> const & table() {
  static gScanTable<mpre_scan> const built(rules);
  return built;
}

std::string directive(int line, gPathstring const & path) {
  return "#line " + std::to_string(line) + " \"" + path + "\"\n";
}

} // namespace

int mpre_scan::scan() {
  return run(*this, table());
}

// A last line without a line feed is read as if it had one.
int mpre_scan::wrap() {
  if (condition() == ENDLINE || condition() == COMMENT) {
    ECHO('\n');
    begin(INITIAL);
  }
  return 1;
}

// An included script is written by the one that includes it.
void mpre_scan::ECHO(std::string_view text) const {
  if (into_)
    into_->ECHO(text);
  else
    gScanBase::ECHO(text);
}

void mpre_scan::include_file() {
  gString name = value();
  name.wsp_rmleft();
  gPathstring path(name.substr(1, name.size() - 2));
  path.normalize(true);
  path.make_absolute(gInput->script.dir_name());
  std::string text;
  if (into_)
    error(Msg::nested_include, path);
  else if (path == cur_infile().path())
    error(Msg::self_include, path);
  else if (!gFileSystem::read_file(path, text))
    error(Msg::cannot_read, path);
  else
    return paste(path, text);
  ECHO('\n');
}

void mpre_scan::paste(gPathstring const & path, std::string_view text) {
  if (text.starts_with("\xEF\xBB\xBF"))
    text.remove_prefix(3);
  ECHO(directive(1, path));
  mpre_scan included(standard_size);
  included.into_ = this;
  included.report_to(reports());
  included.open_text(gSrcFile(path, "", 0), text);
  included.scan();
  ECHO(directive(line() + 1, cur_infile().path()));
}
