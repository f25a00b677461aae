// Windows remember their place: position, size and the positions of their splitters, in the user's settings.
//
// The helper knows nothing of the settings store: it is given two functions. A place that no screen shows any more is
// moved onto the screen by Qt when it is restored.
#pragma once

#include <functional>

#include <QByteArray>
#include <QSize>
#include <QString>

class QWidget;

namespace toolkit {

/// Where places are kept. Both are called with the window's objectName (and a suffix for splitters) as the key.
struct PlaceStore {
    std::function<QString(const QString& key)> get;
    std::function<void(const QString& key, const QString& value)> set;
};

/// First place of a window that has none to remember: over its parent, else in the middle of the screen, and with its
/// frame no larger than the work area. Call it after the window is built and before it is shown.
/// \param wanted  its size without the frame
void placeOver(QWidget& window, QSize wanted);

/// Sets the window to its remembered place. Call it after the window is built and before it is shown.
/// \return whether there was one
bool restorePlace(QWidget& window, const PlaceStore& store);

/// Remembers the place. Call it when the window closes.
void rememberPlace(const QWidget& window, const PlaceStore& store);

/// restorePlace() now, and rememberPlace() at each close of the window, for as long as it lives.
void keepPlace(QWidget& window, PlaceStore store);

} // namespace toolkit
