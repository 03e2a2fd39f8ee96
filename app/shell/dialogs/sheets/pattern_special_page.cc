// A set comes and goes in the copy that the other pages show. The optional patterns do so when the
// options are stored, as the completion of a project does it.
#include "app/shell/dialogs/sheets/pattern_special_page.h"

#include "app/shell/dialogs/context.h"
#include "vlb/outside.h"

using namespace Vapp;

namespace {

constexpr char const * optional_patterns[][2] = {{"ana/spt_2star", "spt_2star"},
                                                 {"ana/spt_3slash", "spt_3slash"}};

} // namespace

gSpPageSpecial::gSpPageSpecial(gPatternCopy & copy, std::function<void()> show)
    : gOptionPage("Javadoc/Doc++", gContext::pattern_special),
      copy_(copy),
      show_(std::move(show)) {
  option("ana/spt_2star");
  option("ana/spt_3slash");
  for (auto const & [set, title] :
       {std::pair("javadoc", "Javadoc subentries"), std::pair("docpp", "Doc++ subentries")}) {
    frame(set, title);
    button(std::string(set) + "_add", "+", gField::Place::below, set).tool_tip =
        "Add these subentries and their keywords";
    button(std::string(set) + "_remove", "-", gField::Place::beside, set).tool_tip =
        "Remove these subentries and their keywords";
  }
}

bool gSpPageSpecial::exchange(bool store) {
  bool written = gOptionPage::exchange(store);
  if (!store)
    return false;
  for (auto const & [path, name] : optional_patterns)
    copy_.optional_pattern(name, field(path).checked);
  written |= copy_.store_patterns();
  show_();
  return written;
}

void gSpPageSpecial::pressed(gField & button) {
  gSubentrySet const set = button.frame == "javadoc" ? gSubentrySet::javadoc : gSubentrySet::docpp;
  if (button.label == "+")
    add_set(set);
  else
    copy_.remove_set(set);
  touch();
  show_();
}

void gSpPageSpecial::add_set(gSubentrySet set) {
  std::string lines;
  for (gPatternCopy::Taken const & taken : copy_.add_set(set))
    lines += "\n" + taken.subentry + " (" + taken.holder + ")";
  if (!lines.empty())
    Vlb::outside().box("New subentries without a keyword, since another one has it already:" +
                           lines,
                       gOutside::Icon::information);
}
