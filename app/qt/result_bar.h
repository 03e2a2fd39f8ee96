// One click from a finished conversion to what it made.
#pragma once

#include <QFrame>
#include <functional>
#include <string>

class QLabel;

// Tells where the result lies; gone until there is one.
class gResultBar : public QFrame {
public:
  explicit gResultBar(std::function<void()> open);
  // An empty path hides it.
  void show_result(std::string const & path);

private:
  QLabel * text_;
};
