// Where the bets of a combination table come from: one interface for all that fill a table.
//
// A source makes its table anew, or leaves it as it is. Until the new table is complete the old one stands: work that
// is given up leaves the old rows with all their states, in memory and in the file.
#pragma once

#include "selection/enumeration.h"
#include "workspace/dialogs.h"

namespace selection {

struct BetSource {
    virtual ~BetSource() = default;
    /// Fills the table of `shape`.
    /// \param progress  told the share done, and asked whether to go on; may be null
    /// What the database refuses is passed over, statement by statement and block by block.
    virtual Generated fill(sql::Database& database, const TableShape& shape, workspace::Progress* progress) = 0;
};

/// Plain sets of the chosen numbers, sets around bankers (shape.bankers), or the rows of Multitable (input.Multirows,
/// cleared when it has been used). A list of reds shorter than Genreds reads as 0 there.
class Enumeration final : public BetSource {
  public:
    explicit Enumeration(GenerationInput& input) : m_input(input) {}
    /// The count that a generation of this shape announces.
    std::int64_t announced(const TableShape& shape) const;
    Generated fill(sql::Database& database, const TableShape& shape, workspace::Progress* progress) override;

  private:
    GenerationInput& m_input;
};

/// The table as it is, filter states and all.
class Keep final : public BetSource {
  public:
    Generated fill(sql::Database& database, const TableShape& shape, workspace::Progress* progress) override;
};

/// The bets of the table of this name in another database, with their numbers and without their filter states. A
/// database that has no such table leaves the table as it is, as if the user had given up.
class CopiedBets final : public BetSource {
  public:
    /// \param from  outlives the source, and is another database than the one that is filled
    explicit CopiedBets(sql::Database& from) : m_from(from) {}
    Generated fill(sql::Database& database, const TableShape& shape, workspace::Progress* progress) override;

  private:
    sql::Database& m_from;
};

} // namespace selection
