// How a wheel is made: steps that can be taken again and give the same rows.
//
//   orbits G seed S work W    from nothing: greedy, then local search on the orbits of group G (group.h)
//   relax G seed S work W     the same, but starting from the rows so far
//   join A + B                rows of two smaller problems side by side, "10 6 4 4 + 12 6 4 4": of p = p1 + p2 - 1
//                             chosen positions p1 lie in the first part or p2 in the second
//   shorten                   rows of N + 1 positions; position N + 1 is taken away and its rows filled up
//   lengthen                  rows of N - 1 positions, and rows one shorter with the new position added to each
//   drop P Q ..               rows of as many positions more as are named, without those that hold one of them; the
//                             others close up. No wheel yet: a relax step completes it
//   easier                    rows of the same N and size that guarantee as much from fewer chosen, or more
//
// All but the first two take the wheels that the store holds at the moment, so their outcome follows those.
#pragma once

#include "wheels/orbits.h"
#include "wheels/store.h"

namespace wheels {

/// One search on the orbits of a group. \param start  rows to start from; none: from nothing
/// \return the rows found with the step that makes them; nothing when the group leaves too much to search
struct Search {
    Group group;
    std::uint64_t seed = 0;
    std::uint64_t work = 0;
};
std::optional<Wheel> search(const ProblemSpace& space, const Search& what, const Wheel* start);

/// Every wheel of a problem that join, shorten, lengthen and easier make from the store, smallest first; proven by
/// construction only.
std::vector<Wheel> constructions(const WheelProblem& problem, const WheelStore& store);

/// Takes the steps one after the other; the result of the last is not proven here. \throws std::runtime_error  for a
/// step that cannot be taken
Wheel remake(const WheelProblem& problem, const std::vector<std::string>& made, const WheelStore& store);

} // namespace wheels
