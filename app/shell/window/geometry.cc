// A window that was left on a second screen must not be lost when that screen is gone.

#include "app/shell/window/geometry.h"

#include <algorithm>
#include <cstdlib>
#include <optional>

#include "app/options/options.h"

namespace {

constexpr gRect some_screen = {0, 0, 1280, 800};
constexpr int margin = 30, upper_margin = 200;

std::optional<int> stored(char const * key) {
  int value = -1;
  cRef<cObj> const entry = Vapp::options_ini.at(key);
  if (!entry || &entry->type() != &cat::type_int() || !cat::read(entry, value) || value < 0)
    return std::nullopt;
  return value;
}

std::optional<gRect> stored_place() {
  auto const left = stored("wnd_left"), top = stored("wnd_top"), right = stored("wnd_right"),
             bottom = stored("wnd_bottom");
  if (!left || !top || !right || !bottom)
    return std::nullopt;
  return gRect{*left, *top, *left + std::abs(*right - *left), *top + std::abs(*bottom - *top)};
}

// Three quarters of the room that the margins leave, at its right.
gRect standard_place(gRect const & desktop) {
  gRect place = {desktop.left + margin, desktop.top + upper_margin, desktop.right - margin,
                 desktop.bottom - margin};
  place.left = place.right - place.width() * 3 / 4;
  return place;
}

} // namespace

bool gRect::meets(gRect const & other) const {
  return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
}

gRect Shell::start_place(std::vector<gRect> const & screens) {
  std::optional<gRect> const place = stored_place();
  bool const seen = place && (screens.empty() || std::ranges::any_of(screens, [&](gRect screen) {
                                return place->meets(screen);
                              }));
  return seen ? *place : standard_place(screens.empty() ? some_screen : screens.front());
}

void Shell::store_place(gRect const & place) {
  Vapp::options_ini["wnd_left"] = cat::make(place.left);
  Vapp::options_ini["wnd_top"] = cat::make(place.top);
  Vapp::options_ini["wnd_right"] = cat::make(place.right);
  Vapp::options_ini["wnd_bottom"] = cat::make(place.bottom);
}

gRect Shell::place_aside(gRect const & dialog, gRect const & window, gRect const & screen, int dx,
                         int dy) {
  int left = window.right + dx;
  if (left + dialog.width() > screen.right && window.left - dx - dialog.width() >= screen.left)
    left = window.left - dx - dialog.width();
  left = std::max(screen.left, std::min(left, screen.right - dialog.width()));
  int const top = std::max(screen.top, std::min(window.top + dy, screen.bottom - dialog.height()));
  return {left, top, left + dialog.width(), top + dialog.height()};
}
