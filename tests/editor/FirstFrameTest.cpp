#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTest>
#include <chrono>
#include <filesystem>
#include <thread>

#include "EditorFixture.h"
#include "zrsim-editor/EditorArguments.h"
#include "zrsim-editor/EditorDocument.h"
#include "zrsim-editor/EditorError.h"
#include "zrsim-editor/EditorWindow.h"
#include "zrsim-editor/FirstFrameProbe.h"
#include "zrsim-editor/ProcessClock.h"

namespace {

using zrsim_editor::EditorArguments;
using zrsim_editor::EditorDocument;
using zrsim_editor::EditorError;
using zrsim_editor::EditorWindow;
using zrsim_editor::FirstFrameProbe;
using zrsim_editor::ProcessClock;

class FirstFrame : public EditorFixture {
 protected:
  // The editor as built next to this test program.
  static std::string Editor() { return std::string(ZRSIMPRP_BINARY_DIR) + "/apps/zrsim-editor/zrsim-editor"; }

  // Runs the editor off screen; false when it did not end within a minute.
  static bool RunEditor(const QStringList& arguments, QString& out, QString& err, int& status) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    process.setProcessEnvironment(environment);
    process.start(QString::fromStdString(Editor()), arguments);
    if (!process.waitForFinished(60000)) {
      process.kill();
      process.waitForFinished();
      return false;
    }
    out = QString::fromLocal8Bit(process.readAllStandardOutput());
    err = QString::fromLocal8Bit(process.readAllStandardError());
    status = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    return true;
  }
};

TEST(EditorArguments, ExitAfterFirstFrameIsAFlag) {
  EXPECT_FALSE(EditorArguments::Parse({}).exit_after_first_frame);
  const auto options = EditorArguments::Parse({"--exit-after-first-frame", "--project", "p.gpkg"});
  EXPECT_TRUE(options.exit_after_first_frame);
  EXPECT_EQ(options.project, "p.gpkg");
  EXPECT_NE(EditorArguments::Usage().find("--exit-after-first-frame"), std::string::npos);
}

TEST(EditorArguments, ExitAfterFirstFrameTakesNoValueAndExcludesScreenshots) {
  const auto failure = [](const std::vector<std::string>& words) -> std::string {
    try {
      EditorArguments::Parse(words);
    } catch (const EditorError& error) {
      return error.what();
    }
    return "";
  };
  EXPECT_EQ(
      failure({"--exit-after-first-frame", "--screenshot", "out"}),
      "zrsim-editor: --exit-after-first-frame shows the window, --screenshot draws into files; use one of "
      "them");
  EXPECT_NE(failure({"--exit-after-first-frame=yes"}), "");
}

TEST(ProcessClock, CountsFromTheStartOfTheProcessAndKeepsGoing) {
  const double first = ProcessClock::MillisecondsSinceStart();
  std::this_thread::sleep_for(std::chrono::milliseconds(60));
  const double second = ProcessClock::MillisecondsSinceStart();
  EXPECT_GT(first, 0);
  // Linux keeps the start in 10 ms ticks; the difference of two readings is exact to the clock.
  EXPECT_GE(second - first, 55);
  EXPECT_LT(second - first, 10000);
}

TEST_F(FirstFrame, ProbeFiresOnceAfterTheShownWindowIsPainted) {
  auto document = EditorDocument::Open(Sample(), "");
  EditorWindow window(*document);
  window.SetMessageSink([](const std::string&, const std::string&) {});
  ASSERT_TRUE(window.Load());
  int calls = 0;
  FirstFrameProbe* probe = FirstFrameProbe::Watch(&window, [&calls] { ++calls; });
  QCoreApplication::processEvents();
  EXPECT_FALSE(probe->Fired()) << "a window that is not shown has drawn nothing";
  window.show();
  ASSERT_TRUE(QTest::qWaitFor([probe] { return probe->Fired(); }, 10000));
  window.update();
  QTest::qWait(50);
  EXPECT_EQ(calls, 1);
}

TEST_F(FirstFrame, EditorPrintsTheMillisecondsToItsFirstFrameAndExitsZero) {
  if (!std::filesystem::exists(Editor())) GTEST_SKIP() << "the editor is not built: " << Editor();
  QString out;
  QString err;
  int status = -1;
  ASSERT_TRUE(RunEditor({"--exit-after-first-frame", "--project", QString::fromStdString(Sample())}, out, err,
                        status));
  EXPECT_EQ(status, 0) << err.toStdString();
  bool number = false;
  const long long milliseconds = out.trimmed().toLongLong(&number);
  EXPECT_TRUE(number) << "stdout: '" << out.toStdString() << "'";
  EXPECT_GT(milliseconds, 0);
  EXPECT_LT(milliseconds, 60000);
  EXPECT_EQ(out.count(QLatin1Char('\n')), 1) << "one line, the milliseconds only";
}

TEST_F(FirstFrame, EditorWithAMissingProjectStillFailsWithStatusTwo) {
  if (!std::filesystem::exists(Editor())) GTEST_SKIP() << "the editor is not built: " << Editor();
  QString out;
  QString err;
  int status = -1;
  ASSERT_TRUE(
      RunEditor({"--exit-after-first-frame", "--project", QString::fromStdString(Folder() + "/none.gpkg")},
                out, err, status));
  EXPECT_EQ(status, 2);
  EXPECT_TRUE(out.isEmpty()) << out.toStdString();
  EXPECT_FALSE(err.isEmpty());
}

}  // namespace
