// What the window shows as long as there is nothing else to show.
#pragma once

#include <QWidget>
#include <functional>
#include <string_view>

// Says what to do next. `run` gets the name of the command that a button stands for.
class gStartPage : public QWidget {
public:
  explicit gStartPage(std::function<void(std::string_view command)> run);
  // A menu of the user's own may lack some of the commands.
  void show_those(std::function<bool(std::string_view command)> const & exists);
};
