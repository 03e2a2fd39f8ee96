// Pages that show options by their rows.
#pragma once

#include "app/options/option_rows.h"
#include "app/shell/dialogs/page.h"

// Label, kind, limits and choices of a field come from the row of its option, and its id is the
// path of the option. Flags are checks, numbers and texts are lines; what has choices is a combo.
class gOptionPage : public gPage {
public:
  using gPage::gPage;

  bool exchange(bool store) override;
  bool rule(gField & field) override;

protected:
  // The options that are flags, numbers, texts or paths of shipped files.
  using Name = Vapp::gOptionName<Vapp::gOptionType::flag, Vapp::gOptionType::number,
                                 Vapp::gOptionType::text, Vapp::gOptionType::shipped>;
  gField & option(Name name, std::string const & frame = {}) { return field_of(name.row(), frame); }
  gField & field_of(Vapp::gOptionRow const & row, std::string const & frame = {});
  // A flag as a choice between two texts, its own label standing for "on".
  gField & either(Vapp::gFlagName name, char const * label_off, std::string const & frame = {});
  gField & button(std::string const & id, std::string const & label,
                  gField::Place place = gField::Place::below, std::string const & frame = {});

  // Writes an option if its value differs; answers whether it did.
  static bool store(Vapp::gOptionRow const & row, cRef<cObj> const & value);
  static cMapObj & tree_of(Vapp::gOptionRow const & row);

private:
  struct Binding {
    Vapp::gOptionRow const & row;
    gField & field;
    int shown = -1; // the row of a combo that the option gave
  };
  static void show(Binding & binding);
  static bool store(Binding const & binding);
  static cRef<cObj> entered(Binding const & binding);

  std::deque<Binding> bindings_;
};
