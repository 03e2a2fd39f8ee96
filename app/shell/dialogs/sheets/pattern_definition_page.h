// Names and keywords of source patterns and subentries.
#pragma once

#include <functional>

#include "app/shell/dialogs/page.h"
#include "app/shell/dialogs/sheets/pattern_copy.h"

class gSpPage1 : public gPage {
public:
  // `show_all` is called when the copy has changed, for this and the other pages.
  gSpPage1(gPatternCopy & copy, std::function<void()> show_all);

  bool exchange(bool store) override;
  void changed(gField & field) override;
  void pressed(gField & button) override;
  void activated(gField & list, int column) override;
  void key(gField & list, gListKey key) override;
  // The copy was changed elsewhere.
  void show();

private:
  // Patterns and subentries have the same fields and differ in texts and rules.
  struct Kind {
    bool is_pattern;
    gField *names = nullptr, *new_name = nullptr, *delete_name = nullptr;
    gField *keywords = nullptr, *new_keyword = nullptr;
    gField *edit_keyword = nullptr, *delete_keyword = nullptr;
  };
  void add_names(Kind & kind);
  void add_keywords(Kind & kind);
  gField * add_list(std::string const & id, std::string const & frame,
                    std::vector<std::string> const & titles);
  gField * add_button(std::string const & id, char const * label, std::string const & frame,
                      std::string const & tip);
  cMapObj & records(Kind const & kind);
  cRef<cObj> record(Kind const & kind);
  void show(Kind & kind);
  void make(Kind & kind);
  void remove(Kind & kind);
  void edit_keyword(Kind & kind, int position);
  void remove_keyword(Kind & kind);
  void copy_changed();

  gPatternCopy & copy_;
  std::function<void()> show_all_;
  Kind patterns_, subentries_;
};
