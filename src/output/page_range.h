// Which pages of something long are wanted.
#pragma once

#include <optional>

#include "workspace/dialogs.h"

namespace output {

/// Both from 1.
struct PageRange {
    int first;
    int last;
    bool operator==(const PageRange&) const = default;
};

/// From so many pages on it is asked which of them are wanted, before any is made.
inline constexpr int kManyPages = 200;

/// "3-17" or "5", blanks passed over. \return nothing for anything else, and for pages that are not there
std::optional<PageRange> readPageRange(const QString& text, int pages);

/// Asks which pages; what is none is told and asked again. \return nothing on Cancel
std::optional<PageRange> askPageRange(int pages, workspace::Dialogs& dialogs);

} // namespace output
