// The window of any dialog.
#pragma once

#include <QDialog>
#include <vector>

#include "app/shell/dialogs/dialog.h"

class gFieldControl;
class gPageWidget;
class QPushButton;
class QTabWidget;

// Draws a dialog, tells it what the user does, and goes with it: accepted or rejected, as the
// dialog says. The dialog has to outlive it.
class gDialogWindow : public QDialog {
public:
  gDialogWindow(gDialog & dialog, QWidget * parent);
  ~gDialogWindow() override;

  gDialog & dialog() const { return dialog_; }
  // Shows the help of the page in front.
  std::function<void(int context)> on_help;

  // Escape, and the closing of the window.
  void reject() override;

protected:
  void keyPressEvent(QKeyEvent * event) override;

private:
  gPageWidget * make_page(gPage & page);
  void add_pages();
  void add_buttons();
  void follow_focus(QWidget * from, QWidget * to);
  void tell_left(gPageWidget & page, gFieldControl & control);
  gDialog::Target target(gPageWidget const & page, QWidget * to) const;
  void update_window();
  void update_title();
  void show_page();
  void take_focus();
  int context() const;

  gDialog & dialog_;
  std::vector<gPageWidget *> pages_;
  QTabWidget * tabs_ = nullptr; // null for a single page
  QPushButton *ok_ = nullptr, *cancel_ = nullptr, *apply_ = nullptr;
  bool own_focus_ = false; // the dialog moves the focus, and not the user
};
