// The hourglass for as long as a block of code runs.
#pragma once

#include <QCursor>
#include <QGuiApplication>

namespace toolkit {

/// Shows the waiting pointer from here to the end of the block. Nested ones count.
class BusyCursor {
  public:
    BusyCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyCursor() { QGuiApplication::restoreOverrideCursor(); }
    BusyCursor(const BusyCursor&) = delete;
    BusyCursor& operator=(const BusyCursor&) = delete;
};

} // namespace toolkit
