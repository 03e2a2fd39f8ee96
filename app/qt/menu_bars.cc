// Entries come and go only with the menu file; else an action stays, and its state changes. The
// menu and the tool bar share the actions.

#include "app/qt/menu_bars.h"

#include <QAction>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include "app/qt/icons.h"
#include "app/qt/text.h"
#include "app/shell/cmenu_handler.h"

namespace {

constexpr int tool_size = 24;

std::size_t commands(std::vector<gMenuItem> const & items) {
  std::size_t count = 0;
  for (gMenuItem const & item : items)
    count += item.kind == gMenuItem::Kind::command ? 1 : commands(item.items);
  return count;
}

QString tool_tip(gMenuItem const & item) {
  QString const text = Gui::tr(item.status.empty() ? plain_label(item.label) : item.status);
  QString const keys = Gui::text(item.accelerator);
  return keys.isEmpty() ? text : text + " (" + keys + ")";
}

} // namespace

gMenuBars::gMenuBars(QMainWindow & window, gMenuModel const & model, Events events)
    : QObject(&window),
      window_(window),
      model_(model),
      events_(std::move(events)),
      tool_bar_(window.addToolBar(Gui::tr("Standard"))) {
  tool_bar_->setObjectName("standard");
  tool_bar_->setMovable(false);
  tool_bar_->setContextMenuPolicy(Qt::PreventContextMenu);
  tool_bar_->setIconSize(QSize(tool_size, tool_size));
}

QAction * gMenuBars::action(std::string_view name) const {
  gMenuItem const * const item = model_.find(name);
  auto const found = item ? actions_.find(item->id) : actions_.end();
  return found == actions_.end() ? nullptr : found->second;
}

void gMenuBars::update() {
  if (commands(model_.menus()) != actions_.size())
    rebuild();
  update_items(model_.menus());
}

void gMenuBars::rebuild() {
  window_.menuBar()->clear();
  tool_bar_->clear();
  for (auto const & [id, action] : actions_)
    delete action;
  actions_.clear();
  for (gMenuItem const & menu : model_.menus())
    fill(*window_.menuBar()->addMenu(Gui::tr(menu.label)), menu.items);
  for (gMenuItem const & item : model_.tool_bar()) {
    auto const found = actions_.find(item.id);
    if (item.kind == gMenuItem::Kind::separator)
      tool_bar_->addSeparator();
    else if (found != actions_.end())
      tool_bar_->addAction(found->second);
  }
  for (QWidget * button : tool_bar_->findChildren<QWidget *>())
    button->setFocusPolicy(Qt::NoFocus);
}

void gMenuBars::fill(QMenu & menu, std::vector<gMenuItem> const & items) {
  menu.installEventFilter(this);
  menu.setToolTipsVisible(false);
  for (gMenuItem const & item : items) {
    if (item.kind == gMenuItem::Kind::separator)
      menu.addSeparator();
    else if (item.kind == gMenuItem::Kind::menu)
      fill(*menu.addMenu(Gui::tr(item.label)), item.items);
    else
      menu.addAction(&make_action(item));
  }
}

QAction & gMenuBars::make_action(gMenuItem const & item) {
  auto * action = new QAction(Gui::icon(item.picture), Gui::tr(item.label), &window_);
  action->setObjectName(Gui::text(item.name));
  action->setData(item.id);
  action->setShortcut(QKeySequence(Gui::text(item.accelerator)));
  action->setStatusTip(Gui::tr(item.status));
  action->setToolTip(tool_tip(item));
  action->setCheckable(item.checkable);
  action->setMenuRole(QAction::NoRole);
  connect(action, &QAction::triggered, this, [this, id = item.id] { events_.run(id); });
  actions_[item.id] = action;
  return *action;
}

void gMenuBars::update_items(std::vector<gMenuItem> const & items) {
  for (gMenuItem const & item : items) {
    update_items(item.items);
    auto const found = actions_.find(item.id);
    if (item.kind != gMenuItem::Kind::command || found == actions_.end())
      continue;
    found->second->setEnabled(item.enabled);
    if (item.checkable)
      found->second->setChecked(item.checked);
  }
}

bool gMenuBars::eventFilter(QObject * watched, QEvent * event) {
  auto const * menu = qobject_cast<QMenu *>(watched);
  bool const key = event->type() == QEvent::KeyPress;
  if (!menu || !key || static_cast<QKeyEvent *>(event)->key() != Qt::Key_F1 ||
      !menu->activeAction())
    return false;
  events_.help(menu->activeAction()->data().toInt());
  return true;
}
