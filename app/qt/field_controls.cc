// The kinds of controls, but for lists. A value that the user is typing is only replaced where the
// rules changed it, so that the cursor stays where it is.

#include <algorithm>

#include <QAbstractSpinBox>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "app/qt/field_control.h"
#include "app/qt/list_control.h"
#include "app/qt/text.h"

namespace {

// A line that lets everything be typed, as the rules have words for what is wrong, and that steps
// within the limits.
class NumberBox : public QAbstractSpinBox {
public:
  explicit NumberBox(gField const & field) : field_(field) {}

  QLineEdit * line() const { return lineEdit(); }
  void stepBy(int steps) override {
    line()->setText(QString::number(std::clamp(value() + steps, field_.low, field_.high)));
  }

protected:
  StepEnabled stepEnabled() const override {
    StepEnabled enabled = StepNone;
    enabled |= value() < field_.high ? StepUpEnabled : StepNone;
    enabled |= value() > field_.low ? StepDownEnabled : StepNone;
    return enabled;
  }

private:
  int value() const { return text().toInt(); }

  gField const & field_;
};

// A line of text, a number, or a text that is only shown.
class LineControl : public gFieldControl {
public:
  LineControl(gField & field, Events taken) : gFieldControl(field, std::move(taken)) {
    line_ = field.kind == gField::Kind::number ? number_line() : plain_line();
    QObject::connect(line_, &QLineEdit::textChanged, widget(), [this](QString const & text) {
      this->field().text = Gui::bytes(text);
      events().changed();
    });
  }

  void take_focus() override {
    gFieldControl::take_focus();
    line_->selectAll();
  }

protected:
  void show_value() override {
    QString const text = Gui::text(field().text);
    if (line_->text() == text)
      return;
    QSignalBlocker const quiet(line_);
    line_->setText(text);
  }

private:
  QLineEdit * plain_line() {
    auto * line = new QLineEdit;
    if (field().kind == gField::Kind::shown)
      look_read_only(*line);
    line->setMinimumWidth(line->fontMetrics().averageCharWidth() * 40);
    set_widget(line);
    return line;
  }

  // On the ground of the window, where nothing invites to type.
  static void look_read_only(QLineEdit & line) {
    line.setReadOnly(true);
    line.setFrame(false);
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::transparent);
    line.setPalette(palette);
  }

  QLineEdit * number_line() {
    if (field().low == 0 && field().high == 0) {
      auto * line = new QLineEdit;
      line->setMaximumWidth(line->fontMetrics().averageCharWidth() * 14);
      set_widget(line);
      return line;
    }
    auto * box = new NumberBox(field());
    box->setMaximumWidth(box->fontMetrics().averageCharWidth() * 14);
    box->setMinimumWidth(box->fontMetrics().averageCharWidth() * 9);
    set_widget(box);
    return box->line();
  }

  QLineEdit * line_;
};

class CheckControl : public gFieldControl {
public:
  CheckControl(gField & field, Events taken)
      : gFieldControl(field, std::move(taken)),
        box_(new QCheckBox) {
    set_widget(box_);
    QObject::connect(box_, &QCheckBox::toggled, box_, [this](bool on) {
      this->field().checked = on;
      events().changed();
    });
  }

protected:
  void show_value() override {
    QSignalBlocker const quiet(box_);
    box_->setText(Gui::tr(field().marked_label()));
    box_->setChecked(field().checked);
  }

private:
  QCheckBox * box_;
};

class ComboControl : public gFieldControl {
public:
  ComboControl(gField & field, Events taken)
      : gFieldControl(field, std::move(taken)),
        box_(new QComboBox) {
    box_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    box_->setMinimumContentsLength(20); // so that most of them have the same width
    set_widget(box_);
    QObject::connect(box_, &QComboBox::activated, box_, [this](int row) {
      if (this->field().selected == row)
        return;
      this->field().selected = row;
      events().changed();
    });
  }

protected:
  void show_value() override {
    QSignalBlocker const quiet(box_);
    if (rows_ != field().rows) {
      rows_ = field().rows;
      box_->clear();
      for (gField::Row const & row : rows_)
        box_->addItem(row.empty() ? QString() : Gui::tr(row.front()));
    }
    if (box_->currentIndex() != field().selected)
      box_->setCurrentIndex(field().selected);
  }

private:
  QComboBox * box_;
  std::vector<gField::Row> rows_;
};

// The rows as buttons: short ones beside each other, else below.
class RadioControl : public gFieldControl {
public:
  RadioControl(gField & field, Events taken)
      : gFieldControl(field, std::move(taken)),
        area_(new QWidget),
        group_(new QButtonGroup(area_)) {
    std::size_t letters = 0;
    for (gField::Row const & row : field.rows)
      letters += row.empty() ? 0 : row.front().size();
    bool const short_words = letters <= 40;
    auto const direction = short_words ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom;
    auto * layout = new QBoxLayout(direction, area_);
    layout->setContentsMargins(0, 0, 0, 0);
    if (short_words)
      layout->setSpacing(24);
    set_widget(area_);
    QObject::connect(group_, &QButtonGroup::idClicked, area_, [this](int row) {
      if (this->field().selected == row)
        return;
      this->field().selected = row;
      events().changed();
    });
  }

  void take_focus() override {
    if (QAbstractButton * button = group_->button(std::max(0, field().selected)))
      button->setFocus(Qt::OtherFocusReason);
  }

protected:
  void show_value() override {
    if (rows_ != field().rows)
      make_buttons();
    if (QAbstractButton * button = group_->button(field().selected)) {
      QSignalBlocker const quiet(group_);
      button->setChecked(true);
    }
  }

private:
  void make_buttons() {
    rows_ = field().rows;
    for (QAbstractButton * button : group_->buttons())
      delete button;
    for (std::size_t i = 0; i < rows_.size(); ++i) {
      auto * button = new QRadioButton(Gui::tr(rows_[i].empty() ? "" : rows_[i].front()));
      group_->addButton(button, static_cast<int>(i));
      area_->layout()->addWidget(button);
    }
    area_->setFocusProxy(group_->button(0));
  }

  QWidget * area_;
  QButtonGroup * group_;
  std::vector<gField::Row> rows_;
};

class ButtonControl : public gFieldControl {
public:
  ButtonControl(gField & field, Events taken)
      : gFieldControl(field, std::move(taken)),
        button_(new QPushButton) {
    set_widget(button_);
    QObject::connect(button_, &QPushButton::clicked, button_, [this] { events().pressed(); });
  }

protected:
  void show_value() override {
    QString const text = Gui::tr(field().marked_label());
    if (button_->text() == text)
      return;
    button_->setText(text);
    // A button behind a path needs no more room than its sign.
    if (!field().chooser_of.empty())
      button_->setFixedWidth(button_->fontMetrics().horizontalAdvance(text) + 24);
  }

private:
  QPushButton * button_;
};

class NoteControl : public gFieldControl {
public:
  NoteControl(gField & field, Events taken)
      : gFieldControl(field, std::move(taken)),
        note_(new QLabel) {
    note_->setWordWrap(true);
    note_->setMinimumWidth(note_->fontMetrics().averageCharWidth() * 50);
    note_->setTextFormat(Qt::PlainText);
    set_widget(note_);
  }

protected:
  void show_value() override {
    QString const text = Gui::tr(field().text.empty() ? field().label : field().text);
    if (note_->text() != text)
      note_->setText(text);
  }

private:
  QLabel * note_;
};

} // namespace

std::unique_ptr<gFieldControl> gFieldControl::make(gField & field, Events events) {
  switch (field.kind) {
  case gField::Kind::text:
  case gField::Kind::number:
  case gField::Kind::shown:
    return std::make_unique<LineControl>(field, std::move(events));
  case gField::Kind::check:
    return std::make_unique<CheckControl>(field, std::move(events));
  case gField::Kind::radio:
    return std::make_unique<RadioControl>(field, std::move(events));
  case gField::Kind::combo:
    return std::make_unique<ComboControl>(field, std::move(events));
  case gField::Kind::list:
    return make_list_control(field, std::move(events));
  case gField::Kind::button:
    return std::make_unique<ButtonControl>(field, std::move(events));
  case gField::Kind::note:
    return std::make_unique<NoteControl>(field, std::move(events));
  }
  return nullptr;
}
