// A rule that shows a box takes the focus away from the very field it speaks of, which would run
// the rule again: while one event is worked on, no other counts. A user who is on the way to Cancel
// isn't held up by a field that he wants to throw away.

#include "app/shell/dialogs/dialog.h"

#include <algorithm>
#include <cctype>

#include "app/options/project.h"
#include "app/options/text_rules.h"
#include "vlb/outside.h"

// One event of the user; false while another one goes on, or when the dialog is closed.
class gDialog::Event {
public:
  explicit Event(gDialog & dialog) : dialog_(dialog), mine_(dialog.open_ && !dialog.busy_) {
    if (!mine_)
      return;
    dialog_.busy_ = true;
    dialog_.focus_.reset();
  }
  Event(Event const &) = delete;
  Event & operator=(Event const &) = delete;
  ~Event() {
    if (!mine_)
      return;
    dialog_.busy_ = false;
    dialog_.update();
  }
  explicit operator bool() const { return mine_; }

private:
  gDialog & dialog_;
  bool mine_;
};

namespace {

// A letter for each label that no other label of the page has; the first ones of words rather than
// others.
void give_letters(gPage & page) {
  std::string taken;
  auto const take = [&](gField & field, bool only_words) {
    for (std::size_t i = 0; i < field.label.size() && field.mnemonic < 0; ++i) {
      unsigned char const letter = static_cast<unsigned char>(field.label[i]);
      if (!std::isalnum(letter) || (only_words && i > 0 && field.label[i - 1] != ' '))
        continue;
      char const small = static_cast<char>(std::tolower(letter));
      if (taken.find(small) != taken.npos)
        continue;
      taken += small;
      field.mnemonic = static_cast<int>(i);
    }
  };
  for (bool const only_words : {true, false})
    for (gField & field : page.fields())
      if (field.kind != gField::Kind::note && field.kind != gField::Kind::radio)
        take(field, only_words);
}

} // namespace

// Hears what happens to the project.
struct gDialog::Follower {
  cFunctionSlot1<bool &, std::function<void(bool &)>> leaving;
  cFunctionSlot<std::function<void()>> replaced;
};

gDialog::gDialog(std::string title, Apply apply) : title_(std::move(title)), apply_(apply) {}
gDialog::~gDialog() = default;

void gDialog::follow_project() {
  auto const may_leave = [this](bool & go_on) {
    if (go_on && open_ && changed_)
      go_on = Vlb::outside().ask({Vapp::fill_text("The changes in the dialog '%s' are not stored.\n"
                                                  "Discard them?",
                                                  {title_}),
                                  gOutside::Icon::exclamation, false, gOutside::Answer::no}) ==
              gOutside::Answer::yes;
  };
  follower_ = std::make_unique<Follower>(
      Follower{cFunctionSlot1<bool &, std::function<void(bool &)>>(may_leave),
               cFunctionSlot<std::function<void()>>([this] { cancel(); })});
  Vapp::project().sig_leaving.connect(follower_->leaving);
  Vapp::project().sig_replaced.connect(follower_->replaced);
}

void gDialog::add(std::unique_ptr<gPage> page) {
  page->dialog_ = this;
  pages_.push_back(std::move(page));
}

void gDialog::open() {
  open_ = true;
  for (auto const & page : pages_) {
    give_letters(*page);
    page->exchange(false);
  }
  changed_ = false;
}

void gDialog::go_to(int page) {
  page_ = page >= 0 && page < static_cast<int>(pages_.size()) ? page : 0;
}

void gDialog::focus(gPage const & page, std::string const & field) {
  auto const found = std::find_if(pages_.begin(), pages_.end(),
                                  [&](auto const & one) { return one.get() == &page; });
  page_ = static_cast<int>(found - pages_.begin());
  focus_ = Focus{page_, field};
}

std::optional<gDialog::Focus> gDialog::take_focus() {
  std::optional<Focus> const asked = focus_;
  focus_.reset();
  return asked;
}

void gDialog::changed(gPage & page, gField & field) {
  Event const event(*this);
  if (!event)
    return;
  closing_ = false;
  // Where a list stands isn't part of what is stored.
  if (field.kind != gField::Kind::list && field.stored)
    changed_ = true;
  page.changed(field);
}

void gDialog::left(gPage & page, gField & field, Target const & target) {
  Event const event(*this);
  if (!event)
    return;
  if (target.kind == Target::Kind::cancel)
    closing_ = true;
  gField const * const to = target.kind == Target::Kind::field ? page.find(target.field) : nullptr;
  bool const own_chooser = to && !to->chooser_of.empty() && to->chooser_of == field.id;
  if (!closing_ && !own_chooser && !page.rule(field) && !focus_)
    focus(page, field.id);
}

void gDialog::pressed(gPage & page, gField & button) {
  Event const event(*this);
  if (event && button.enabled)
    page.pressed(button);
}

void gDialog::activated(gPage & page, gField & list, int column) {
  Event const event(*this);
  if (!event || !list.enabled)
    return;
  list.column = column;
  page.activated(list, column);
}

void gDialog::key(gPage & page, gField & list, gListKey key) {
  Event const event(*this);
  if (event && list.enabled)
    page.key(list, key);
}

bool gDialog::check_pages(bool apply) {
  closing_ = false;
  for (auto const & page : pages_)
    if (!page->check()) {
      if (!focus_)
        go_to(static_cast<int>(&page - pages_.data()));
      return false;
    }
  return confirm(apply);
}

bool gDialog::store_pages(bool apply) {
  if (!check_pages(apply))
    return false;
  bool written = false;
  for (auto const & page : pages_)
    written |= page->exchange(true);
  changed_ = false;
  stored(written);
  return true;
}

void gDialog::stored(bool written) {
  if (written)
    Vapp::project().mark_modified();
}

void gDialog::ok() {
  Event const event(*this);
  if (event && store_pages(false))
    close(true);
}

void gDialog::apply() {
  Event const event(*this);
  if (event && apply_ == Apply::yes)
    store_pages(true);
}

void gDialog::cancel() {
  Event const event(*this);
  if (event)
    close(false);
}

void gDialog::close(bool accepted) {
  open_ = false;
  accepted_ = accepted;
}

void gDialog::update() {
  // The window may destroy the dialog, and the function with it.
  auto const tell = on_update;
  if (tell)
    tell();
}
