// The main window over the frame.
#pragma once

#include <QMainWindow>
#include <QTimer>

#include "app/qt/dialog_host.h"
#include "app/qt/qt_outside.h"
#include "app/shell/window/vapp_frame.h"

class gMenuBars;
class gMessageView;
class gResultBar;
class gStartPage;
class QLabel;
class QProgressBar;
class QStackedWidget;

// Draws what the frame holds, and tells it what the user does.
class gMainWindow : public QMainWindow, public gFrameView {
public:
  explicit gMainWindow(gDesktop & desktop, gPathstring const & help_map);
  ~gMainWindow() override;

  gVappFrame & frame() { return frame_; }

  bool create() override;
  std::vector<gRect> screens() override;
  gRect place() override;
  void set_place(gRect const & place) override;
  void show() override;
  void close() override;
  void set_title(std::string const & title) override;
  void update_menu() override;
  void show_tool_bar(bool show) override;
  void show_status_bar(bool show) override;
  void show_messages(bool show) override;
  void update_messages(bool cleared) override;
  void update_progress() override;

protected:
  void closeEvent(QCloseEvent * event) override;
  void dragEnterEvent(QDragEnterEvent * event) override;
  void dropEvent(QDropEvent * event) override;

private:
  void make_status_bar();
  void idle();
  void choose_page();
  void show_result();

  gVappFrame frame_;
  gQtOutside outside_;
  gQtDialogHost host_;
  gMenuBars * bars_ = nullptr;
  QStackedWidget * pages_ = nullptr;
  gMessageView * messages_ = nullptr;
  gResultBar * result_ = nullptr;
  gStartPage * start_ = nullptr;
  QLabel * counts_ = nullptr;
  QLabel * stage_ = nullptr;
  QProgressBar * progress_ = nullptr;
  gPathstring result_of_; // the project of the last conversion
  QTimer idle_;
  bool closing_ = false;
};
