// The control of one field of a dialog.
#pragma once

#include <QLabel>
#include <QWidget>
#include <functional>
#include <memory>

#include "app/shell/dialogs/field.h"

// Shows a field and writes into it what the user does. Qt owns the widgets; the field has to
// outlive this.
class gFieldControl {
public:
  // What the user did, told behind the writing.
  struct Events {
    std::function<void()> changed;
    std::function<void()> pressed;
    std::function<void(int column)> activated;
    std::function<void(gListKey)> key;
  };

  // The widgets are made without a parent.
  static std::unique_ptr<gFieldControl> make(gField & field, Events events);
  virtual ~gFieldControl() = default;
  gFieldControl(gFieldControl const &) = delete;
  gFieldControl & operator=(gFieldControl const &) = delete;

  gField & field() const { return field_; }
  QWidget * widget() const { return widget_; }
  // The label that stands in front of the control or above it; null if it has none, or shows the
  // label itself.
  QLabel * label() const { return label_; }
  // Brings the widgets in line with the field, and touches only what differs.
  void update();
  // Gives it the focus, ready for typing over.
  virtual void take_focus();

protected:
  gFieldControl(gField & field, Events events);
  void set_widget(QWidget * widget);
  Events const & events() const { return events_; }
  // Shows the value; no event may come of it.
  virtual void show_value() = 0;

private:
  void name_widget();

  gField & field_;
  Events events_;
  QWidget * widget_ = nullptr;
  QLabel * label_ = nullptr;
};
