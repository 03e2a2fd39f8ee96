// The message window: the list with its filter and its search.
#pragma once

#include <QWidget>
#include <array>
#include <functional>

#include "app/qt/message_model.h"
#include "app/shell/window/message_list.h"

class QComboBox;
class QLineEdit;
class QToolButton;
class QTreeView;

class gMessageView : public QWidget {
public:
  gMessageView(gMessageList & list, std::function<void(std::size_t row)> open);

  // The list has new lines; `cleared` if it was emptied before.
  void update_list(bool cleared);
  // Puts the cursor into the search.
  void search();
  // The selected lines to the clipboard.
  void copy() const;
  QTreeView & table() const { return *table_; }

private:
  QWidget * make_filter();
  QWidget * make_search();
  void make_table();
  void make_actions();
  void set_filter();
  void follow();
  void update_counts();
  void update_choices();
  void find(bool backward);
  void show_found(bool found);
  void open(QModelIndex const & index);

  gMessageList & list_;
  std::function<void(std::size_t)> open_;
  gMessageModel model_;
  QTreeView * table_;
  bool follows_ = true; // new lines
  std::array<QToolButton *, gMessageFilter::kinds> kinds_ = {};
  QComboBox * numbers_ = nullptr;
  QLineEdit * file_ = nullptr;
  QLineEdit * search_ = nullptr;
};
