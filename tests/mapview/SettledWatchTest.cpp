#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QObject>
#include <QTest>

#include "zrsimprp/host/TextBox.h"
#include "zrsimprp/qt/map/SettledWatch.h"

namespace zrsimprp {
namespace {

constexpr int kPauseMs = 60;

TEST(SettledWatch, ARunOfChangesSettlesOnceAfterTheLastOne) {
  QObject context;
  TextBox box;
  int settled = 0;
  qint64 settled_at = -1;
  QElapsedTimer clock;
  clock.start();
  SettledWatch watch(kPauseMs, &context, [&] {
    ++settled;
    settled_at = clock.elapsed();
  });
  watch.Watch(box);
  qint64 last_change = 0;
  for (int key = 0; key < 5; ++key) {
    box.SetText(std::string(static_cast<size_t>(key + 1), 'x'));
    last_change = clock.elapsed();
    EXPECT_TRUE(watch.Pending());
    QTest::qWait(kPauseMs / 3);
  }
  EXPECT_EQ(settled, 0);
  EXPECT_TRUE(QTest::qWaitFor([&] { return settled > 0; }, 5 * kPauseMs));
  EXPECT_EQ(settled, 1);
  EXPECT_GE(settled_at - last_change, kPauseMs - 1);
  EXPECT_FALSE(watch.Pending());
  QTest::qWait(2 * kPauseMs);
  EXPECT_EQ(settled, 1);
}

TEST(SettledWatch, ThousandsOfChangesAtOnceSettleOnce) {
  QObject context;
  TextBox box;
  int settled = 0;
  SettledWatch watch(kPauseMs, &context, [&] { ++settled; });
  watch.Watch(box);
  for (int change = 0; change < 5000; ++change) box.SetText(std::to_string(change));
  EXPECT_TRUE(QTest::qWaitFor([&] { return settled > 0; }, 10 * kPauseMs));
  QTest::qWait(2 * kPauseMs);
  EXPECT_EQ(settled, 1);
}

TEST(SettledWatch, CancelledChangeNeverSettles) {
  QObject context;
  TextBox box;
  int settled = 0;
  SettledWatch watch(kPauseMs, &context, [&] { ++settled; });
  watch.Watch(box);
  box.SetText("typed");
  watch.Cancel();
  EXPECT_FALSE(watch.Pending());
  QTest::qWait(2 * kPauseMs);
  EXPECT_EQ(settled, 0);
}

}  // namespace
}  // namespace zrsimprp
