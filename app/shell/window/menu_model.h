// Menu and tool bar as values: what the window draws, and what it asks about an entry.
#pragma once

#include <string>
#include <vector>

#include "app/shell/chandler_list.h"

// Entries that the window has by itself, whatever the menu file says. Numbers of commands from the
// file are above 0.
enum class gBuiltIn : int { exit = -1, tool_bar = -2, status_bar = -3, messages = -4, about = -5 };

struct gMenuItem {
  enum class Kind { menu, command, separator };
  Kind kind = Kind::menu;
  int id = 0;              // of a command: gMenuModel::run() takes it
  std::string name;        // of a command: its class, such as "gVlpOpen"; of a built-in one "exit"
  std::string label;       // "&" stands in front of the letter that picks it
  std::string accelerator; // such as "Ctrl+O"; empty without one
  std::string picture;     // by its name in the tool bar; empty if it isn't there
  std::string status;      // what it does, for the status line and the tool tip
  bool enabled = true;
  bool checkable = false, checked = false;
  std::vector<gMenuItem> items; // of a menu

  bool operator==(gMenuItem const &) const = default;
};

class gMenuModel {
public:
  // The entries of the list's menu file, with those that are built in. Names stay valid as long as
  // the list isn't filled anew.
  explicit gMenuModel(cHandlerList & list) : list_(list) {}
  void build();

  std::vector<gMenuItem> const & menus() const { return menus_; }
  // Entries with a picture in the menu's order, a separator between those of different menus.
  std::vector<gMenuItem> const & tool_bar() const { return tool_bar_; }
  // Asks every entry whether it is enabled; true if something has changed.
  bool update();
  // The entry with that number, or that name; null if there is none.
  gMenuItem const * find(int id) const;
  gMenuItem const * find(std::string_view name) const;
  void check(gBuiltIn entry, bool checked);

private:
  void add_built_in();
  void collect_tools(std::vector<gMenuItem> const & items);

  cHandlerList & list_;
  std::vector<gMenuItem> menus_;
  std::vector<gMenuItem> tool_bar_;
};
