// Where the windows of a user remember their places: section "Place" of the user's settings.
#pragma once

#include "toolkit/window_place.h"
#include "workspace/user_settings.h"

namespace mainwin {

/// \param settings  outlives the windows
inline toolkit::PlaceStore placesIn(workspace::UserSettings& settings) {
    const QString section = QStringLiteral("Place");
    return {[&settings, section](const QString& key) { return settings.value(section, key); },
            [&settings, section](const QString& key, const QString& value) { settings.set(section, key, value); }};
}

} // namespace mainwin
