// The prize rules: which match of a bet against a draw wins what.
//
// Ten rows, each with its match, its label and the yuan of one winning bet. They lie in the settings of the user;
// readRules() gives them with the defaults of the 6 + 1 draw where nothing is set. Each change is stored at once, in
// memory and in the settings; amounts are read from what a mask of seven digits shows, and stored together. Rows that
// stand for one level carry equal labels: only equality counts, so "一等" and "一等奖" are two labels.
#pragma once

#include <array>
#include <cstdint>
#include <stdexcept>

#include <QString>

#include "workspace/user_settings.h"

namespace prize {

inline constexpr int kRules = 10;
/// Rows whose amount is stored: that of 0 reds and the blue stays what it is, on purpose.
inline constexpr int kStoredAmounts = 9;
inline constexpr int kAmountDigits = 7;
inline constexpr int kTypeMismatch = 13;
inline constexpr std::size_t kReds = 0;
inline constexpr std::size_t kBlue = 1;

/// By row, 1..10; slot 0 stays empty: a row's label is compared with that of the row before it.
struct Rules {
    std::array<std::array<std::int16_t, 2>, kRules + 1> PrizeMatch{}; ///< reds 0..6, blue 0 or 1
    std::array<std::int32_t, kRules + 1> PrizeMoney{};
    std::array<QString, kRules + 1> Prizerank;

    /// Whether a row begins a level: neighbours with one label are one, an empty label is none.
    bool beginsLevel(int row) const;
};

/// What a user picks labels from; the last clears one.
inline constexpr std::array<QStringView, 12> kLabels{u"特等", u"一等", u"二等", u"三等", u"四等", u"五等",
                                                     u"六等", u"七等", u"八等", u"九等", u"十等", u"    "};

Rules readRules(workspace::UserSettings& settings);

void storeReds(Rules& rules, workspace::UserSettings& settings, int row, std::int16_t reds);
void storeBlue(Rules& rules, workspace::UserSettings& settings, int row, bool matched);
void storeLabel(Rules& rules, workspace::UserSettings& settings, int row, const QString& label);

/// An amount that does not convert.
class AmountError : public std::runtime_error {
  public:
    explicit AmountError(int row) : std::runtime_error("amount"), m_row(row) {}
    int row() const { return m_row; }
    /// What the user reads, in the form that errors of this window have.
    QString message() const;

  private:
    int m_row;
};

/// What the boxes of a rule window show, and showed first; rows 1..10.
struct AmountTexts {
    std::array<QString, kRules + 1> now;
    std::array<QString, kRules + 1> first;
};

/// Stores the amounts of rows 1 to 9, one after another. A text that was changed has all seven digits; one that
/// nobody has touched may be shorter.
/// \throws AmountError; rows before that one are stored
void storeAmounts(Rules& rules, workspace::UserSettings& settings, const AmountTexts& texts);

} // namespace prize
