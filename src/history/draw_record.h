// One draw and the parameters that are derived from it.
//
// Derived has one member for each derived column of table fig, under the column's name. kDerivedColumns lists them in
// the order of the table; creating the table, storing, loading and the views walk that list, so a new parameter is a
// member here, a row of the list and its computation in derive.cpp.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace history {

/// A draw's eight slots: 0 the issue number, 1..6 the reds ascending, 7 the blue.
using Draw = std::array<std::int32_t, 8>;

inline constexpr int kRedsDrawn = 6;
/// Pairs of two of the six reds.
inline constexpr int kDifferences = 15;
/// The differences r(a) - r(b), a = 2..6, b = 1..a-1 in this order: r2-r1, r3-r1, r3-r2, r4-r1, …, r6-r5.
using Differences = std::array<std::int16_t, kDifferences>;

/// The derived columns of a draw, by the names of their columns in table fig. Columns with B at the end count the
/// blue in (XZnumB and DZnumB do not). Omission is meant as it stood before the draw.
struct Derived {
    std::int16_t Znum = 0;              ///< sum of the reds
    std::int16_t ZnumB = 0;             ///< and the blue
    std::int16_t Jnum = 0;              ///< odd reds
    std::int16_t Onum = 0;              ///< even reds
    std::int16_t JnumB = 0;             ///< odd numbers of the seven
    std::int16_t OnumB = 0;             ///< even numbers of the seven
    std::int16_t Zjnum = 0;             ///< sum of the odd reds
    std::int16_t Zonum = 0;             ///< sum of the even reds
    std::int16_t Zgnum = 0;             ///< sum of the last digits of the reds
    std::int16_t Zynum = 0;             ///< sum of the omissions of the reds
    bool Sumjonum = false;              ///< Znum is even
    bool SumjonumB = false;             ///< ZnumB is even
    std::int16_t Sumgwnum = 0;          ///< last digit of Znum
    std::int16_t SumgwnumB = 0;         ///< last digit of ZnumB
    std::int16_t Bignum = 0;            ///< reds with a last digit of 5 to 9
    std::int16_t Smlnum = 0;            ///< reds with a last digit of 0 to 4
    std::int16_t Ltlnum = 0;            ///< reds in the lower half of the range
    std::int16_t Mornum = 0;            ///< reds in the upper half
    std::int16_t XZnumB = 0;            ///< sum of the reds in the lower half
    std::int16_t DZnumB = 0;            ///< sum of the reds in the upper half
    std::int16_t LtlnumB = 0;           ///< Ltlnum, and 1 for a blue in its lower half
    std::int16_t MornumB = 0;           ///< Mornum, and 1 for a blue in its upper half
    std::int16_t Modenum = 0;           ///< reds that repeat a last digit: 6 less the distinct last digits
    std::int16_t ModenumB = 0;          ///< Modenum and the reds with the last digit of the blue
    std::int16_t Cnum = 0;              ///< reds that stood among the reds of the draw before
    std::int16_t CnumB = 0;             ///< Cnum, and 1 for the same blue as before
    std::int16_t Lnum = 0;              ///< neighbouring pairs
    std::int16_t Lxnum = 0;             ///< longest run of neighbouring pairs
    std::int16_t Mxzounum = 0;          ///< largest gap between neighbours in the draw
    std::int16_t Apzounum = 0;          ///< largest red less smallest red
    std::int16_t Fcodp = 0;             ///< AC value, 0..10
    std::array<std::int16_t, 4> Qnum{}; ///< reds in 1..11, 12..22, 23..33; [3]: multiples of 3 and reds from 34 on
    std::int16_t intYljz = 0;           ///< largest less smallest omission of the reds

    Differences differences{}; ///< not a column: found again from the reds when the history is loaded

    bool operator==(const Derived&) const = default;
};

/// A derived column of table fig. A bit column reads and takes -1 and 0.
struct DerivedColumn {
    std::string_view name;
    bool bit;
    std::int16_t (*get)(const Derived&);
    void (*set)(Derived&, std::int16_t);
};

namespace detail {

template <auto Member> constexpr DerivedColumn number(std::string_view name) {
    return {name, false, [](const Derived& row) { return row.*Member; },
            [](Derived& row, std::int16_t value) { row.*Member = value; }};
}

template <auto Member> constexpr DerivedColumn bit(std::string_view name) {
    return {name, true, [](const Derived& row) { return static_cast<std::int16_t>(row.*Member ? -1 : 0); },
            [](Derived& row, std::int16_t value) { row.*Member = value != 0; }};
}

template <std::size_t Zone> constexpr DerivedColumn zone(std::string_view name) {
    return {name, false, [](const Derived& row) { return row.Qnum[Zone]; },
            [](Derived& row, std::int16_t value) { row.Qnum[Zone] = value; }};
}

} // namespace detail

inline constexpr std::array kDerivedColumns = {
    detail::number<&Derived::Znum>("Znum"),
    detail::number<&Derived::ZnumB>("ZnumB"),
    detail::number<&Derived::Jnum>("Jnum"),
    detail::number<&Derived::Onum>("Onum"),
    detail::number<&Derived::JnumB>("JnumB"),
    detail::number<&Derived::OnumB>("OnumB"),
    detail::number<&Derived::Zjnum>("Zjnum"),
    detail::number<&Derived::Zonum>("Zonum"),
    detail::number<&Derived::Zgnum>("Zgnum"),
    detail::number<&Derived::Zynum>("Zynum"),
    detail::bit<&Derived::Sumjonum>("Sumjonum"),
    detail::bit<&Derived::SumjonumB>("SumjonumB"),
    detail::number<&Derived::Sumgwnum>("Sumgwnum"),
    detail::number<&Derived::SumgwnumB>("SumgwnumB"),
    detail::number<&Derived::Bignum>("Bignum"),
    detail::number<&Derived::Smlnum>("Smlnum"),
    detail::number<&Derived::Ltlnum>("Ltlnum"),
    detail::number<&Derived::Mornum>("Mornum"),
    detail::number<&Derived::XZnumB>("XZnumB"),
    detail::number<&Derived::DZnumB>("DZnumB"),
    detail::number<&Derived::LtlnumB>("LtlnumB"),
    detail::number<&Derived::MornumB>("MornumB"),
    detail::number<&Derived::Modenum>("Modenum"),
    detail::number<&Derived::ModenumB>("ModenumB"),
    detail::number<&Derived::Cnum>("Cnum"),
    detail::number<&Derived::CnumB>("CnumB"),
    detail::number<&Derived::Lnum>("Lnum"),
    detail::number<&Derived::Lxnum>("Lxnum"),
    detail::number<&Derived::Mxzounum>("Mxzounum"),
    detail::number<&Derived::Apzounum>("Apzounum"),
    detail::number<&Derived::Fcodp>("Fcodp"),
    detail::zone<0>("Qnum0"),
    detail::zone<1>("Qnum1"),
    detail::zone<2>("Qnum2"),
    detail::zone<3>("Qnum3"),
    detail::number<&Derived::intYljz>("intYljz"),
    // add a derived column here
};

} // namespace history
