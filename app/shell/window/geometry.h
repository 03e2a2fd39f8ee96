// Where the main window and what belongs to it stand, in logical pixels of the desktop.
#pragma once

#include <vector>

// The right and lower edges are the first pixels outside.
struct gRect {
  int left = 0, top = 0, right = 0, bottom = 0;

  int width() const { return right - left; }
  int height() const { return bottom - top; }
  bool meets(gRect const & other) const;
  bool operator==(gRect const &) const = default;
};

namespace Shell {

// Where the window was last, as the settings tell; the standard place if they don't, or if that
// place is on no screen any more. `screens`: the usable areas, the first one the main one.
gRect start_place(std::vector<gRect> const & screens);
// Puts the place into the settings.
void store_place(gRect const & place);

// A dialog's place beside the window: at its right, else at its left, else as far right as the
// screen lets it; `dx` and `dy` are the gap and the distance of the upper edges.
gRect place_aside(gRect const & dialog, gRect const & window, gRect const & screen, int dx, int dy);

} // namespace Shell
