// New lines are followed until the user goes elsewhere; one who reads further up isn't disturbed,
// and one who comes back to the end is followed for again.

#include "app/qt/message_view.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPainter>
#include <QScrollBar>
#include <QToolButton>
#include <QTreeView>

#include "app/qt/icons.h"
#include "app/qt/text.h"

namespace {

struct KindButton {
  gMessageKind kind;
  char const * name;
  char const * word;
  char const * picture;
};
constexpr KindButton kind_buttons[] = {{gMessageKind::error, "errors", "Errors", "error"},
                                       {gMessageKind::doc_error, "doc_errors", "In texts", "error"},
                                       {gMessageKind::warning, "warnings", "Warnings", "warning"},
                                       {gMessageKind::note, "notes", "Notes", "information"},
                                       {gMessageKind::text, "log", "Log", ""}};

// Says what will stand here as long as there is nothing.
class Table : public QTreeView {
protected:
  void paintEvent(QPaintEvent * event) override {
    QTreeView::paintEvent(event);
    if (model()->rowCount() > 0)
      return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(20, 20, -20, -20),
                     Qt::AlignCenter | Qt::TextWordWrap,
                     Gui::tr("Reports of runs will stand here. A double click on one opens the "
                             "source at its line."));
  }
};

std::size_t place(gMessageKind kind) {
  return static_cast<std::size_t>(kind);
}

} // namespace

gMessageView::gMessageView(gMessageList & list, std::function<void(std::size_t row)> open)
    : list_(list),
      open_(std::move(open)),
      model_(list),
      table_(new Table) {
  auto * pile = new QVBoxLayout(this);
  pile->setContentsMargins(0, 0, 0, 0);
  pile->setSpacing(4);
  auto * bar = new QHBoxLayout;
  bar->setContentsMargins(8, 4, 8, 0);
  bar->addWidget(make_filter());
  bar->addWidget(make_search(), 1);
  pile->addLayout(bar);
  make_table();
  pile->addWidget(table_, 1);
  make_actions();
  setTabOrder(search_, table_);
  update_list(true);
}

QWidget * gMessageView::make_filter() {
  auto * area = new QWidget;
  auto * row = new QHBoxLayout(area);
  row->setContentsMargins(0, 0, 0, 0);
  for (KindButton const & kind : kind_buttons) {
    auto * button = new QToolButton;
    button->setObjectName(kind.name);
    button->setIcon(Gui::icon(kind.picture));
    button->setCheckable(true);
    button->setChecked(true);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setToolButtonStyle(*kind.picture ? Qt::ToolButtonTextBesideIcon
                                             : Qt::ToolButtonTextOnly);
    connect(button, &QToolButton::toggled, this, [this] { set_filter(); });
    kinds_[place(kind.kind)] = button;
    row->addWidget(button);
  }
  numbers_ = new QComboBox;
  numbers_->setObjectName("numbers");
  numbers_->setAccessibleName(Gui::tr("Numbers of messages"));
  numbers_->setToolTip(Gui::tr("Shows only the messages with this number"));
  numbers_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  connect(numbers_, &QComboBox::currentIndexChanged, this, [this] { set_filter(); });
  row->addSpacing(8);
  row->addWidget(numbers_);
  return area;
}

QWidget * gMessageView::make_search() {
  auto * area = new QWidget;
  auto * row = new QHBoxLayout(area);
  row->setContentsMargins(0, 0, 0, 0);
  row->addStretch(1);
  auto const line = [&](char const * name, char const * word, char const * picture) {
    auto * edit = new QLineEdit;
    edit->setObjectName(name);
    edit->setPlaceholderText(Gui::tr(word));
    edit->setAccessibleName(Gui::tr(word));
    edit->setClearButtonEnabled(true);
    edit->addAction(Gui::icon(picture), QLineEdit::LeadingPosition);
    edit->setMinimumWidth(edit->fontMetrics().horizontalAdvance(edit->placeholderText()) + 60);
    edit->setMaximumWidth(edit->fontMetrics().averageCharWidth() * 26);
    row->addWidget(edit, 2);
    return edit;
  };
  file_ = line("file_filter", "File", "rtf");
  file_->setToolTip(Gui::tr("Shows only the messages about files with this in their path"));
  connect(file_, &QLineEdit::textChanged, this, [this] { set_filter(); });
  search_ = line("search", "Search", "search");
  search_->setToolTip(Gui::tr("Return goes to the next place, Shift+Return to the one before"));
  connect(search_, &QLineEdit::returnPressed, this,
          [this] { find(QApplication::keyboardModifiers() & Qt::ShiftModifier); });
  connect(search_, &QLineEdit::textChanged, this, [this] { show_found(true); });
  return area;
}

void gMessageView::make_table() {
  table_->setObjectName("messages");
  table_->setAccessibleName(Gui::tr("Messages"));
  table_->setModel(&model_);
  table_->setRootIsDecorated(false);
  table_->setUniformRowHeights(true);
  table_->setAlternatingRowColors(true);
  table_->setAllColumnsShowFocus(true);
  table_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  table_->setTabKeyNavigation(false);
  table_->setFrameShape(QFrame::NoFrame);
  table_->setIconSize(QSize(16, 16));
  int const letter = table_->fontMetrics().averageCharWidth();
  QHeaderView & head = *table_->header();
  head.setStretchLastSection(false);
  head.setSectionResizeMode(gMessageModel::text, QHeaderView::Stretch);
  head.resizeSection(gMessageModel::severity,
                     table_->fontMetrics().horizontalAdvance(Gui::tr("Documentation Error")) + 40);
  head.resizeSection(gMessageModel::number, letter * 9);
  head.resizeSection(gMessageModel::place, letter * 24);
  connect(table_, &QTreeView::doubleClicked, this, [this](QModelIndex const & row) { open(row); });
  QScrollBar & bar = *table_->verticalScrollBar();
  // Only what the user does with the bar counts: lines that come and a window that grows move it,
  // too.
  connect(&bar, &QScrollBar::actionTriggered, this,
          [this, &bar] { follows_ = bar.sliderPosition() == bar.maximum(); });
  connect(&bar, &QScrollBar::rangeChanged, this, [this] { follow(); });
}

void gMessageView::make_actions() {
  auto const add = [this](QWidget * where, QString const & label, QKeySequence const & keys,
                          auto run) {
    auto * action = new QAction(label, where);
    action->setShortcut(keys);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(action, &QAction::triggered, this, run);
    where->addAction(action);
  };
  add(table_, Gui::tr("&Open Source"), Qt::Key_Return, [this] { open(table_->currentIndex()); });
  add(table_, Gui::tr("&Copy"), QKeySequence::Copy, [this] { copy(); });
  add(table_, Gui::tr("Select &All"), QKeySequence::SelectAll, [this] { table_->selectAll(); });
  add(this, Gui::tr("&Search"), QKeySequence::Find, [this] { search(); });
  table_->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void gMessageView::update_list(bool cleared) {
  if (cleared) {
    follows_ = true;
    model_.reset();
  } else {
    model_.appended();
  }
  follow();
  update_counts();
  update_choices();
}

void gMessageView::follow() {
  if (follows_ && !table_->currentIndex().isValid())
    table_->verticalScrollBar()->setValue(table_->verticalScrollBar()->maximum());
}

void gMessageView::update_counts() {
  for (KindButton const & kind : kind_buttons) {
    std::size_t const count = list_.count(kind.kind);
    QToolButton & button = *kinds_[place(kind.kind)];
    QString const text = QString("%1 %L2").arg(Gui::tr(kind.word)).arg(count);
    if (button.text() == text)
      continue;
    button.setText(text);
    button.setAccessibleName(text);
    button.setToolTip(Gui::tr("Shows or hides these lines"));
  }
}

void gMessageView::update_choices() {
  QSignalBlocker const quiet(numbers_);
  if (numbers_->count() == static_cast<int>(list_.numbers().size()) + 1)
    return;
  QVariant const before = numbers_->currentData();
  numbers_->clear();
  numbers_->addItem(Gui::tr("All numbers"), 0);
  for (auto const & [number, count] : list_.numbers())
    numbers_->addItem(QString::number(number), number);
  numbers_->setCurrentIndex(std::max(0, numbers_->findData(before)));
}

void gMessageView::set_filter() {
  gMessageFilter filter;
  for (std::size_t i = 0; i < filter.show.size(); ++i)
    filter.show[i] = kinds_[i]->isChecked();
  if (int const number = numbers_->currentData().toInt())
    filter.numbers.insert(number);
  filter.file = Gui::bytes(file_->text());
  if (filter == list_.filter())
    return;
  list_.set_filter(filter);
  model_.reset();
}

void gMessageView::search() {
  search_->setFocus(Qt::ShortcutFocusReason);
  search_->selectAll();
}

void gMessageView::find(bool backward) {
  QModelIndex const here = table_->currentIndex();
  std::size_t from = backward ? list_.rows() - 1 : 0;
  if (here.isValid() && list_.rows() > 0) {
    auto const row = static_cast<std::size_t>(here.row());
    from = (row + (backward ? list_.rows() - 1 : 1)) % list_.rows();
  }
  std::size_t const found = search_->text().isEmpty() || list_.rows() == 0
                                ? gMessageList::none
                                : list_.find(Gui::bytes(search_->text()), from, backward);
  show_found(found != gMessageList::none);
  if (found != gMessageList::none)
    table_->setCurrentIndex(model_.index(static_cast<int>(found), gMessageModel::severity));
}

// What isn't found turns red.
void gMessageView::show_found(bool found) {
  QPalette palette;
  if (!found)
    palette.setColor(QPalette::Text, QColor(0xd0, 0x40, 0x38));
  search_->setPalette(palette);
}

void gMessageView::copy() const {
  std::set<std::size_t> rows;
  for (QModelIndex const & index : table_->selectionModel()->selectedRows())
    rows.insert(static_cast<std::size_t>(index.row()));
  if (!rows.empty())
    QApplication::clipboard()->setText(Gui::text(list_.copy(rows)));
}

void gMessageView::open(QModelIndex const & index) {
  if (index.isValid())
    open_(static_cast<std::size_t>(index.row()));
}
