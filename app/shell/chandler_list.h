// The commands of a window in their order, and the menu that they make.
#pragma once

#include <memory>
#include <vector>

#include "app/shell/chandler.h"

class cMenuHandlerBase;

// A line of a menu: a menu of its own, a command or a separator.
struct gMenuEntry {
  enum Kind { menu, command, separator };
  Kind kind = menu;
  gString name;        // of a command: its class
  gString label;       // "&" stands in front of the letter that picks it
  gString accelerator; // such as "Ctrl+O"; empty without one
  gString tool;        // name of its picture in the tool bar; empty if it isn't there
  cMenuHandlerBase * handler = nullptr; // of a command; the list owns it
  std::vector<gMenuEntry> entries;      // of a menu
};

// The top of the dispatch: asks its handlers in their order until one has done it.
class cHandlerList : public cHandler {
public:
  explicit cHandlerList(cHandler * parent = nullptr) : cHandler(parent) {}
  ~cHandlerList() override;

  int DoCommand(int id) override;
  int DoUpdateCommand(int id) override;
  int DoDropFile(char const * path, cPointT2<int> const & place) override;
  int DoGetMessageString(int id, CString & text) override;

  // Takes the handler over and gives it its number.
  void insert(std::unique_ptr<cHandler> handler);
  // Gives it back; null if it isn't here.
  std::unique_ptr<cHandler> remove(cHandler const * handler);
  void erase();

  std::vector<std::unique_ptr<cHandler>> const & handlers() const { return handlers_; }
  std::vector<gMenuEntry> const & menu() const { return menu_; }
  void set_menu(std::vector<gMenuEntry> menu) { menu_ = std::move(menu); }

private:
  std::vector<std::unique_ptr<cHandler>> handlers_;
  std::vector<gMenuEntry> menu_;
  int last_id_ = 0;
};
