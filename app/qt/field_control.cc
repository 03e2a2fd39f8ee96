// What all controls share: label, names for those who can't see the window, and the tool tip. The
// label of a button, a check or a note is part of the control.

#include "app/qt/field_control.h"

#include <QLineEdit>

#include "app/qt/text.h"

namespace {

bool shows_label(gField::Kind kind) {
  using Kind = gField::Kind;
  return kind == Kind::check || kind == Kind::button || kind == Kind::note;
}

// Without the marks of letters.
QString plain(QString text) {
  text.replace("&&", "\x01").remove('&').replace("\x01", "&");
  while (text.endsWith(':') || text.endsWith(' '))
    text.chop(1);
  return text;
}

QString marked(gField const & field) {
  return Gui::tr(field.marked_label());
}

} // namespace

gFieldControl::gFieldControl(gField & field, Events events)
    : field_(field),
      events_(std::move(events)) {
  if (shows_label(field.kind) || field.label.empty())
    return;
  label_ = new QLabel;
  label_->setTextFormat(Qt::PlainText);
}

void gFieldControl::set_widget(QWidget * widget) {
  widget_ = widget;
  widget_->setObjectName(Gui::text(field_.id));
  if (label_)
    label_->setBuddy(widget_);
}

void gFieldControl::name_widget() {
  QString name = plain(marked(field_));
  // ">>" tells a listener nothing.
  bool const has_word = std::any_of(name.begin(), name.end(), [](QChar c) { return c.isLetter(); });
  if (!has_word && !field_.tool_tip.empty())
    name = Gui::tr(field_.tool_tip);
  if (name.isEmpty())
    name = Gui::text(field_.text.empty() ? field_.id : field_.text);
  if (widget_->accessibleName() != name)
    widget_->setAccessibleName(name);
  QString const tip = Gui::tr(field_.tool_tip);
  if (widget_->toolTip() != tip)
    widget_->setToolTip(tip);
}

void gFieldControl::update() {
  QString const text = marked(field_);
  if (label_ && label_->text() != text)
    label_->setText(text);
  name_widget();
  for (QWidget * part : {widget_, static_cast<QWidget *>(label_)}) {
    if (part && part->isEnabled() != field_.enabled)
      part->setEnabled(field_.enabled);
  }
  show_value();
}

void gFieldControl::take_focus() {
  widget_->setFocus(Qt::OtherFocusReason);
  if (auto * line = qobject_cast<QLineEdit *>(widget_))
    line->selectAll();
}
