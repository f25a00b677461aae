// The wheels as they are kept: text files in data/wheels, one a family, each wheel with the way it was made.
//
//   table 0954 9 6 5 4 rows 3          name, N, row, x, y, number of rows
//   made orbits bca.. seed 5 work 900  one line a step, first to last (see recipe.h)
//   abcdef abcghi defghi               the rows; a is position 1
//   table 0955 9 6 5 5 as 560955       the same rows as a table of this or an earlier file
//
// helpers.txt holds wheels that no menu names and that others were made from. Files are replaced whole, by renaming.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "selection/wheel_tables.h"
#include "wheels/subsets.h"

namespace wheels {

struct Wheel {
    std::vector<PositionSet> rows; ///< in the order of their ascending positions
    std::vector<std::string> made; ///< steps of the recipe
};

class WheelStore {
  public:
    /// Reads every file that is there. \throws std::runtime_error  naming the file and line that is wrong
    explicit WheelStore(std::filesystem::path folder);

    /// Null when there is none yet.
    const Wheel* find(const WheelProblem& problem) const;
    /// Takes a wheel that is new or has fewer rows than the stored one. It must have been proven.
    /// \return whether it was taken
    bool offer(const WheelProblem& problem, Wheel wheel);
    /// Writes all files anew, if anything was taken since the last time.
    void save();

    const std::map<WheelProblem, Wheel>& wheels() const { return m_wheels; }

  private:
    void read(const std::filesystem::path& file);

    std::filesystem::path m_folder;
    std::map<WheelProblem, Wheel> m_wheels;
    bool m_changed = false;
};

/// Whether a table ships: every one that has rows, but for the too long ones of the super family.
bool isShipped(const selection::WheelTable& table, const Wheel* wheel);

/// The file of a family in the folder: "super.txt".
std::string fileName(selection::WheelFamily family);

/// Puts rows into the order of their ascending positions: 1 2 3 before 1 2 4 before 2 3 4.
void sortRows(std::vector<PositionSet>& rows);

} // namespace wheels
