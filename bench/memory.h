// How much memory a process takes that has generated a table and filtered it by ten parameters.
#pragma once

namespace bench {

/// Prints one row of the table of memory. \param blues  1 or 16 \return whether the table came out right
bool printMemoryOfTenPresses(int blues);
/// The same of an integrated run in which every bet fails every parameter, with its own value in each reason.
bool printMemoryOfReasons(int blues);

} // namespace bench
