// Where the controls of a page stand.
#pragma once

#include <QWidget>
#include <memory>
#include <vector>

#include "app/qt/field_control.h"
#include "app/shell/dialogs/page.h"

class QGroupBox;

// The widget of a page, with the controls of all fields in the order of the tab key.
class gPageWidget : public QWidget {
public:
  using Controls = std::vector<std::unique_ptr<gFieldControl>>;

  gPageWidget(gPage & page, Controls controls);
  ~gPageWidget() override;

  gPage & page() const { return page_; }
  Controls const & controls() const { return controls_; }
  // The control with that id; null if there is none.
  gFieldControl * control(std::string_view id) const;
  // The control that the widget is, or is part of; null if it isn't of this page.
  gFieldControl * control_of(QWidget const * widget) const;
  // Brings all controls in line with their fields.
  void update_controls();

private:
  void update_frames();
  void widen_paths();

  gPage & page_;
  Controls controls_;
  std::vector<std::pair<std::string, QGroupBox *>> frames_;
};
