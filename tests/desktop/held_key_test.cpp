// SPDX-License-Identifier: MIT
#include "platform/desktop/session/held_key.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTest>

namespace platform::desktop {
namespace {

TEST(HeldKey, ThatRepeatsIsPressedOnce) {
  int argc = 0;
  const QCoreApplication app{argc, nullptr};
  HeldKey key;
  int presses = 0;
  const auto call = [&] { key.called([&] { ++presses; }); };
  call();
  call();
  EXPECT_EQ(presses, 2) << "twice within a moment";
  QTest::qWait(200);
  for (int repeats = 0; repeats < 3; ++repeats) {
    key.released();
    call();
  }
  QTest::qWait(200);
  EXPECT_EQ(presses, 2);
  call();
  EXPECT_TRUE(QTest::qWaitFor([&] { return presses == 3; })) << "no repeat has followed";
  key.released();
  QTest::qWait(30);
  call();
  EXPECT_EQ(presses, 4) << "pressed anew";
}

}  // namespace
}  // namespace platform::desktop
