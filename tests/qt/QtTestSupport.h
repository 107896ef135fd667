#pragma once

#include <QCoreApplication>
#include <QEvent>

namespace zrsimprp::testing {

// Lets the event loop run the refreshes the binders have scheduled.
inline void RunEventLoopTurn() {
  QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
  QCoreApplication::processEvents();
}

}  // namespace zrsimprp::testing
