#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>
#include <csignal>

int main(int argc, char** argv) {
  std::signal(SIGPIPE, SIG_IGN);
  testing::InitGoogleTest(&argc, argv);
  // Also where no desktop is: the tests need no display, and listing them even less.
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  const QTemporaryDir config;  // what dialogs remember is not the developer's
  qputenv("XDG_CONFIG_HOME", config.path().toLocal8Bit());
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
