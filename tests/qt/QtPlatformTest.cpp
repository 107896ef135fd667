#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <memory>

#include "zrsimprp/qt/QtPlatform.h"

namespace zrsimprp {
namespace {

TEST(QtPlatform, ValidationBoxIsAWarningWithTitleAndOkOnly) {
  std::unique_ptr<QMessageBox> box(
      QtPlatform::CreateMessageBox("The number of repetitions must be greater than zero.",
                                   "Error in options on Simulation Page", MessageIcon::Exclamation, nullptr));
  EXPECT_EQ(box->icon(), QMessageBox::Warning);
  EXPECT_EQ(box->windowTitle(), "Error in options on Simulation Page");
  EXPECT_EQ(box->text(), "The number of repetitions must be greater than zero.");
  EXPECT_EQ(box->standardButtons(), QMessageBox::StandardButtons(QMessageBox::Ok));
}

TEST(QtPlatform, CriticalBoxHasTheCriticalIcon) {
  std::unique_ptr<QMessageBox> box(
      QtPlatform::CreateMessageBox("x", "Pellunar Internal Error", MessageIcon::Critical, nullptr));
  EXPECT_EQ(box->icon(), QMessageBox::Critical);
}

TEST(QtPlatform, TextKeepsItsBlanksAndMarkup) {
  std::unique_ptr<QMessageBox> box(
      QtPlatform::CreateMessageBox("a   <b>b</b>", "t", MessageIcon::Critical, nullptr));
  EXPECT_EQ(box->textFormat(), Qt::PlainText);
  EXPECT_EQ(box->text(), "a   <b>b</b>");
}

TEST(QtPlatform, MessageSinkCapturesWithoutABox) {
  QtPlatform platform;
  std::vector<std::string> seen;
  platform.SetMessageSink([&seen](const std::string& text, const std::string& title, MessageIcon) {
    seen.push_back(title + "|" + text);
  });
  platform.MessageBox("Bad value", "Error in options on Misc Page", MessageIcon::Exclamation);
  EXPECT_EQ(seen, std::vector<std::string>{"Error in options on Misc Page|Bad value"});
  EXPECT_EQ(platform.MessagesShown(), 1);
}

TEST(QtPlatform, ModalBoxIsShownAndClosedByItsOkButton) {
  QtPlatform platform;
  QString title;
  QString text;
  QTimer::singleShot(0, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    title = box->windowTitle();
    text = box->text();
    box->button(QMessageBox::Ok)->click();
  });
  platform.MessageBox("Check the value", "Error in options on Density Page", MessageIcon::Exclamation);
  EXPECT_EQ(title, "Error in options on Density Page");
  EXPECT_EQ(text, "Check the value");
}

TEST(QtPlatform, FixedAnswers) {
  QtPlatform platform;
  EXPECT_EQ(platform.ComponentName(), "ZrSIMPrp");
  EXPECT_TRUE(platform.UserMode());
  platform.SetUserMode(false);
  EXPECT_FALSE(platform.UserMode());
  EXPECT_EQ(platform.SystemColor(SystemColorRole::kButtonFace).role, SystemColorRole::kButtonFace);
  EXPECT_EQ(platform.SystemColor(SystemColorRole::kWindowBackground).role,
            SystemColorRole::kWindowBackground);
}

TEST(QtPlatform, BeepIsCounted) {
  QtPlatform platform;
  platform.Beep();
  EXPECT_EQ(platform.Beeps(), 1);
}

TEST(QtPlatform, ResetMousePointerRestoresEveryOverrideCursor) {
  QtPlatform platform;
  QApplication::setOverrideCursor(Qt::WaitCursor);
  QApplication::setOverrideCursor(Qt::BusyCursor);
  platform.ResetMousePointer();
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

}  // namespace
}  // namespace zrsimprp
