// What the analysis didn't understand is shown as it stands in the source, so that a reader sees
// what is missing, and an author what to mend.

#include "conv/atc/encoding.h"
#include "conv/htm/html_text.h"
#include "conv/htm/page_writer.h"

namespace {

using V = gVltValue;

constexpr char const * page_name = "skipped.htm";
constexpr std::size_t most_stretches = 500; // on the page
constexpr int most_lines = 12;              // of a stretch
constexpr std::size_t most_text = 2000;     // of a stretch, in bytes

// A source, read once for all stretches that follow each other in it.
class gLines {
public:
  gLines(gSources const & sources, gReportSink & reports) : sources_(sources), reports_(reports) {}

  // The first lines of a stretch; empty if the source can't be read any more.
  std::string_view of(gSkippedRecord const & one) {
    open(one.path);
    if (one.first < line_) {
      at_ = 0;
      line_ = 1;
    }
    while (line_ < one.first && next_line())
      ++line_;
    std::size_t const begin = at_;
    for (int i = std::min(one.last - one.first + 1, most_lines); i > 0 && next_line(); --i)
      ++line_;
    return std::string_view(text_).substr(begin, std::min(at_ - begin, most_text));
  }

private:
  void open(std::string const & path) {
    if (path == path_)
      return;
    path_ = path;
    at_ = 0;
    line_ = 1;
    text_.clear();
    std::string bytes;
    if (sources_.read(path, bytes, reports_))
      Atc::append_utf8(bytes, text_);
  }

  bool next_line() {
    if (at_ >= text_.size())
      return false;
    at_ = std::min(text_.find('\n', at_), text_.size() - 1) + 1;
    return true;
  }

  gSources const & sources_;
  gReportSink & reports_;
  std::string path_, text_;
  std::size_t at_ = 0;
  int line_ = 1; // that begins at `at_`
};

std::string scope_link(gSite const & site, std::string const & name) {
  std::string const text = Html::escaped(name);
  gTarget const target = name.empty() ? gTarget() : site.document.find_name(-1, name);
  if (!target)
    return text;
  std::string const href = site.addresses.href(target.unit);
  std::string out;
  site.rules.apply(gVltRule::name_link, gVltValues().set(V::text, text).set(V::href, href), out);
  return out;
}

void add_item(gSite & site, gSkippedRecord const & one, gLines & lines, std::string & out) {
  std::string const line = std::to_string(one.first),
                    count = site.number(static_cast<std::size_t>(one.last - one.first + 1));
  std::string_view const text = lines.of(one);
  std::string const path = Html::escaped(site.sources.shown(one.path));
  std::string const href = site.source_addresses.href(one.path, line, site.reports);
  std::string const reason = Html::escaped(one.reason), scope = scope_link(site, one.scope);
  std::string const source = Html::escaped(text);
  gVltValues values;
  values.set(V::path, path).set(V::line, line).set(V::count, count).set(V::href, href);
  values.set(V::text, reason).set(V::scope, scope).set(V::items, source);
  site.rules.apply(gVltRule::skipped_item, values, out);
}

} // namespace

std::string Pages::skipped_note(gSite const & site, std::size_t stretches) {
  std::string out;
  std::string const count = site.number(stretches);
  if (stretches > 0)
    site.rules.apply(gVltRule::skipped_note,
                     gVltValues().set(V::count, count).set(V::href, page_name), out);
  return out;
}

void Pages::write_skipped(gPageWriter & writer, gSite & site, gNavigation const & navigation) {
  auto const & skipped = site.document.skipped;
  if (skipped.empty())
    return;
  gLines lines(site.sources, site.reports);
  std::string items;
  for (std::size_t i = 0; i < std::min(skipped.size(), most_stretches); ++i)
    add_item(site, skipped[i], lines, items);
  gPageFrame frame;
  frame.style = "skipped";
  frame.file = page_name;
  frame.title = site.rules.setting("skipped_title", "Not read");
  frame.crumbs = navigation.crumbs(-1, frame.title, "");
  frame.contents = navigation.tree(-1);
  std::string const title = Html::escaped(frame.title), count = site.number(skipped.size());
  std::string const more = skipped.size() > most_stretches
                               ? site.number(skipped.size() - most_stretches)
                               : std::string();
  gVltValues values;
  values.set(V::title, title).set(V::items, items).set(V::count, count).set(V::number, more);
  site.rules.apply(gVltRule::skipped_page, values, frame.content);
  writer.write(frame);
}
