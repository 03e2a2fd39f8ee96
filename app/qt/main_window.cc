// The frame decides, this window draws. A timer is the heart beat of the frame: what the worker has
// told is taken twenty times a second, whatever else is going on in the window.

#include "app/qt/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMimeData>
#include <QProgressBar>
#include <QScreen>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>

#include "app/qt/icons.h"
#include "app/qt/menu_bars.h"
#include "app/qt/message_view.h"
#include "app/qt/result_bar.h"
#include "app/qt/start_page.h"
#include "app/qt/text.h"
#include "app/shell/facts.h"
#include "app/shell/run.h"

namespace {

constexpr int beat_milliseconds = 50;

gRect from_qt(QRect const & rect) {
  return {rect.left(), rect.top(), rect.left() + rect.width(), rect.top() + rect.height()};
}

} // namespace

gMainWindow::gMainWindow(gDesktop & desktop, gPathstring const & help_map)
    : frame_(*this, desktop, help_map),
      outside_(frame_, *this, *this),
      host_(*this) {
  host_.on_help = [this](int context) { frame_.help_on(context); };
  setAcceptDrops(true);
}

gMainWindow::~gMainWindow() = default;

bool gMainWindow::create() {
  setWindowIcon(Gui::program_icon());
  setContextMenuPolicy(Qt::NoContextMenu);
  bars_ = new gMenuBars(*this, frame_.menu(),
                        {.run = [this](int id) { frame_.run(id); },
                         .help = [this](int id) { frame_.help_on_entry(id); }});
  messages_ =
      new gMessageView(frame_.messages(), [this](std::size_t row) { frame_.open_message(row); });
  result_ = new gResultBar([this] { frame_.run("gOpenResult"); });
  auto * work = new QWidget;
  auto * pile = new QVBoxLayout(work);
  pile->setContentsMargins(0, 0, 0, 0);
  pile->setSpacing(0);
  pile->addWidget(result_);
  pile->addWidget(messages_, 1);
  pages_ = new QStackedWidget;
  start_ = new gStartPage([this](std::string_view command) { frame_.run(command); });
  pages_->addWidget(start_);
  pages_->addWidget(work);
  setCentralWidget(pages_);
  make_status_bar();
  connect(&idle_, &QTimer::timeout, this, [this] { idle(); });
  idle_.start(beat_milliseconds);
  return true;
}

void gMainWindow::make_status_bar() {
  stage_ = new QLabel;
  stage_->setObjectName("stage");
  stage_->setTextFormat(Qt::PlainText);
  progress_ = new QProgressBar;
  progress_->setObjectName("progress");
  progress_->setAccessibleName(Gui::tr("Progress"));
  progress_->setMaximumWidth(180);
  progress_->setTextVisible(false);
  progress_->setMaximumHeight(14);
  progress_->hide();
  counts_ = new QLabel;
  counts_->setObjectName("counts");
  statusBar()->addWidget(stage_, 1);
  statusBar()->addPermanentWidget(progress_);
  statusBar()->addPermanentWidget(counts_);
}

std::vector<gRect> gMainWindow::screens() {
  std::vector<gRect> areas;
  for (QScreen const * screen : QApplication::screens())
    areas.push_back(from_qt(screen->availableGeometry()));
  return areas;
}

gRect gMainWindow::place() {
  return from_qt(isMaximized() ? normalGeometry() : geometry());
}

void gMainWindow::set_place(gRect const & place) {
  setGeometry(place.left, place.top, place.width(), place.height());
}

void gMainWindow::show() {
  update_menu();
  QMainWindow::show();
}

void gMainWindow::close() {
  closing_ = true;
  idle_.stop();
  host_.close_all();
  QMainWindow::close();
  QApplication::quit();
}

void gMainWindow::set_title(std::string const & title) {
  setWindowTitle(Gui::text(title));
  choose_page();
}

void gMainWindow::update_menu() {
  bars_->update();
  start_->show_those([this](std::string_view command) { return frame_.menu().find(command); });
  show_result();
  choose_page();
}

void gMainWindow::show_tool_bar(bool show) {
  bars_->tool_bar().setVisible(show);
}

void gMainWindow::show_status_bar(bool show) {
  statusBar()->setVisible(show);
}

void gMainWindow::show_messages(bool show) {
  messages_->setVisible(show);
  choose_page();
}

void gMainWindow::update_messages(bool cleared) {
  messages_->update_list(cleared);
  gMessageList const & list = frame_.messages();
  std::size_t const errors = list.count(gMessageKind::error) + list.count(gMessageKind::doc_error);
  std::size_t const warnings = list.count(gMessageKind::warning);
  counts_->setText(Gui::tr(errors == 1 ? "%L1 error" : "%L1 errors").arg(errors) + ", " +
                   Gui::tr(warnings == 1 ? "%L1 warning" : "%L1 warnings").arg(warnings));
  choose_page();
}

void gMainWindow::update_progress() {
  gRunProgress const & progress = frame_.progress();
  stage_->setText(Gui::text(progress.text(gRunProgress::Clock::now())));
  progress_->setVisible(progress.busy());
  progress_->setValue(std::max(0, progress.percent()));
}

void gMainWindow::idle() {
  if (frame_.idle())
    QTimer::singleShot(0, this, [this] { idle(); });
}

void gMainWindow::choose_page() {
  if (pages_)
    pages_->setCurrentIndex(frame_.first_start() ? 0 : 1);
}

// The result of another project is none of this one.
void gMainWindow::show_result() {
  gConversionResult const & result = gConversionRun::last_result();
  if (Vapp::output_active)
    result_of_ = Vapp::project().path();
  bool const ready = result.success && Shell::project_open() && Shell::idle() &&
                     result_of_ == Vapp::project().path();
  result_->show_result(ready ? result.start : "");
}

void gMainWindow::closeEvent(QCloseEvent * event) {
  if (!closing_)
    frame_.close();
  event->setAccepted(closing_); // the frame may have agreed at once
}

void gMainWindow::dragEnterEvent(QDragEnterEvent * event) {
  for (QUrl const & url : event->mimeData()->urls()) {
    if (url.isLocalFile())
      event->acceptProposedAction();
  }
}

void gMainWindow::dropEvent(QDropEvent * event) {
  std::vector<std::string> paths;
  for (QUrl const & url : event->mimeData()->urls()) {
    if (url.isLocalFile())
      paths.push_back(Gui::bytes(url.toLocalFile()));
  }
  QPoint const point = event->position().toPoint();
  frame_.drop_files(paths, {point.x(), point.y()});
}
