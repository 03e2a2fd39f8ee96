#include "app/qt/result_bar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "app/qt/icons.h"
#include "app/qt/text.h"

gResultBar::gResultBar(std::function<void()> open) : text_(new QLabel) {
  setFrameShape(QFrame::StyledPanel);
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::Base);
  auto * row = new QHBoxLayout(this);
  auto * picture = new QLabel;
  picture->setPixmap(Gui::icon("result").pixmap(QSize(20, 20), devicePixelRatioF()));
  row->addWidget(picture);
  text_->setTextFormat(Qt::PlainText);
  text_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  row->addWidget(text_, 1);
  auto * button = new QPushButton(Gui::tr("&View Result"));
  button->setObjectName("view_result");
  button->setAccessibleName(Gui::tr("View Result"));
  connect(button, &QPushButton::clicked, this, open);
  row->addWidget(button);
  hide();
}

void gResultBar::show_result(std::string const & path) {
  setVisible(!path.empty());
  text_->setText(Gui::tr("The documentation is ready: %1").arg(Gui::text(path)));
}
