// A name is only complete when the user says so: no rule runs while he goes from line to line.

#include "app/shell/dialogs/small_dialogs.h"

#include "app/shell/dialogs/context.h"
#include "store/cerr.h"
#include "vlb/outside.h"

class gLinesDialog::Page : public gPage {
public:
  Page(gLinesDialog & owner, int context) : gPage("", context), owner_(owner) {}

  using gPage::add;
  using gPage::refuse;
  bool exchange(bool) override {
    if (!fields().empty())
      focus(fields().front());
    return false;
  }
  bool check() override {
    Vapp::gCheck const refusal = owner_.check_lines();
    if (refusal)
      owner_.tell(*refusal);
    return !refusal;
  }

private:
  gLinesDialog & owner_;
};

gLinesDialog::gLinesDialog(std::string title, int context) : gDialog(std::move(title)) {
  page_ = &add_page<Page>(*this, context);
}

void gLinesDialog::add_line(std::string id, std::string label, std::string text) {
  page_->add({.id = std::move(id), .label = std::move(label), .text = std::move(text)});
}

gField & gLinesDialog::line(char const * id) const {
  return page_->field(id);
}

std::string const & gLinesDialog::text_of(char const * id) const {
  return line(id).text;
}

void gLinesDialog::tell(Vapp::gRefusal const & refusal) {
  tell_at(page_->fields().front().id.c_str(), refusal.message);
}

void gLinesDialog::tell_at(char const * id, std::string const & text) {
  if (text.empty())
    focus(*page_, id);
  else
    page_->refuse(line(id), text);
}

cTxtDialog::cTxtDialog(std::string title, std::string subtitle, std::string text, Check check)
    : gLinesDialog(std::move(title), gContext::name),
      check_(std::move(check)) {
  add_line("text", std::move(subtitle), std::move(text));
}

Vapp::gCheck cTxtDialog::check_lines() {
  return check_ ? check_(line("text").text) : std::nullopt;
}

NewattrDialog::NewattrDialog(cObj const & tree)
    : gLinesDialog("Define Attribute", gContext::attribute),
      tree_(tree) {
  add_line("name", "Name", "");
  add_line("comment", "Comment", "");
}

Vapp::gCheck NewattrDialog::check_lines() {
  cat::wsp_normalize(line("name").text);
  return Vapp::check_new_attribute(tree_, name());
}

gAttvalDialog::gAttvalDialog(std::string title, cObj const & attribute, std::string value,
                             std::string output)
    : gLinesDialog(std::move(title), gContext::attribute_value),
      attribute_(attribute),
      before_(value) {
  add_line("value", "Value", std::move(value));
  add_line("output", "Output string", std::move(output));
}

// A value that keeps its name isn't in its own way.
Vapp::gCheck gAttvalDialog::check_lines() {
  cat::wsp_normalize(line("value").text);
  if (!before_.empty() && value() == before_)
    return std::nullopt;
  return Vapp::check_attribute_value(value(), attribute_);
}

gKwdDialog::gKwdDialog(std::string title, cObj const & tree, Vapp::gKeywordPlace place,
                       std::string keyword, std::string separators)
    : gLinesDialog(title.empty() ? "Define Keyword" : std::move(title), gContext::keyword),
      tree_(tree),
      place_(std::move(place)) {
  add_line("keyword", "Keyword", std::move(keyword));
  add_line("separators", "Separators", std::move(separators));
}

Vapp::gCheck gKwdDialog::check_lines() {
  cat::wsp_normalize(line("keyword").text);
  return Vapp::check_new_keyword(tree_, keyword(), separators(), place_);
}

// What the check finds goes out as an error record, for whoever else listens.
void gKwdDialog::tell(Vapp::gRefusal const & refusal) {
  cErrSlot const slot([this](cErr & error) {
    tell_at(error.code() == Vapp::field_separators ? "separators" : "keyword", error.text());
  });
  Vapp::publish(refusal);
}

namespace {

class AboutPage : public gPage {
public:
  AboutPage() : gPage("", gContext::about) {
    add({.id = "name", .kind = gField::Kind::note, .text = "Vellumar " VELLUMAR_VERSION});
    add({.id = "purpose",
         .kind = gField::Kind::note,
         .text = "Documentation of C, C++ and Pascal sources"});
  }
  bool exchange(bool) override { return false; }
};

} // namespace

gAboutDialog::gAboutDialog() : gDialog("About Vellumar") {
  add_page<AboutPage>();
}
