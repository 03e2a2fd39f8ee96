// Windows are tested off-screen, with the same look on every machine.

#include <QApplication>
#include <QStyleFactory>
#include <gtest/gtest.h>

int main(int argc, char ** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  QApplication const application(argc, argv);
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  QApplication::setApplicationDisplayName("Vellumar");
  return RUN_ALL_TESTS();
}
