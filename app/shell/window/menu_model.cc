// The file says which commands there are; that one can leave, see the tool bar and learn the
// version must not depend on it.

#include "app/shell/window/menu_model.h"

#include <algorithm>

#include "app/shell/cmenu_handler.h"

namespace {

struct BuiltInEntry {
  gBuiltIn id;
  char const *name, *label, *accelerator, *status;
  bool checkable;
};

constexpr BuiltInEntry exit_entry = {gBuiltIn::exit,     "exit", "E&xit", "Ctrl+Q",
                                     "Ends the program", false};
constexpr BuiltInEntry view_entries[] = {
    {gBuiltIn::tool_bar, "tool_bar", "&Toolbar", "", "Shows or hides the tool bar", true},
    {gBuiltIn::status_bar, "status_bar", "&Status Bar", "", "Shows or hides the status bar", true},
    {gBuiltIn::messages, "messages", "&Messages", "Ctrl+M", "Shows or hides the messages", true}};
constexpr BuiltInEntry about_entry = {
    gBuiltIn::about, "about", "&About Vellumar...", "", "Shows the version of the program", false};

gMenuItem separator() {
  gMenuItem item;
  item.kind = gMenuItem::Kind::separator;
  return item;
}

gMenuItem menu(char const * label) {
  gMenuItem item;
  item.label = label;
  return item;
}

gMenuItem made(BuiltInEntry const & entry) {
  gMenuItem item;
  item.kind = gMenuItem::Kind::command;
  item.id = static_cast<int>(entry.id);
  item.name = entry.name;
  item.label = entry.label;
  item.accelerator = entry.accelerator;
  item.status = entry.status;
  item.checkable = item.checked = entry.checkable;
  return item;
}

gMenuItem made(gMenuEntry const & entry) {
  gMenuItem item;
  item.label = entry.label;
  if (entry.kind == gMenuEntry::separator)
    return separator();
  if (entry.kind == gMenuEntry::menu) {
    for (gMenuEntry const & inner : entry.entries)
      item.items.push_back(made(inner));
    return item;
  }
  item.kind = gMenuItem::Kind::command;
  item.id = entry.handler->id();
  item.name = entry.name;
  item.accelerator = entry.accelerator;
  item.picture = entry.tool;
  CString text;
  entry.handler->DoGetMessageString(item.id, text);
  item.status = text;
  return item;
}

// Calls `use` for each command, at any depth.
template <class Items, class Use> void for_commands(Items & items, Use const & use) {
  for (auto & item : items) {
    if (item.kind == gMenuItem::Kind::command)
      use(item);
    for_commands(item.items, use);
  }
}

template <class Test>
gMenuItem const * first(std::vector<gMenuItem> const & menus, Test const & test) {
  gMenuItem const * found = nullptr;
  for_commands(menus, [&](gMenuItem const & item) {
    if (!found && test(item))
      found = &item;
  });
  return found;
}

} // namespace

void gMenuModel::build() {
  menus_.clear();
  tool_bar_.clear();
  for (gMenuEntry const & entry : list_.menu())
    menus_.push_back(made(entry));
  add_built_in();
  collect_tools(menus_);
  update();
}

// The first menu of the file takes the exit, and a menu of its own begins with it only if there is
// none. About joins the file's last menu, which is that of the help, if that holds the help.
void gMenuModel::add_built_in() {
  auto const top = std::ranges::find(menus_, gMenuItem::Kind::menu, &gMenuItem::kind);
  gMenuItem & first_menu = top == menus_.end() ? menus_.emplace_back(menu("&File")) : *top;
  if (!first_menu.items.empty())
    first_menu.items.push_back(separator());
  first_menu.items.push_back(made(exit_entry));
  gMenuItem view = menu("&View");
  for (BuiltInEntry const & entry : view_entries)
    view.items.push_back(made(entry));
  auto const holds_help = [](gMenuItem const & item) { return item.name == "gVappHelp"; };
  bool const has_help = menus_.size() > 1 && std::ranges::any_of(menus_.back().items, holds_help);
  if (!has_help)
    menus_.push_back(menu("&?"));
  else
    menus_.back().items.push_back(separator());
  menus_.back().items.push_back(made(about_entry));
  menus_.insert(menus_.end() - 1, std::move(view));
}

void gMenuModel::collect_tools(std::vector<gMenuItem> const & items) {
  for (gMenuItem const & menu : items) {
    std::vector<gMenuItem> tools;
    for_commands(menu.items, [&](gMenuItem const & item) {
      if (!item.picture.empty())
        tools.push_back(item);
    });
    if (!tools.empty() && !tool_bar_.empty())
      tool_bar_.push_back(separator());
    tool_bar_.insert(tool_bar_.end(), tools.begin(), tools.end());
  }
}

bool gMenuModel::update() {
  bool changed = false;
  auto const ask = [&](gMenuItem & item) {
    bool const enabled = item.id < 0 || list_.DoUpdateCommand(item.id) != 0;
    changed |= enabled != item.enabled;
    item.enabled = enabled;
  };
  for_commands(menus_, ask);
  for_commands(tool_bar_, ask);
  return changed;
}

gMenuItem const * gMenuModel::find(int id) const {
  return first(menus_, [id](gMenuItem const & item) { return item.id == id; });
}

gMenuItem const * gMenuModel::find(std::string_view name) const {
  return first(menus_, [name](gMenuItem const & item) { return item.name == name; });
}

void gMenuModel::check(gBuiltIn entry, bool checked) {
  for_commands(menus_, [&](gMenuItem & item) {
    if (item.id == static_cast<int>(entry))
      item.checked = checked;
  });
}
