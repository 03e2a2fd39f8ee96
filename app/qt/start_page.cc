#include "app/qt/start_page.h"

#include <QCommandLinkButton>
#include <QGridLayout>
#include <QLabel>

#include "app/qt/icons.h"
#include "app/qt/text.h"

namespace {

struct Choice {
  char const * command;
  char const * picture;
  char const * label;
  char const * explanation;
};
constexpr Choice choices[] = {
    {"gVlpQuick", "quick", "&Document a folder...",
     "Finds the sources in a folder and makes a web site of them at once. What it settles can be "
     "saved as a project and refined."},
    {"gVlpNew", "new", "&New project...", "Chooses sources, script and output folder one by one."},
    {"gVlpOpen", "open", "&Open project...", "Goes on with a project file (.vlp)."}};

constexpr int button_margin = 10; // of a choice, in front of its picture

QLabel * heading() {
  auto * label = new QLabel(Gui::tr("What do you want to document?"));
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * 1.6);
  label->setFont(font);
  label->setContentsMargins(button_margin, 0, 0, 0);
  return label;
}

QLabel * picture() {
  auto * label = new QLabel;
  label->setPixmap(Gui::program_icon().pixmap(QSize(64, 64), label->devicePixelRatioF()));
  return label;
}

} // namespace

gStartPage::gStartPage(std::function<void(std::string_view command)> run) {
  auto * grid = new QGridLayout(this);
  grid->setRowStretch(0, 2);
  grid->setColumnStretch(0, 1);
  grid->setColumnStretch(3, 1);
  grid->setHorizontalSpacing(16);
  grid->setVerticalSpacing(12);
  grid->addWidget(picture(), 1, 1);
  grid->addWidget(heading(), 1, 2, Qt::AlignVCenter);
  int row = 2;
  for (Choice const & choice : choices) {
    auto * button = new QCommandLinkButton(Gui::tr(choice.label), Gui::tr(choice.explanation));
    button->setObjectName(choice.command);
    button->setAccessibleName(Gui::tr(choice.label).remove('&'));
    button->setAccessibleDescription(Gui::tr(choice.explanation));
    button->setIcon(Gui::icon(choice.picture));
    button->setIconSize(QSize(32, 32));
    button->setMaximumWidth(button->fontMetrics().averageCharWidth() * 76);
    button->setMinimumWidth(button->fontMetrics().averageCharWidth() * 56);
    connect(button, &QCommandLinkButton::clicked, this, [run, choice] { run(choice.command); });
    grid->addWidget(button, row++, 2);
  }
  auto * hint = new QLabel(Gui::tr("A project file can also be dropped onto this window."));
  hint->setContentsMargins(button_margin, 0, 0, 0);
  hint->setForegroundRole(QPalette::PlaceholderText);
  grid->addWidget(hint, row++, 2);
  grid->setRowStretch(row, 3);
}

void gStartPage::show_those(std::function<bool(std::string_view command)> const & exists) {
  for (Choice const & choice : choices)
    findChild<QCommandLinkButton *>(choice.command)->setVisible(exists(choice.command));
}
