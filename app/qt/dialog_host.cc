// A modeless dialog closes in the middle of its own event, so it is destroyed behind it.

#include "app/qt/dialog_host.h"

#include <QApplication>
#include <QScreen>
#include <QTimer>

#include "app/qt/dialog_window.h"
#include "app/shell/window/geometry.h"

namespace {

constexpr int gap = 8;
constexpr int below = 60;

gRect from_qt(QRect const & rect) {
  return {rect.left(), rect.top(), rect.left() + rect.width(), rect.top() + rect.height()};
}

void place_beside(QWidget & dialog, QWidget const & window) {
  gRect const place =
      Shell::place_aside(from_qt(dialog.frameGeometry()), from_qt(window.frameGeometry()),
                         from_qt(window.screen()->availableGeometry()), gap, below);
  dialog.move(place.left, place.top);
}

} // namespace

struct gQtDialogHost::Open {
  std::unique_ptr<gDialog> dialog;
  std::function<void()> closed;
  std::unique_ptr<gDialogWindow> window; // goes before the dialog
};

gQtDialogHost::gQtDialogHost(QWidget & main_window)
    : main_window_(main_window),
      before_(Shell::set_dialog_host(this)) {}

gQtDialogHost::~gQtDialogHost() {
  Shell::set_dialog_host(before_);
}

void gQtDialogHost::help_by(gDialogWindow & window) {
  window.on_help = [this](int context) {
    if (on_help)
      on_help(context);
  };
}

bool gQtDialogHost::show(gDialog & dialog) {
  QWidget * const active = QApplication::activeWindow();
  gDialogWindow window(dialog, active ? active : &main_window_);
  help_by(window);
  return window.exec() == QDialog::Accepted;
}

void gQtDialogHost::open(std::unique_ptr<gDialog> dialog, std::function<void()> closed) {
  auto window = std::make_unique<gDialogWindow>(*dialog, &main_window_);
  help_by(*window);
  auto open = std::make_unique<Open>(Open{std::move(dialog), std::move(closed), std::move(window)});
  Open * const opened = open_.emplace_back(std::move(open)).get();
  QObject::connect(opened->window.get(), &QDialog::finished, &main_window_, [this, opened] {
    QTimer::singleShot(0, &main_window_, [this, opened] { remove(opened); });
  });
  place_beside(*opened->window, main_window_);
  opened->window->show();
}

void gQtDialogHost::remove(Open * open) {
  auto const found = std::find_if(open_.begin(), open_.end(),
                                  [open](auto const & one) { return one.get() == open; });
  if (found == open_.end())
    return;
  std::function<void()> const closed = std::move((*found)->closed);
  open_.erase(found);
  if (closed)
    closed();
}

void gQtDialogHost::close_all() {
  for (auto const & open : open_)
    open->dialog->cancel();
}
