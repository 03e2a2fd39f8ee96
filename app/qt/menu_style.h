// The style of the windows: the platform's own, but for pictures in menus.
#pragma once

#include <QProxyStyle>

// A highlighted entry shows its picture in the colour of its text: the platform's style would leave
// it dark on dark.
class gMenuStyle : public QProxyStyle {
public:
  void drawControl(ControlElement element, QStyleOption const * option, QPainter * painter,
                   QWidget const * widget) const override;
};
