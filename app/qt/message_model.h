// The message list as rows and columns of a view.
#pragma once

#include <QAbstractTableModel>

class gMessageList;

class gMessageModel : public QAbstractTableModel {
public:
  enum Column { severity, text, place, number, columns };

  explicit gMessageModel(gMessageList & list) : list_(list) {}

  // The list has more rows, behind the ones it had.
  void appended();
  // Anything may be different.
  void reset();

  int rowCount(QModelIndex const & parent = {}) const override;
  int columnCount(QModelIndex const & parent = {}) const override;
  QVariant data(QModelIndex const & index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
  QString shown(std::size_t row, int column) const;
  QVariant picture(std::size_t row) const;

  gMessageList & list_;
  int rows_ = 0; // that the view knows of
};
