// A row costs nothing before it is seen: all is made when the view asks for it.

#include "app/qt/message_model.h"

#include <QIcon>

#include "app/qt/icons.h"
#include "app/qt/text.h"
#include "app/shell/window/message_list.h"

void gMessageModel::appended() {
  int const rows = static_cast<int>(list_.rows());
  if (rows <= rows_)
    return;
  beginInsertRows({}, rows_, rows - 1);
  rows_ = rows;
  endInsertRows();
}

void gMessageModel::reset() {
  beginResetModel();
  rows_ = static_cast<int>(list_.rows());
  endResetModel();
}

int gMessageModel::rowCount(QModelIndex const & parent) const {
  return parent.isValid() ? 0 : rows_;
}

int gMessageModel::columnCount(QModelIndex const & parent) const {
  return parent.isValid() ? 0 : columns;
}

QVariant gMessageModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Horizontal && role == Qt::TextAlignmentRole && section == number)
    return QVariant(Qt::AlignRight | Qt::AlignVCenter);
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
    return {};
  switch (section) {
  case severity:
    return Gui::tr("Kind");
  case number:
    return Gui::tr("Number");
  case place:
    return Gui::tr("Place");
  default:
    return Gui::tr("Message");
  }
}

// Only the name of the file: the tool tip has its path.
QString gMessageModel::shown(std::size_t row, int column) const {
  switch (column) {
  case severity:
    return Gui::tr(std::string(list_.severity_name(row)));
  case number:
    return list_.number(row) == 0 ? QString() : QString::number(list_.number(row));
  case place: {
    std::string_view file = list_.file(row);
    file.remove_prefix(std::min(file.size(), file.rfind('/') + 1));
    QString const name = Gui::text(file);
    return name.isEmpty() || list_.line(row) < 0 ? name
                                                 : name + ":" + QString::number(list_.line(row));
  }
  default:
    return (list_.is_hint(row) ? "    " : "") + Gui::text(list_.text(row));
  }
}

QVariant gMessageModel::picture(std::size_t row) const {
  if (list_.is_hint(row))
    return {};
  switch (list_.kind(row)) {
  case gMessageKind::error:
  case gMessageKind::doc_error:
    return Gui::icon("error");
  case gMessageKind::warning:
    return Gui::icon("warning");
  case gMessageKind::note:
    return Gui::icon("information");
  case gMessageKind::text:
    return {};
  }
  return {};
}

QVariant gMessageModel::data(QModelIndex const & index, int role) const {
  auto const row = static_cast<std::size_t>(index.row());
  if (!index.isValid() || row >= list_.rows())
    return {};
  if (role == Qt::DisplayRole)
    return shown(row, index.column());
  if (role == Qt::ToolTipRole)
    return index.column() == place ? Gui::text(list_.file(row)) : Gui::text(list_.whole_line(row));
  if (role == Qt::DecorationRole && index.column() == severity)
    return picture(row);
  if (role == Qt::TextAlignmentRole && index.column() == number)
    return QVariant(Qt::AlignRight | Qt::AlignVCenter);
  return {};
}
