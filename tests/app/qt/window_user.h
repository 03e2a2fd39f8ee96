// Plays the user in front of the windows: what stands in front, what has the focus, and pictures.
#pragma once

#include <QDialog>
#include <QPointer>
#include <QTest>
#include <QWidget>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

// Drives the modal windows that open, each by the next script. One without a script is recorded and
// closed, so that a test never hangs.
class ModalUser {
public:
  using Script = std::function<void(QWidget &)>;
  ModalUser();
  ModalUser(ModalUser const &) = delete;
  ~ModalUser();

  std::deque<Script> scripts;
  // Titles of windows, and texts of boxes, in the order in which they opened.
  std::vector<std::string> shown;

  // A script that presses the button with that text, such as "Yes", in a box.
  void answer(std::string const & button);

private:
  void arm();
  void poll();

  std::shared_ptr<bool> alive_;
  QPointer<QWidget> handled_;
};

namespace Windows {

// The child with that object name; the test fails if there is none.
QWidget & child(QWidget & window, char const * name);
// Presses the button with the label, "&" left aside.
void click(QWidget & window, std::string const & label);
// Types over what a line holds.
void type(QWidget & window, char const * name, std::string const & text);
std::string focus(); // object name of what has the focus
// Lets queued events run.
void settle();
// Controls that a screen reader can't tell apart: without a name or a role.
std::vector<std::string> nameless(QWidget & window);
// Writes a picture, light and dark, if the environment names a folder for them.
void picture(QWidget & window, std::string const & name);

} // namespace Windows
