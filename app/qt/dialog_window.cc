// Toolkits tell that a widget has lost the focus before it is settled where it went. So the dialog
// is told behind all that, and the target is what has the focus then. While the dialog itself moves
// the focus, nothing was left by the user.

#include "app/qt/dialog_window.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

#include "app/qt/page_layout.h"
#include "app/qt/text.h"
#include "app/qt/window_sizes.h"

gDialogWindow::gDialogWindow(gDialog & dialog, QWidget * parent)
    : QDialog(parent),
      dialog_(dialog) {
  dialog_.open();
  new QVBoxLayout(this);
  add_pages();
  add_buttons();
  dialog_.on_update = [this] { update_window(); };
  // The window goes in the middle of events of its own children.
  connect(qApp, &QApplication::focusChanged, this,
          [this](QWidget * from, QWidget * to) { follow_focus(from, to); });
  update_window();
  Gui::restore_size(*this, dialog_.pages().front()->context());
}

// The base hides the window, which moves the focus once more.
gDialogWindow::~gDialogWindow() {
  qApp->disconnect(this);
  dialog_.on_update = nullptr;
}

gPageWidget * gDialogWindow::make_page(gPage & page) {
  gPageWidget::Controls controls;
  for (gField & field : page.fields()) {
    gFieldControl::Events events;
    events.changed = [this, &page, &field] { dialog_.changed(page, field); };
    events.pressed = [this, &page, &field] { dialog_.pressed(page, field); };
    events.activated = [this, &page, &field](int column) {
      dialog_.activated(page, field, column);
    };
    events.key = [this, &page, &field](gListKey key) { dialog_.key(page, field, key); };
    controls.push_back(gFieldControl::make(field, std::move(events)));
  }
  return pages_.emplace_back(new gPageWidget(page, std::move(controls)));
}

void gDialogWindow::add_pages() {
  if (dialog_.pages().size() == 1) {
    gPageWidget * page = make_page(*dialog_.pages().front());
    page->layout()->setContentsMargins(0, 0, 0, 0);
    layout()->addWidget(page);
    return;
  }
  tabs_ = new QTabWidget;
  tabs_->setAccessibleName(Gui::tr("Pages"));
  for (auto const & page : dialog_.pages())
    tabs_->addTab(make_page(*page), Gui::tr(page->title()));
  connect(tabs_, &QTabWidget::currentChanged, this, [this](int page) { dialog_.go_to(page); });
  layout()->addWidget(tabs_);
}

void gDialogWindow::add_buttons() {
  auto * box = new QDialogButtonBox;
  ok_ = box->addButton(Gui::tr(dialog_.ok_label()), QDialogButtonBox::AcceptRole);
  connect(ok_, &QPushButton::clicked, this, [this] { dialog_.ok(); });
  if (dialog_.has_cancel()) {
    cancel_ = box->addButton(Gui::tr("Cancel"), QDialogButtonBox::RejectRole);
    connect(cancel_, &QPushButton::clicked, this, [this] { dialog_.cancel(); });
  }
  if (dialog_.has_apply()) {
    apply_ = box->addButton(Gui::tr("&Apply"), QDialogButtonBox::ApplyRole);
    connect(apply_, &QPushButton::clicked, this, [this] { dialog_.apply(); });
  }
  for (QAbstractButton * button : box->buttons())
    button->setAccessibleName(button->text().remove('&'));
  layout()->addItem(new QSpacerItem(0, 6));
  layout()->addWidget(box);
  ok_->setDefault(true); // of the dialog, so it has to be in it
}

void gDialogWindow::follow_focus(QWidget * from, QWidget * to) {
  if (own_focus_ || !from)
    return;
  for (gPageWidget * page : pages_) {
    gFieldControl * const control = page->control_of(from);
    if (control && page->control_of(to) != control)
      QTimer::singleShot(0, this, [this, page, control] { tell_left(*page, *control); });
  }
}

// No widget has the focus if the user is in another program.
void gDialogWindow::tell_left(gPageWidget & page, gFieldControl & control) {
  QWidget * const to = QApplication::focusWidget();
  if (to && page.control_of(to) != &control)
    dialog_.left(page.page(), control.field(), target(page, to));
}

gDialog::Target gDialogWindow::target(gPageWidget const & page, QWidget * to) const {
  using Kind = gDialog::Target::Kind;
  if (to == ok_)
    return {Kind::ok};
  if (to == cancel_)
    return {Kind::cancel};
  if (to == apply_)
    return {Kind::apply};
  if (gFieldControl const * control = page.control_of(to))
    return {Kind::field, control->field().id};
  return {};
}

// The dialog may be in the middle of an event here, so that a window that goes only hides now.
void gDialogWindow::update_window() {
  if (!dialog_.is_open()) {
    if (isVisible())
      Gui::keep_size(*this, dialog_.pages().front()->context());
    done(dialog_.accepted() ? Accepted : Rejected);
    return;
  }
  for (gPageWidget * page : pages_)
    page->update_controls();
  if (apply_)
    apply_->setEnabled(dialog_.changed());
  update_title();
  show_page();
  take_focus();
}

void gDialogWindow::update_title() {
  QString const title = Gui::tr(dialog_.title());
  if (windowTitle() != title)
    setWindowTitle(title);
}

void gDialogWindow::show_page() {
  if (!tabs_)
    return;
  QSignalBlocker const quiet(tabs_);
  tabs_->setCurrentIndex(dialog_.page());
}

void gDialogWindow::take_focus() {
  std::optional<gDialog::Focus> const asked = dialog_.take_focus();
  if (!asked)
    return;
  show_page();
  gFieldControl * const control =
      pages_[static_cast<std::size_t>(asked->page)]->control(asked->field);
  if (!control)
    return;
  own_focus_ = true;
  activateWindow(); // a box may have left another window in front
  control->take_focus();
  own_focus_ = false;
}

void gDialogWindow::keyPressEvent(QKeyEvent * event) {
  if (event->key() == Qt::Key_F1 && on_help)
    on_help(context());
  else
    QDialog::keyPressEvent(event);
}

int gDialogWindow::context() const {
  return dialog_.pages()[static_cast<std::size_t>(dialog_.page())]->context();
}

void gDialogWindow::reject() {
  dialog_.cancel();
}
