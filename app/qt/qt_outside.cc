// A box stands in front of whatever the user is working in, as it speaks of that.

#include "app/qt/qt_outside.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

#include "app/qt/text.h"
#include "app/shell/dialogs/make_dialog.h"

namespace {

QMessageBox::Icon icon_of(gOutside::Icon icon) {
  switch (icon) {
  case gOutside::Icon::exclamation:
    return QMessageBox::Warning;
  case gOutside::Icon::question:
    return QMessageBox::Question;
  case gOutside::Icon::stop:
    return QMessageBox::Critical;
  case gOutside::Icon::information:
    return QMessageBox::Information;
  }
  return QMessageBox::NoIcon;
}

QMessageBox::StandardButton button_of(gOutside::Answer answer) {
  switch (answer) {
  case gOutside::Answer::yes:
    return QMessageBox::Yes;
  case gOutside::Answer::no:
    return QMessageBox::No;
  case gOutside::Answer::cancel:
    return QMessageBox::Cancel;
  }
  return QMessageBox::NoButton;
}

// "Label (*.a;*.b)|*.a;*.b|" becomes "Label (*.a *.b)".
QStringList name_filters(std::string_view filter) {
  QStringList const parts = Gui::text(filter).split('|', Qt::SkipEmptyParts);
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    QString const label = Gui::tr(Gui::bytes(parts[i].section(" (", 0, 0)));
    QString patterns = parts[i + 1];
    patterns.replace(';', ' ').replace("*.*", "*");
    filters += label + " (" + patterns + ")";
  }
  return filters;
}

void set_up(QFileDialog & chooser, gOutside::Choice const & choice) {
  using Kind = gOutside::Choice::Kind;
  if (choice.kind == Kind::folder) {
    chooser.setFileMode(QFileDialog::Directory);
    chooser.setOption(QFileDialog::ShowDirsOnly);
  } else if (choice.kind == Kind::save) {
    chooser.setAcceptMode(QFileDialog::AcceptSave);
    chooser.setFileMode(QFileDialog::AnyFile);
    chooser.setOption(QFileDialog::DontConfirmOverwrite, choice.caller_confirms);
  } else {
    chooser.setFileMode(choice.several ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
  }
  if (choice.kind != Kind::folder)
    chooser.setNameFilters(name_filters(choice.filter));
  chooser.setDefaultSuffix(Gui::text(choice.ext));
  if (!choice.dir.empty())
    chooser.setDirectory(Gui::text(choice.dir));
  if (!choice.name.empty())
    chooser.selectFile(Gui::text(choice.name));
}

} // namespace

gQtOutside::gQtOutside(gVappFrame & frame, gFrameView & view, QWidget & main_window)
    : gFrameOutside(frame, view),
      main_window_(main_window),
      before_(Vlb::set_outside(this)) {}

gQtOutside::~gQtOutside() {
  Vlb::set_outside(before_);
}

QWidget * gQtOutside::front() const {
  QWidget * const active = QApplication::activeWindow();
  return active ? active : &main_window_;
}

void gQtOutside::box(gString const & text, Icon icon) {
  QMessageBox box(icon_of(icon), QApplication::applicationDisplayName(), Gui::tr(text),
                  QMessageBox::Ok, front());
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

gOutside::Answer gQtOutside::ask(Question const & question) {
  QMessageBox box(icon_of(question.icon), QApplication::applicationDisplayName(),
                  Gui::tr(question.text), QMessageBox::Yes | QMessageBox::No, front());
  box.setTextFormat(Qt::PlainText);
  if (question.cancel)
    box.addButton(QMessageBox::Cancel);
  box.setEscapeButton(question.cancel ? QMessageBox::Cancel : QMessageBox::No);
  box.setDefaultButton(button_of(question.standard));
  switch (box.exec()) {
  case QMessageBox::Yes:
    return Answer::yes;
  case QMessageBox::Cancel:
    return Answer::cancel;
  default:
    return Answer::no;
  }
}

void gQtOutside::beep() {
  QApplication::beep();
}

std::vector<gString> gQtOutside::choose(Choice const & choice) {
  QFileDialog chooser(front(), Gui::tr(choice.title));
  set_up(chooser, choice);
  std::vector<gString> chosen;
  if (chooser.exec() == QDialog::Accepted)
    for (QString const & path : chooser.selectedFiles())
      chosen.emplace_back(Gui::bytes(path));
  return chosen;
}

bool gQtOutside::show_dialog(Dialog const & dialog) {
  return Shell::run_dialog(dialog);
}

void gQtOutside::wait_cursor(bool on) {
  if (on)
    QApplication::setOverrideCursor(Qt::WaitCursor);
  else
    QApplication::restoreOverrideCursor();
}
