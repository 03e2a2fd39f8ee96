// A page is a pile of blocks; a block has columns beside each other, a column has lines, and a line
// has controls. A field that opens a new column stands beside the list or frame in front of it, so
// a list has its buttons beside it; a field below such buttons that is no button begins a new block
// in the full width, and so does one that asks for a new row. A frame holds its fields in the same
// way.

#include "app/qt/page_layout.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>
#include <span>

#include "app/qt/text.h"

namespace {

using Kind = gField::Kind;
using Place = gField::Place;
using Control = std::unique_ptr<gFieldControl>;

// A line: controls beside each other, or a frame around some.
struct Line {
  std::vector<gFieldControl *> controls;
  QGroupBox * frame = nullptr;
  bool tall = false, wide = false; // takes what room is left

  Kind kind() const { return controls.front()->field().kind; }
  bool is_big() const { return frame || kind() == Kind::list; }
  bool is_button() const { return !frame && kind() == Kind::button; }
};
using Column = std::vector<Line>;
using Block = std::vector<Column>;

Line line_of(gFieldControl & control) {
  Kind const kind = control.field().kind;
  bool const list = kind == Kind::list;
  return {{&control}, nullptr, list, list || kind == Kind::text || kind == Kind::shown};
}

template <class Test> bool any_line(Block const & block, Test const & test) {
  return std::any_of(block.begin(), block.end(), [&](Column const & column) {
    return std::any_of(column.begin(), column.end(), test);
  });
}
bool is_tall(Line const & line) {
  return line.tall;
}
bool is_wide(Line const & line) {
  return line.wide;
}

bool only_buttons(Column const & column) {
  return std::all_of(column.begin(), column.end(),
                     [](Line const & line) { return line.is_button(); });
}

class Blocks {
public:
  void add(Line line, Place place) {
    if (blocks_.empty())
      blocks_.push_back({{}});
    bool const list = !line.frame && line.kind() == Kind::list;
    if (place == Place::row)
      blocks_.push_back({{}});
    else if (place == Place::column || (place == Place::beside && list))
      open_column();
    else if (blocks_.back().size() > 1 && only_buttons(blocks_.back().back()) && !line.is_button())
      blocks_.push_back({{}});
    Column & column = blocks_.back().back();
    if (place == Place::beside && !column.empty() && !line.frame && !column.back().frame)
      column.back().controls.push_back(line.controls.front());
    else
      column.push_back(std::move(line));
  }
  std::vector<Block> const & blocks() const { return blocks_; }

private:
  void open_column() {
    if (blocks_.back().size() == 1)
      split_off();
    if (!blocks_.back().back().empty())
      blocks_.back().emplace_back();
  }

  // What stands in front of the last list or frame stays above it, in the full width.
  void split_off() {
    Column & column = blocks_.back().back();
    auto const big = std::find_if(column.rbegin(), column.rend(),
                                  [](Line const & line) { return line.is_big(); });
    if (big == column.rend() || big == std::prev(column.rend()))
      return;
    auto const first = std::prev(big.base());
    Column rest(std::make_move_iterator(first), std::make_move_iterator(column.end()));
    column.erase(first, column.end());
    blocks_.push_back({std::move(rest)});
  }

  std::vector<Block> blocks_;
};

// Lines in two columns, labels and controls; lists take what is left.
class ColumnGrid {
public:
  explicit ColumnGrid(Column const & column) : column_(column) {
    for (Line const & line : column)
      wide_labels_ |= needs_line_above(line);
  }

  QLayout * make() {
    grid_->setColumnStretch(1, 1);
    for (Line const & line : column_)
      add(line);
    if (std::none_of(column_.begin(), column_.end(), is_tall))
      grid_->setRowStretch(grid_->rowCount(), 1);
    return grid_;
  }

private:
  static bool is_path(Line const & line) {
    return !line.frame && (line.kind() == Kind::text || line.kind() == Kind::shown);
  }
  // A long label in front of a line to type in would leave it no room.
  static bool needs_line_above(Line const & line) {
    return is_path(line) && line.controls.front()->field().label.size() > 26;
  }

  void add(Line const & line) {
    if (line.frame)
      grid_->addWidget(line.frame, row_++, 0, 1, 2);
    else if (line.kind() == Kind::list)
      add_list(line);
    else
      add_line(line);
  }

  void add_list(Line const & line) {
    gFieldControl const & list = *line.controls.front();
    if (list.label())
      grid_->addWidget(list.label(), row_++, 0, 1, 2);
    grid_->addWidget(list.widget(), row_, 0, 1, 2);
    grid_->setRowStretch(row_++, 1);
  }

  void add_line(Line const & line) {
    gFieldControl const & first = *line.controls.front();
    QLabel * label = first.label();
    if (label && wide_labels_ && is_path(line)) {
      grid_->addWidget(label, row_++, 0, 1, 2);
      label = nullptr;
    } else if (label) {
      auto const upper = first.field().kind == Kind::radio ? Qt::AlignTop : Qt::AlignVCenter;
      grid_->addWidget(label, row_, 0, upper | Qt::AlignLeft);
    }
    int const from = label ? 1 : 0;
    grid_->addLayout(beside(line), row_++, from, 1, 2 - from);
  }

  static QLayout * beside(Line const & line) {
    auto * row = new QHBoxLayout;
    bool stretches = false;
    for (gFieldControl * control : line.controls) {
      if (control != line.controls.front() && control->label())
        row->addWidget(control->label());
      Kind const kind = control->field().kind;
      bool const wide = kind == Kind::text || kind == Kind::shown || kind == Kind::note;
      stretches |= wide;
      row->addWidget(control->widget(), wide ? 1 : 0);
    }
    if (!stretches)
      row->addStretch(1);
    return row;
  }

  Column const & column_;
  QGridLayout * grid_ = new QGridLayout;
  bool wide_labels_ = false;
  int row_ = 0;
};

// Buttons of the same width, from the top on.
QLayout * button_column(Column const & column) {
  auto * pile = new QVBoxLayout;
  for (Line const & line : column)
    for (gFieldControl * control : line.controls)
      pile->addWidget(control->widget());
  pile->addStretch(1);
  return pile;
}

// The buttons begin where the list does, and not beside its label.
int label_height(Column const & column) {
  gFieldControl const * first =
      column.empty() || column.front().frame ? nullptr : column.front().controls.front();
  bool const titled = first && first->field().kind == Kind::list && first->label();
  return titled ? first->label()->sizeHint().height() + 6 : 0;
}

// The share of a column in the room: lists get it by their columns.
int width_of(Column const & column) {
  std::size_t share = 0;
  for (Line const & line : column) {
    bool const list = !line.frame && line.kind() == Kind::list;
    share = std::max(share, list ? line.controls.front()->field().titles.size() : 0);
    share = std::max<std::size_t>(share, line.wide ? 1 : 0);
  }
  return static_cast<int>(share);
}

QLayout * make_block(Block const & block) {
  if (block.size() == 1)
    return ColumnGrid(block.front()).make();
  auto * row = new QHBoxLayout;
  bool const all_narrow = !any_line(block, is_wide);
  for (Column const & column : block) {
    if (!only_buttons(column)) {
      row->addLayout(ColumnGrid(column).make(), all_narrow ? 1 : width_of(column));
      continue;
    }
    QLayout * pile = button_column(column);
    pile->setContentsMargins(0, label_height(block.front()), 0, 0);
    row->addLayout(pile);
  }
  return row;
}

// The pile of blocks; one at least takes the room that is left.
void fill(QVBoxLayout & pile, std::vector<Block> const & blocks) {
  bool stretches = false;
  for (Block const & block : blocks) {
    bool const tall = any_line(block, is_tall);
    pile.addLayout(make_block(block), tall ? 1 : 0);
    stretches |= tall;
  }
  if (!stretches)
    pile.addStretch(1);
}

// Builds frame after frame, then the page around them.
class PageBuilder {
public:
  explicit PageBuilder(std::vector<Control> const & controls) : controls_(controls) {}

  void build(QWidget & widget) {
    auto * pile = new QVBoxLayout(&widget);
    Blocks blocks;
    for (std::size_t i = 0; i < controls_.size();) {
      gField const & first = controls_[i]->field();
      if (first.frame.empty()) {
        blocks.add(line_of(*controls_[i++]), first.place);
        continue;
      }
      std::size_t const begin = i;
      while (i < controls_.size() && controls_[i]->field().frame == first.frame)
        ++i;
      bool const moved = first.place == Place::column || first.place == Place::row;
      blocks.add(make_frame(first.frame, std::span(controls_).subspan(begin, i - begin)),
                 moved ? first.place : Place::below);
    }
    fill(*pile, blocks.blocks());
  }

  std::vector<std::pair<std::string, QGroupBox *>> frames;

private:
  Line make_frame(std::string const & id, std::span<Control const> controls) {
    auto * box = new QGroupBox;
    auto * pile = new QVBoxLayout(box);
    Blocks blocks;
    Line line{{}, box};
    for (Control const & control : controls) {
      Line inner = line_of(*control);
      line.tall |= inner.tall;
      line.wide |= inner.wide;
      blocks.add(std::move(inner),
                 &control == controls.data() ? Place::below : control->field().place);
    }
    fill(*pile, blocks.blocks());
    if (!line.tall)
      box->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    frames.emplace_back(id, box);
    return line;
  }

  std::vector<Control> const & controls_;
};

} // namespace

gPageWidget::gPageWidget(gPage & page, Controls controls)
    : page_(page),
      controls_(std::move(controls)) {
  PageBuilder builder(controls_);
  builder.build(*this);
  frames_ = std::move(builder.frames);
  QWidget * before = nullptr;
  for (Control const & control : controls_) {
    if (before)
      setTabOrder(before, control->widget());
    before = control->widget();
  }
  widen_paths();
  update_controls();
}

// A path is read as a whole.
void gPageWidget::widen_paths() {
  constexpr int letters = 56;
  for (Control const & control : controls_) {
    gFieldControl * const path = this->control(control->field().chooser_of);
    if (path)
      path->widget()->setMinimumWidth(path->widget()->fontMetrics().averageCharWidth() * letters);
  }
}

// Widgets tell their controls even while they go.
gPageWidget::~gPageWidget() {
  qDeleteAll(findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly));
}

gFieldControl * gPageWidget::control(std::string_view id) const {
  auto const found = std::find_if(controls_.begin(), controls_.end(), [&](Control const & control) {
    return control->field().id == id;
  });
  return found == controls_.end() ? nullptr : found->get();
}

gFieldControl * gPageWidget::control_of(QWidget const * widget) const {
  for (Control const & control : controls_) {
    if (widget && (widget == control->widget() || control->widget()->isAncestorOf(widget)))
      return control.get();
  }
  return nullptr;
}

void gPageWidget::update_frames() {
  for (auto const & [id, box] : frames_) {
    auto const frame = std::find_if(page_.frames().begin(), page_.frames().end(),
                                    [&id = id](gFrame const & one) { return one.id == id; });
    QString const title = frame == page_.frames().end() ? QString() : Gui::tr(frame->title);
    if (box->title() != title)
      box->setTitle(title);
  }
}

void gPageWidget::update_controls() {
  update_frames();
  for (Control const & control : controls_)
    control->update();
}
