// A size is kept as one number a window, width and height in it, so that a damaged half can't make
// a window that is too narrow to be seen: nothing below the size of the contents is ever used.

#include "app/qt/window_sizes.h"

#include <QScreen>
#include <QWidget>

#include "app/options/options.h"

namespace {

constexpr int unit = 100000; // width times this, plus height

cRef<cObj> & stored(int context) {
  return Vapp::options_ini.submap("wnd_sizes").slot(cKey(std::to_string(context)));
}

} // namespace

void Gui::restore_size(QWidget & window, int context) {
  int size = 0;
  QSize wanted = window.sizeHint();
  if (cat::read(stored(context), size) && size > unit)
    wanted = wanted.expandedTo(QSize(size / unit % 10000, size % unit));
  QRect const free = window.screen()->availableGeometry();
  window.resize(wanted.boundedTo(free.size()));
}

void Gui::keep_size(QWidget const & window, int context) {
  QSize const size = window.size();
  if (size != window.sizeHint())
    stored(context) = cat::make(size.width() % 10000 * unit + size.height());
}
