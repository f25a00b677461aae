// What a parameter was in past draws: read from the derived values that the history holds, never computed anew.
#pragma once

#include <optional>

#include "filter/catalogue.h"

namespace filter {

/// The parameter's value in a draw, from Parameter::history (its case does not count); a position's is the number
/// drawn there. \param draw  1..Lsnum
/// \return nothing for a parameter that the history lacks, and for a draw that is not there
std::optional<int> pastValue(const history::History& history, const Parameter& parameter, int draw);

/// Share, 0 to 1, of all draws with a value in low..high, both ends with it. \return nothing where there is no value
std::optional<double> pastShare(const history::History& history, const Parameter& parameter, double low, double high);

} // namespace filter
