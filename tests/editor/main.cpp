#include <gtest/gtest.h>

#include <QApplication>
#include <cstdlib>

int main(int argc, char** argv) {
  // The form is drawn off screen: the tests never need, nor open, a display.
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  QApplication application(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
