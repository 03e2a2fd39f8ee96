#include "app/qt/window_user.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QStyle>
#include <QTimer>
#include <gtest/gtest.h>

ModalUser::ModalUser() : alive_(std::make_shared<bool>(true)) {
  arm();
}

ModalUser::~ModalUser() {
  *alive_ = false;
  EXPECT_TRUE(scripts.empty()) << "a window that didn't open";
}

void ModalUser::arm() {
  QTimer::singleShot(5, [this, alive = alive_] {
    if (!*alive)
      return;
    arm();
    poll();
  });
}

void ModalUser::poll() {
  QWidget * const front = QApplication::activeModalWidget();
  if (!front || front == handled_)
    return;
  handled_ = front;
  auto const * box = qobject_cast<QMessageBox *>(front);
  shown.push_back((box ? box->text() : front->windowTitle()).toStdString());
  if (scripts.empty()) {
    ADD_FAILURE() << "unexpected: " << shown.back();
    front->close();
    return;
  }
  Script const script = scripts.front();
  scripts.pop_front();
  // Off-screen there is nobody else who would do it.
  QApplication::setActiveWindow(front);
  Windows::settle();
  script(*front);
  handled_ = QApplication::activeModalWidget();
}

void ModalUser::answer(std::string const & button) {
  scripts.push_back([button](QWidget & box) { Windows::click(box, button); });
}

QWidget & Windows::child(QWidget & window, char const * name) {
  auto * found = window.findChild<QWidget *>(name);
  if (!found)
    throw std::logic_error(std::string("no control ") + name);
  return *found;
}

void Windows::click(QWidget & window, std::string const & label) {
  for (auto * button : window.findChildren<QAbstractButton *>()) {
    if (button->isVisible() && button->text().remove('&').toStdString() == label) {
      EXPECT_TRUE(QTest::qWaitFor([button] { return button->isEnabled(); })) << label;
      QTest::mouseClick(button, Qt::LeftButton);
      return;
    }
  }
  ADD_FAILURE() << "no button " << label;
}

void Windows::type(QWidget & window, char const * name, std::string const & text) {
  QWidget & line = child(window, name);
  line.setFocus();
  QTest::keyClick(&line, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(&line, Qt::Key_Delete);
  QTest::keyClicks(&line, QString::fromStdString(text));
}

std::string Windows::focus() {
  QWidget const * const widget = QApplication::focusWidget();
  return widget ? widget->objectName().toStdString() : "";
}

void Windows::settle() {
  for (int i = 0; i < 3; ++i)
    QCoreApplication::processEvents();
}

namespace {

// What a screen reader stops at; the parts of a list or a combo speak for themselves.
bool is_whole(QAccessible::Role role) {
  return role == QAccessible::ComboBox || role == QAccessible::SpinBox ||
         role == QAccessible::Table || role == QAccessible::Tree || role == QAccessible::List;
}
bool is_control(QAccessible::Role role) {
  return is_whole(role) || role == QAccessible::Button || role == QAccessible::CheckBox ||
         role == QAccessible::RadioButton || role == QAccessible::EditableText ||
         role == QAccessible::PageTab || role == QAccessible::MenuItem ||
         role == QAccessible::ProgressBar;
}

void add_nameless(QAccessibleInterface & seen, std::vector<std::string> & found) {
  QAccessible::Role const role = seen.role();
  if (!seen.isValid() || seen.state().invisible)
    return;
  if (is_control(role) && seen.text(QAccessible::Name).isEmpty())
    found.push_back("role " + std::to_string(role) + " in " +
                    seen.parent()->text(QAccessible::Name).toStdString());
  for (int i = 0; !is_whole(role) && i < seen.childCount(); ++i)
    if (QAccessibleInterface * const child = seen.child(i))
      add_nameless(*child, found);
}

} // namespace

std::vector<std::string> Windows::nameless(QWidget & window) {
  std::vector<std::string> found;
  add_nameless(*QAccessible::queryAccessibleInterface(&window), found);
  for (auto * widget : window.findChildren<QWidget *>()) {
    QAccessibleInterface * const seen = QAccessible::queryAccessibleInterface(widget);
    bool const used = widget->isVisible() && widget->focusPolicy() != Qt::NoFocus;
    if (used && !widget->focusProxy() &&
        (!seen || seen->role() == QAccessible::NoRole || seen->text(QAccessible::Name).isEmpty()))
      found.push_back(std::string(widget->metaObject()->className()) + " " +
                      widget->objectName().toStdString());
  }
  return found;
}

namespace {

QPalette dark_palette() {
  QPalette palette(QColor(0x36, 0x39, 0x3e));
  for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, QColor(0x8a, 0x8d, 0x93));
  palette.setColor(QPalette::Base, QColor(0x1f, 0x21, 0x24));
  palette.setColor(QPalette::AlternateBase, QColor(0x26, 0x28, 0x2c));
  palette.setColor(QPalette::ToolTipBase, QColor(0x3a, 0x3d, 0x42));
  palette.setColor(QPalette::ToolTipText, Qt::white);
  palette.setColor(QPalette::Highlight, QColor(0x2f, 0x65, 0xb0));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, QColor(0x7a, 0xb8, 0xff));
  palette.setColor(QPalette::PlaceholderText, QColor(0x8a, 0x8d, 0x93));
  return palette;
}

void write(QWidget & window, QString const & path) {
  Windows::settle();
  EXPECT_TRUE(window.grab().save(path)) << path.toStdString();
}

} // namespace

void Windows::picture(QWidget & window, std::string const & name) {
  QString const folder = qEnvironmentVariable("VELLUMAR_PICTURES");
  if (folder.isEmpty())
    return;
  QString const path = folder + "/" + QString::fromStdString(name);
  write(window, path + ".png");
  QApplication::setPalette(dark_palette());
  write(window, path + "_dark.png");
  QApplication::setPalette(QApplication::style()->standardPalette());
  settle();
}
