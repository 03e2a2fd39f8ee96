// One rule makes all pages; in it the script tells the sorts apart by "style".

#include "conv/htm/page_writer.h"

#include <algorithm>

#include "conv/htm/class_tree.h"
#include "conv/htm/html_text.h"

namespace {
using V = gVltValue;
} // namespace

void gPageWriter::write(gPageFrame const & frame) {
  std::string const whole = Html::escaped(site_.title), own = Html::escaped(frame.title);
  std::string const name = Html::escaped(site_.document.name);
  std::string const root = !frame.root.empty()                         ? Html::escaped(frame.root)
                           : frame.file.find('/') == std::string::npos ? ""
                                                                       : "../";
  std::string const summary =
      Html::escaped(frame.summary.empty() ? site_.description : frame.summary);
  std::string const version = Html::escaped(site_.version);
  std::string const address =
      site_.address.empty() || !frame.root.empty() ? "" : Html::escaped(site_.address + frame.file);
  gVltValues values;
  values.set(V::doc_title, whole).set(V::page_title, own).set(V::root, root).set(V::name, name);
  values.set(V::crumbs, frame.crumbs).set(V::contents, frame.contents);
  values.set(V::on_page, frame.on_page).set(V::content, frame.content);
  values.set(V::previous, frame.previous.href).set(V::previous_title, frame.previous.title);
  values.set(V::next, frame.next.href).set(V::next_title, frame.next.title);
  values.set(V::head_left, frame.head_left).set(V::head_right, frame.head_right);
  values.set(V::foot_left, frame.foot_left).set(V::foot_right, frame.foot_right);
  values.set(V::summary, summary).set(V::version, version).set(V::address, address);
  values.set(V::style, frame.style).set(V::href, frame.file);
  values.set(V::kind, frame.kind).set(V::kind_class, frame.kind_class);
  values.set(V::path, frame.leads_to);
  if (site_.class_tree)
    values.set(V::class_tree, site_.class_tree->file());
  text_.clear();
  site_.rules.apply(gVltRule::page, values, text_);
  conversion_.write(frame.file, text_);
  if (site_.link_check)
    site_.link_check->add_page(frame.file, text_);
}
