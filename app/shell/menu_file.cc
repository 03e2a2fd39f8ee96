// The menu file, line by line; blanks at both ends of a line and of a field don't count:
//   ! comment
//   menu LABEL          begins a menu inside the current one, up to its "end"
//   end
//   -                   a separator
//   HANDLER | LABEL | PARAMETER | ACCELERATOR | PICTURE | WHAT IT DOES
// A command may leave out fields from the right.

#include "app/shell/cmenu_handler.h"
#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"

namespace {

constexpr std::size_t deepest = 16;
constexpr std::size_t most_commands = 1000; // each is asked for its state all the time
constexpr std::size_t most_told = 8;        // names that are no commands
constexpr std::size_t longest_told = 40;

gString trimmed(std::string_view text) {
  gString result(text);
  result.wsp_rmright().wsp_rmleft();
  return result;
}

// What stands in front of the separator, which goes from the text with it.
gString next_field(std::string_view & text, char separator) {
  std::size_t const end = std::min(text.find(separator), text.size());
  gString const field = trimmed(text.substr(0, end));
  text.remove_prefix(std::min(end + 1, text.size()));
  return field;
}

class MenuReader {
public:
  explicit MenuReader(cHandlerList & list) : list_(list) { open_.push_back(&root_); }

  void read(std::string_view text) {
    while (!text.empty())
      line(next_field(text, '\n'));
  }
  // Names that are no commands, with ", " between them.
  gString unknown() const { return unknown_ + (told_ > most_told ? ", ..." : ""); }
  std::vector<gMenuEntry> take() { return std::move(root_.entries); }

private:
  void line(std::string_view text) {
    if (text.empty() || text.front() == '!')
      return;
    if (text == "-")
      add(gMenuEntry::separator);
    else if (text == "end")
      close();
    else if (text.substr(0, text.find_first_of(" \t")) == "menu")
      open(text.substr(4));
    else
      command(text);
  }

  gMenuEntry & add(gMenuEntry::Kind kind) {
    gMenuEntry & entry = open_.back()->entries.emplace_back();
    entry.kind = kind;
    return entry;
  }

  // Menus nested too deep for any screen join the one they stand in.
  void open(std::string_view label) {
    if (open_.size() == deepest) {
      ++joined_;
      return;
    }
    gMenuEntry & entry = add(gMenuEntry::menu);
    entry.label = trimmed(label);
    open_.push_back(&entry);
  }

  void close() {
    if (joined_ > 0)
      --joined_;
    else if (open_.size() > 1)
      open_.pop_back();
  }

  void command(std::string_view text) {
    gString const name = next_field(text, '|');
    std::unique_ptr<cMenuHandlerBase> handler = make_handler(name);
    if (!handler) {
      tell(name);
      return;
    }
    if (++commands_ > most_commands)
      return;
    gMenuEntry & entry = add(gMenuEntry::command);
    entry.name = name;
    entry.handler = handler.get();
    entry.label = next_field(text, '|');
    gString const parameters = next_field(text, '|');
    entry.accelerator = next_field(text, '|');
    entry.tool = next_field(text, '|');
    gString const message = next_field(text, '|');
    handler->SetMessageString(message.empty() ? plain_label(entry.label) : message);
    handler.release()->Create(parameters, &list_, &list_);
  }

  void tell(gString const & name) {
    if (++told_ > most_told)
      return;
    Vlb::add_shown(unknown_ += unknown_.empty() ? "" : ", ", name.substr(0, longest_told));
    unknown_ += name.size() > longest_told ? "..." : "";
  }

  cHandlerList & list_;
  gMenuEntry root_;
  std::vector<gMenuEntry *> open_; // the menus around the line, the root first
  std::size_t joined_ = 0;
  std::size_t commands_ = 0, told_ = 0;
  gString unknown_;
};

} // namespace

CString plain_label(std::string_view label) {
  CString text;
  for (std::size_t i = 0; i < label.size(); ++i)
    if (label[i] != '&' || (i > 0 && label[i - 1] == '&'))
      text += label[i];
  text.erase(text.find_last_not_of(" .") + 1);
  return text;
}

bool CreateMenuFromFile(cHandlerList * list, char const * path) {
  std::string text;
  if (!gFileSystem::read_file(gPathstring(path), text))
    return false;
  list->erase();
  MenuReader reader(*list);
  reader.read(text);
  list->set_menu(reader.take());
  if (!reader.unknown().empty())
    Msg::log() << "Unknown commands of the menu are left out: " << reader.unknown() << " (" << path
               << ")" << std::endl;
  return true;
}
