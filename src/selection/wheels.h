// Wheels (旋转矩阵) at work: which one is chosen, and how its rows become bets.
//
// Opening the menu of a family opens its database and leaves its marks; choosing an entry reads that table; the
// window of the wheel then turns its positions into numbers. The marks outlive each other in ways that look odd and
// are meant: a banker wheel leaves Wheeldan set, and a basic or extended wheel after it still reads its rows as those
// of a banker wheel, until the menu of the super wheels clears it.
//
// The databases lie beside the program. A family whose file is missing, or a table that it lacks, has no rows: its
// entry is not offered.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "selection/bet_source.h"
#include "selection/pad.h"
#include "selection/wheel_tables.h"
#include "sql/database.h"

namespace selection {

/// A row of a wheel: its cells stand from place 0; six of them, or seven.
using WheelRow = std::array<std::int16_t, 7>;

class Wheels {
  public:
    static constexpr std::size_t kMostRows = kMostWheelRows;

    /// \param fileOf  where the database of a name lies  \param engine  outlives this
    using FileOf = std::function<std::filesystem::path(std::string_view name)>;
    Wheels(sql::Engine& engine, FileOf fileOf);

    std::vector<WheelRow> rsWheel; ///< the rows of the chosen table, positions
    bool Wheelopen = false;        ///< rsWheel is chosen; else the basic wheel of as many reds as are chosen is taken
    bool Wheeldan = false;         ///< the chosen wheel is one with bankers
    std::array<std::int16_t, Pad::kMostReds + 1> Rotemap{}; ///< the number at a position of a wheel with bankers
    std::vector<WheelRow> Rotetable; ///< the rows of the last wheel read; numbers where it was one with bankers

    /// The menu of a family is opened: the reds are sorted, the marks are set as the family sets them, and its file
    /// is looked at anew.
    void openMenu(WheelFamily family, Pad& pad);

    /// The databases are closed, and counted anew when they are next asked for: before a file is replaced.
    void forget();

    /// Rows of the table for the numbers on the pad; nothing when there is no such table.
    std::optional<std::int64_t> rows(WheelFamily family, const Pad& pad, const Guarantee& pair);
    std::optional<std::int64_t> rows(WheelFamily family, const std::string& table);

    /// Takes a table as rsWheel. One that is not there leaves none.
    void choose(WheelFamily family, const std::string& table);
    /// An entry of the wheels with bankers: takes its table and fills Rotemap, the drags first.
    void chooseBanker(const Pad& pad, const Guarantee& pair);

    /// Fills Rotetable from the chosen wheel, or from the basic one; empty when there is none.
    void read(const Pad& pad);
    /// How many rows read() finds.
    std::int64_t rowsToRead(const Pad& pad);
    /// The table that read() takes, where its guarantee holds for the numbers on the pad: nothing where the mark of
    /// another wheel is left, where other numbers have been chosen since, and for a compound wheel cut to six reds.
    std::optional<WheelTable> guaranteed(const Pad& pad);

  private:
    sql::Database* open(WheelFamily family);
    std::vector<WheelRow> rowsOf(WheelFamily family, const std::string& table);
    void mapBankers();
    bool mapFits(const Pad& pad) const;

    sql::Engine& m_engine;
    FileOf m_fileOf;
    std::optional<WheelTable> m_chosen; ///< what rsWheel was read from
    std::map<WheelFamily, std::unique_ptr<sql::Database>> m_open;
    std::map<std::pair<WheelFamily, std::string>, std::optional<std::int64_t>> m_counts;
};

/// Bets by the wheel that is chosen: each of its rows once for every blue, all of them numbered as the row.
class Wheel final : public BetSource {
  public:
    /// Both outlive the source.
    Wheel(Wheels& wheels, const Pad& pad) : m_wheels(wheels), m_pad(pad) {}
    Generated fill(sql::Database& database, const TableShape& shape, workspace::Progress* progress) override;

  private:
    Wheels& m_wheels;
    const Pad& m_pad;
};

} // namespace selection
