#include "app/qt/menu_style.h"

#include <QStyleOptionMenuItem>
#include <QWidget>

void gMenuStyle::drawControl(ControlElement element, QStyleOption const * option,
                             QPainter * painter, QWidget const * widget) const {
  auto const * entry = qstyleoption_cast<QStyleOptionMenuItem const *>(option);
  bool const lit = entry && (entry->state & State_Selected) && (entry->state & State_Enabled);
  if (element != CE_MenuItem || !lit || entry->icon.isNull()) {
    QProxyStyle::drawControl(element, option, painter, widget);
    return;
  }
  QStyleOptionMenuItem shown = *entry;
  int const size = pixelMetric(PM_SmallIconSize, option, widget);
  qreal const ratio = widget ? widget->devicePixelRatioF() : 1;
  shown.icon = QIcon(entry->icon.pixmap(QSize(size, size), ratio, QIcon::Selected));
  QProxyStyle::drawControl(element, &shown, painter, widget);
}
