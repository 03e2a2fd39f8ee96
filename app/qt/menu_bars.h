// Menu bar and tool bar, drawn from the values of the frame.
#pragma once

#include <QObject>
#include <functional>
#include <map>

#include "app/shell/window/menu_model.h"

class QAction;
class QMainWindow;
class QMenu;
class QToolBar;

class gMenuBars : public QObject {
public:
  // What the user does with an entry.
  struct Events {
    std::function<void(int id)> run;
    std::function<void(int id)> help; // F1 over it
  };

  // The bars of the window, which owns this.
  gMenuBars(QMainWindow & window, gMenuModel const & model, Events events);

  // Brings the bars in line with the model.
  void update();
  QToolBar & tool_bar() const { return *tool_bar_; }
  // Null if there is no such entry.
  QAction * action(std::string_view name) const;

protected:
  bool eventFilter(QObject * watched, QEvent * event) override;

private:
  void rebuild();
  void fill(QMenu & menu, std::vector<gMenuItem> const & items);
  QAction & make_action(gMenuItem const & item);
  void update_items(std::vector<gMenuItem> const & items);

  QMainWindow & window_;
  gMenuModel const & model_;
  Events events_;
  QToolBar * tool_bar_;
  std::map<int, QAction *> actions_;
};
