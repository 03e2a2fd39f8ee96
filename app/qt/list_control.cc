// One table shows all columns, so they move together and a row is selected in all of them.

#include "app/qt/list_control.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QTreeWidget>

#include "app/qt/text.h"

namespace {

// Rows with some air, so that they are easy to hit.
class Rows : public QStyledItemDelegate {
public:
  using QStyledItemDelegate::QStyledItemDelegate;
  QSize sizeHint(QStyleOptionViewItem const & option, QModelIndex const & index) const override {
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 6);
  }
};

class Table : public QTreeWidget {
public:
  std::function<bool(QKeyEvent const &)> on_key;

  // Wide enough for all columns, within reason.
  QSize sizeHint() const override {
    QSize const letter(fontMetrics().averageCharWidth(), fontMetrics().height());
    int width = 4 * letter.width();
    for (int i = 0; i < columnCount(); ++i)
      width += std::max({i + 1 < columnCount() ? columnWidth(i) : 0, sizeHintForColumn(i),
                         isHeaderHidden() ? 0 : header()->sectionSizeHint(i)});
    width += 2 * frameWidth() + letter.width() * 2;
    return QSize(std::clamp(width, 24 * letter.width(), 90 * letter.width()), 12 * letter.height());
  }

protected:
  void keyPressEvent(QKeyEvent * event) override {
    if (!on_key(*event))
      QTreeWidget::keyPressEvent(event);
  }
};

class ListControl : public gFieldControl {
public:
  ListControl(gField & field, Events taken)
      : gFieldControl(field, std::move(taken)),
        table_(new Table) {
    set_up();
    set_widget(table_);
    table_->on_key = [this](QKeyEvent const & event) { return take_key(event); };
    QObject::connect(table_, &QTreeWidget::currentItemChanged, table_, [this] { tell(); });
    QObject::connect(table_, &QTreeWidget::itemDoubleClicked, table_,
                     [this](QTreeWidgetItem *, int column) { events().activated(column); });
    QObject::connect(table_, &QTreeWidget::itemPressed, table_,
                     [this](QTreeWidgetItem *, int column) { this->field().column = column; });
  }

protected:
  void show_value() override {
    QSignalBlocker const quiet(table_);
    show_titles();
    if (rows_ != field().rows)
      show_rows();
    if (row() != field().selected)
      table_->setCurrentItem(table_->topLevelItem(field().selected), field().column);
  }

private:
  void set_up() {
    table_->setItemDelegate(new Rows(table_));
    table_->setRootIsDecorated(false);
    table_->setUniformRowHeights(true);
    table_->setAllColumnsShowFocus(true);
    table_->setAlternatingRowColors(true);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setTabKeyNavigation(false);
    table_->setMinimumHeight(table_->fontMetrics().height() * 7);
    table_->header()->setStretchLastSection(true);
  }

  int row() const { return table_->indexOfTopLevelItem(table_->currentItem()); }

  void tell() {
    if (field().selected == row())
      return;
    field().selected = row();
    field().column = std::max(0, table_->currentColumn());
    events().changed();
  }

  bool take_key(QKeyEvent const & event) {
    switch (event.key()) {
    case Qt::Key_Insert:
      events().key(gListKey::insert);
      return true;
    case Qt::Key_Delete:
      events().key(gListKey::remove);
      return true;
    case Qt::Key_F2:
      events().key(gListKey::edit);
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (field().selected >= 0)
        events().activated(field().column);
      return field().selected >= 0;
    default:
      return false;
    }
  }

  void show_titles() {
    if (shown_titles_ && titles_ == field().titles)
      return;
    shown_titles_ = true;
    titles_ = field().titles;
    QStringList titles;
    for (std::string const & title : titles_)
      titles += Gui::tr(title);
    table_->setColumnCount(std::max<int>(1, static_cast<int>(titles.size())));
    table_->setHeaderLabels(titles.isEmpty() ? QStringList{QString()} : titles);
    table_->setHeaderHidden(titles.isEmpty());
    int const letters = 20 + 15 * std::max(0, static_cast<int>(titles.size()) - 1);
    table_->setMinimumWidth(table_->fontMetrics().averageCharWidth() * letters);
    fit_columns();
    rows_.clear();
    table_->clear();
  }

  // Rows that stay keep their item, so that the view doesn't jump.
  void show_rows() {
    rows_ = field().rows;
    int const count = static_cast<int>(rows_.size());
    while (table_->topLevelItemCount() > count)
      delete table_->takeTopLevelItem(table_->topLevelItemCount() - 1);
    QList<QTreeWidgetItem *> added;
    while (table_->topLevelItemCount() + added.size() < count)
      added += new QTreeWidgetItem;
    table_->addTopLevelItems(added);
    for (int i = 0; i < count; ++i)
      show_row(*table_->topLevelItem(i), rows_[static_cast<std::size_t>(i)]);
    if (!added.isEmpty())
      fit_columns();
  }

  static void show_row(QTreeWidgetItem & item, gField::Row const & row) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      QString const text = Gui::text(row[i]);
      if (item.text(static_cast<int>(i)) == text)
        continue;
      item.setText(static_cast<int>(i), text);
      item.setToolTip(static_cast<int>(i), text);
    }
  }

  void fit_columns() {
    int const widest = table_->fontMetrics().averageCharWidth() * 60;
    for (int i = 0; i + 1 < table_->columnCount(); ++i) {
      table_->resizeColumnToContents(i);
      table_->setColumnWidth(i, std::min(table_->columnWidth(i) + 12, widest));
    }
    table_->updateGeometry();
  }

  Table * table_;
  bool shown_titles_ = false;
  std::vector<std::string> titles_;
  std::vector<gField::Row> rows_;
};

} // namespace

std::unique_ptr<gFieldControl> make_list_control(gField & field, gFieldControl::Events events) {
  return std::make_unique<ListControl>(field, std::move(events));
}
