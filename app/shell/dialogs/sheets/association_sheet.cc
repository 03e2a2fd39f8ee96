// The order of the search is a list of its own; the rest is flags.
#include "app/shell/dialogs/sheets/association_sheet.h"

#include "app/options/options.h"
#include "app/shell/dialogs/context.h"
#include "app/shell/dialogs/sheets/option_page.h"
#include "app/shell/dialogs/sheets/search_order.h"

using namespace Vapp;

namespace {

constexpr gOptionRow const & order_row = *find_row("ana/alloc/order");
constexpr gOptionRow const & rank_row = *find_row("ana/alloc/prio");
constexpr gOptionRow const & unit_row = *find_row("ana/alloc/gen_unit");

cRef<cObj> list_of(std::vector<int> const & numbers) {
  auto list = make_ref<cVectorObj>();
  for (int number : numbers)
    list->append(cat::make(number));
  return list;
}

class gDiaAllocA : public gOptionPage {
public:
  gDiaAllocA()
      : gOptionPage("Algorithm", gContext::association_order),
        list_(add({.id = "methods", .kind = gField::Kind::list})) {
    frame("position", "Position");
    frame("rank", "Rank");
    list_.titles = {std::string(order_row.label), std::string(rank_row.label)};
    button("position_up", "Up", gField::Place::column, "position").tool_tip =
        "Try the method earlier, within its rank";
    button("position_down", "Down", gField::Place::below, "position").tool_tip =
        "Try the method later, within its rank";
    button("rank_up", "Up", gField::Place::below, "rank").tool_tip = "Raise the method's rank";
    button("rank_down", "Down", gField::Place::below, "rank").tool_tip =
        "Lower the method's rank, down to where it isn't tried";
  }

  bool exchange(bool store_it) override {
    if (store_it) {
      bool const written = store(order_row, list_of(order_.order()));
      return store(rank_row, list_of(order_.ranks())) || written;
    }
    order_ = gSearchOrder(numbers_in(options, order_row), numbers_in(options, rank_row));
    list_.selected = 0;
    show();
    return false;
  }

  void pressed(gField & button) override {
    int const step = button.id.ends_with("up") ? 1 : -1;
    if (list_.selected < 0)
      return;
    std::vector<int> const order = order_.order(), ranks = order_.ranks();
    list_.selected = button.frame == "rank" ? order_.change_rank(list_.selected, step)
                                            : order_.move(list_.selected, -step);
    show();
    if (order != order_.order() || ranks != order_.ranks())
      touch();
  }

private:
  void show() {
    list_.rows.clear();
    for (gSearchOrder::Method const & method : order_.rows())
      list_.rows.push_back({std::string(order_row.choices[method.number - 1].label),
                            method.rank ? std::to_string(method.rank) : "Don't consider"});
  }

  gSearchOrder order_{{}, {}};
  gField & list_;
};

class gDiaAllocB : public gOptionPage {
public:
  gDiaAllocB() : gOptionPage("Options", gContext::association_options) {
    frame("missing", "Text unit without code element");
    option("ana/alloc/miss_warn", "missing");
    option("ana/alloc/miss_output", "missing");
    frame("differing", "Differing attribute values");
    either("ana/alloc/diffattr_code", "retain value of text unit", "differing");
    option("ana/alloc/diffattr_err", "differing");
  }
};

// A box for each bit of the sum; the other options say which elements of these types count.
class gDiaAllocC : public gOptionPage {
public:
  gDiaAllocC() : gOptionPage("Code without Text", gContext::association_units) {
    frame("types", std::string(unit_row.label));
    for (gChoice const & type : unit_row.choices) {
      gField & box = add({.id = std::string(type.label), .kind = gField::Kind::check});
      box.label = type.label;
      box.frame = "types";
      boxes_.push_back(&box);
    }
    option("ana/alloc/gen_private", "types").place = gField::Place::column;
    option("ana/alloc/gen_static", "types");
    option("ana/alloc/gen_extern", "types");
  }

  bool exchange(bool store_it) override {
    bool written = gOptionPage::exchange(store_it);
    int mask = 0;
    for (std::size_t i = 0; i < boxes_.size(); ++i) {
      mask |= boxes_[i]->checked ? 1 << i : 0;
      if (!store_it)
        boxes_[i]->checked = number_in(options, unit_row) >> i & 1;
    }
    if (store_it)
      written |= store(unit_row, cat::make(mask));
    return written;
  }

private:
  std::vector<gField *> boxes_;
};

} // namespace

gAssociationSheet::gAssociationSheet()
    : gDialog("Association of Code Elements And Text Units", Apply::yes) {
  add_page<gDiaAllocA>();
  add_page<gDiaAllocB>();
  add_page<gDiaAllocC>();
}
