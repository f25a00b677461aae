// One run of one parameter: it fills canshu, takes the snapshot and takes rows out of play, or counts violations.
//
//   press()       a real press: value, snapshot, [parity], filter. Rows in play that fail go out, with their reason.
//   accumulate()  for runs of many parameters at once: value, [parity], then Errnum + 1 and the reason appended, over
//                 all rows. The caller has taken the snapshot. Position parameters of the reds take one of their own,
//                 without effect on the outcome: deliberate.
//
// A parameter without reasons (Parameter::reasons) says nothing and counts nothing: accumulate() takes its rows out
// at once, as a press does, and how the rows stood before is the caller's to keep.
//
// Both only run statements; every one that the database refuses is passed over and the next one runs. There is no
// check that the low bound is below the high one: reversed, a keep filter removes all rows and a remove filter none.
// Cost: one pass for the value, one for the snapshot, one for the filter.
#pragma once

#include <string>

#include "filter/catalogue.h"

namespace filter {

/// The text of 自定区间 in list mode, on its button, its tick and in its reason.
inline constexpr std::string_view kPickedNumbersCaption = "指定号码";

class ParameterRun {
  public:
    explicit ParameterRun(const Workbench& bench) : m_bench(bench) {}

    void press(const Parameter& parameter, const RowInput& row, const RunSettings& settings) const;
    void accumulate(const Parameter& parameter, const RowInput& row, const RunSettings& settings) const;
    /// Step one of both: canshu for all rows. A position parameter has nothing to compute here.
    void compute(const Parameter& parameter, const RunSettings& settings) const;

  private:
    void run(std::string_view statement) const;
    void filter(const Parameter& parameter, const RowInput& row, const RunSettings& settings,
                bool accumulating) const;

    Workbench m_bench;
};

/// The one statement that takes rows out (or, accumulating, counts them): list or range, keep or remove. Without
/// reasons there is but one way: rows go out.
std::string filterStatement(std::string_view table, const Parameter& parameter, const RowInput& row,
                            const RunSettings& settings, bool accumulating);
/// The parity step of a position parameter; with both or neither of 奇 and 偶 no row is hit.
std::string parityStatement(std::string_view table, const Parameter& parameter, const RowInput& row,
                            bool accumulating);
/// The run in words: "偶数个数 保留 2~4", "红1位 保留 1~24 奇" where parity takes rows out too.
std::string pressText(const Parameter& parameter, const RowInput& row, const RunSettings& settings);
std::string snapshotStatement(std::string_view table);

} // namespace filter
