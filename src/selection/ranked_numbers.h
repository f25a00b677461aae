// Choosing numbers by their statistics: the most and the least frequent ones, those absent for long or for a short
// time, of the reds or of the blues.
//
// Eight selections, which differ in the rows of kRankedSelections alone; reds and blues differ in the tables they
// read and in the half of the pad they press. Order: pickNumbers() reads everything, pressNumbers() then presses: a
// statement that fails has pressed nothing.
//
// A frequency is ranked on the shares of the whole history (Gailv, GailvB), or on the hits within a range of draws,
// counted into the working copies Gailvtmp and GailvtmpB. Equal ones keep the table's order. The hits are counted in
// one pass over fig with the condition of the range, not in one statement for each number and place: 33 × 6 of them
// over 3,400 draws could be felt.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include <QString>

#include "history/history.h"
#include "selection/pad.h"
#include "sql/database.h"
#include "workspace/dialogs.h"

namespace selection {

enum class Colour { Red, Blue };
enum class Ranking {
    Frequent,    ///< so many numbers, from the highest share down
    Rare,        ///< from the lowest share up
    LongAbsent,  ///< every number absent for at least so many draws
    ShortAbsent, ///< for at most so many
};

inline bool isFrequency(Ranking ranking) {
    return ranking == Ranking::Frequent || ranking == Ranking::Rare;
}

struct RankedSelection {
    QStringView command; ///< its menu entry
    Colour colour;
    Ranking ranking;
    QStringView title; ///< of the question for its number
    int proposed;
};

// add a selection by statistics here
inline constexpr RankedSelection kRankedSelections[] = {
    {u"mnuHihg", Colour::Red, Ranking::Frequent, u"高频选号", 10},
    {u"mnuLow", Colour::Red, Ranking::Rare, u"低频选号", 10},
    {u"mnuYHigh", Colour::Red, Ranking::LongAbsent, u"高次遗漏选号", 6},
    {u"mnuYLow", Colour::Red, Ranking::ShortAbsent, u"低次遗漏选号", 3},
    {u"mnuHihgB", Colour::Blue, Ranking::Frequent, u"高频选号", 10},
    {u"mnuLowB", Colour::Blue, Ranking::Rare, u"低频选号", 10},
    {u"mnuYHighB", Colour::Blue, Ranking::LongAbsent, u"高次遗漏选号", 8},
    {u"mnuYLowB", Colour::Blue, Ranking::ShortAbsent, u"低次遗漏选号", 3},
};

enum class PromptStyle { Plain, NamesColour };
/// The question for the number of a selection; the templates name the colour in it, the menus do not.
QString rankedPrompt(const RankedSelection& selection, PromptStyle style = PromptStyle::Plain);

/// Asks for the number of a selection: a count of numbers, or of draws. What begins with no number, or does not fit
/// 16 bits, is told ("请输入数字") and asked again. \return nothing on Cancel
std::optional<int> askRankedNumber(workspace::Dialogs& dialogs, const RankedSelection& selection,
                                   PromptStyle style = PromptStyle::Plain);

/// The draws that a frequency is ranked on.
struct DrawRange {
    enum class Kind {
        All,    ///< 所有期数检索: the stored shares, nothing is counted
        Issues, ///< 指定区间检索: issue numbers firstIssue..lastIssue
        Latest, ///< 指定期数检索: the last so many draws
    };
    Kind kind = Kind::All;
    std::int32_t firstIssue = 0;
    std::int32_t lastIssue = 0;
    std::int32_t draws = 0;
};

/// How many draws of the history lie in a range.
int drawsIn(const history::History& history, const DrawRange& range);

/// What the ranking works on.
struct RankingSource {
    sql::Database& dbUser;
    int Lsnum;       ///< draws held
    DrawRange range; ///< absences do not look at it
};

/// Numbers in the order in which they are to be pressed, and how many of them.
struct RankedPick {
    Colour colour = Colour::Red;
    std::vector<int> numbers{};
    int most = 0; ///< stop after so many presses
};

/// Reads the numbers that a selection offers. Frequencies of a range leave their counts in the working copy.
/// \param number  the answer: how many numbers, or how many draws of absence
/// \param highest  highest number of the rule: a row above it, left from a wider rule, is passed over
/// \throws sql::SqlError; nothing has been counted then
RankedPick pickNumbers(const RankingSource& source, const RankedSelection& selection, int number, int highest);

/// Presses the numbers that are not selected, until `most` were pressed. A banker is not selected: it is pressed and
/// becomes a plain number. \return how many were pressed
int pressNumbers(Pad& pad, const RankedPick& pick);

/// Highest number of a colour on the pad.
inline int highestNumber(const Pad& pad, Colour colour) {
    return colour == Colour::Red ? pad.reds() : pad.blues();
}

} // namespace selection
