// A script is a list of lines; only a rule that has nothing behind its "=" takes the lines behind
// it too. A fault costs the line or the rule, so that a script with one slip still gives a result.

#include "conv/vlt/parser.h"

#include <algorithm>

#include "app/options/settings.h"
#include "conv/atc/encoding.h"
#include "conv/vlt/template.h"
#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

namespace {

constexpr std::size_t max_depth = 16;
constexpr int max_includes = 256;

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && Vlb::is_space(text.front()))
    text.remove_prefix(1);
  while (!text.empty() && Vlb::is_space(text.back()))
    text.remove_suffix(1);
  return text;
}

// As UTF-8, without a byte-order mark and with line feeds alone.
std::string clean_text(std::string_view text, gPathstring const & path) {
  if (text.starts_with("\xef\xbb\xbf"))
    text.remove_prefix(3);
  std::string clean;
  if (!Atc::append_utf8(text, clean))
    Msg::log(Msg::not_utf8, path);
  return clean;
}

// A line as a report shows it.
std::string shortened(std::string_view line) {
  constexpr std::size_t longest = 60;
  if (line.size() <= longest)
    return std::string(line);
  std::size_t end = longest;
  while (end > 0 && (line[end] & 0xC0) == 0x80)
    --end;
  return std::string(line.substr(0, end)) + "...";
}

} // namespace

bool gVltParser::read(gPathstring const & path) {
  std::string text;
  if (!gFileSystem::read_file(path, text)) {
    Msg::log(Msg::cannot_read, path);
    return false;
  }
  parse(text, path);
  return true;
}

void gVltParser::parse(std::string_view text, gPathstring const & path) {
  Source source;
  source.path = path;
  source.text = clean_text(text, path);
  open_.push_back(gPathstring(path).normalize(false));
  lines(source);
  open_.pop_back();
}

void gVltParser::lines(Source & source) {
  std::string_view line;
  while (next_line(source, line))
    statement(source, line);
}

bool gVltParser::next_line(Source & source, std::string_view & line) {
  if (source.at >= source.text.size())
    return false;
  std::size_t const end = std::min(source.text.find('\n', source.at), source.text.size());
  line = std::string_view(source.text).substr(source.at, end - source.at);
  source.at = end + 1;
  ++source.line;
  return true;
}

void gVltParser::statement(Source & source, std::string_view line) {
  if (line.starts_with('!') || trimmed(line).empty())
    return;
  if (line.starts_with("#include"))
    return include(source, line);
  if (line.starts_with('@'))
    return definition(source, line);
  fault(source, Msg::vlt_syntax, shortened(line));
}

void gVltParser::include(Source const & source, std::string_view line) {
  std::string_view name = trimmed(line.substr(std::string_view("#include").size()));
  if (name.size() < 3 || name.front() != '"' || name.find('"', 1) != name.size() - 1)
    return fault(source, Msg::vlt_syntax, shortened(line));
  gPathstring const wanted = gPathstring(std::string(name.substr(1, name.size() - 2)));
  if (open_.size() > max_depth || ++includes_ > max_includes)
    return fault(source, Msg::vlt_include_depth, wanted);
  bool cycle = false;
  // A user's script may have the name of the default that it includes.
  for (gPathstring const & folder : {gPathstring(source.path.dir_name()), Vapp::ini_dir()}) {
    gPathstring path = wanted;
    if (!folder.empty())
      path.make_absolute(folder);
    std::string text;
    if (being_read(path))
      cycle = true;
    else if (gFileSystem::read_file(path, text))
      return parse(text, path);
  }
  fault(source, cycle ? Msg::vlt_include_cycle : Msg::cannot_read, wanted);
}

bool gVltParser::being_read(gPathstring const & path) const {
  return std::ranges::find(open_, gPathstring(path).normalize(false)) != open_.end();
}

bool gVltParser::read_head(std::string_view line, Head & head) {
  std::size_t at = 1;
  while (at < line.size() && Vlb::is_word(line[at]))
    ++at;
  head.name = line.substr(1, at - 1);
  if (at < line.size() && line[at] == '<') {
    std::size_t const end = line.find('>', at);
    if (end == line.npos)
      return false;
    head.selected = true;
    head.selector = line.substr(at + 1, end - at - 1);
    at = end + 1;
  }
  std::string_view const rest = trimmed(line.substr(at));
  if (head.name.empty() || !rest.starts_with('='))
    return false;
  head.rest = trimmed(rest.substr(1));
  return true;
}

void gVltParser::definition(Source & source, std::string_view line) {
  Head head;
  if (!read_head(line, head))
    return fault(source, Msg::vlt_syntax, shortened(line));
  if (head.name == "set")
    setting(source, head);
  else
    rule(source, head);
}

void gVltParser::setting(Source const & source, Head const & head) {
  if (head.selector.empty())
    return fault(source, Msg::vlt_syntax, "@set needs a name: @set<name> = value");
  rules_.settings_[std::string(head.selector)] = head.rest;
}

void gVltParser::rule(Source & source, Head const & head) {
  int const line = source.line;
  bool const several_lines = head.rest.empty();
  std::string text(head.rest);
  if (several_lines && !block(source, text))
    return fault(source, Msg::vlt_open_rule, head.name, line);
  auto const rule = Vlt::rule_named(head.name);
  if (!rule)
    return fault(source, Msg::vlt_unknown_rule, head.name, line);
  Vlt::gRuleInfo const & info = Vlt::info(*rule);
  if (head.selected && !info.selectable)
    return fault(source, Msg::vlt_no_selector, head.name, line);
  auto const report = [&](gMessage const & message, std::string const & argument, int at) {
    fault(source, message, argument, at);
  };
  gVltTemplate parts;
  if (gVltTemplateParser(info, report).parse(text, several_lines ? line + 1 : line, parts))
    store(head, *rule, std::move(parts));
}

// A line in a template that begins a rule or setting means that an @end is missing: otherwise one
// slip would swallow the whole script.
bool gVltParser::begins_definition(std::string_view line) {
  Head head;
  return line.starts_with('@') && read_head(line, head) &&
         (head.name == "set" || Vlt::rule_named(head.name));
}

bool gVltParser::block(Source & source, std::string & text) {
  std::size_t const begin = source.at;
  for (;;) {
    Source const before{{}, {}, source.at, source.line};
    std::string_view line;
    if (!next_line(source, line))
      return false;
    if (begins_definition(line)) {
      source.at = before.at;
      source.line = before.line;
      return false;
    }
    if (trimmed(line) == "@end") {
      text = source.text.substr(begin, before.at - begin);
      return true;
    }
  }
}

void gVltParser::store(Head const & head, gVltRule rule, gVltTemplate && parts) {
  auto & variants = rules_.rules_[static_cast<std::size_t>(rule)];
  if (!head.selector.empty()) {
    variants.selected[std::string(head.selector)] = std::move(parts);
    return;
  }
  variants.general = std::move(parts);
  variants.defined = true;
}

void gVltParser::fault(Source const & source, gMessage const & message, std::string_view argument,
                       int line) const {
  Msg::log(message, std::string(argument), {source.path, line > 0 ? line : source.line});
}
