// Running statistics of every number: hits, shares in percent, and omissions (draws since a number was last drawn).
//
// countDraw() runs for every draw, after the draw's parameters were derived, since those read the omissions as they
// stood before. computeShares() runs once at the end of a batch. A number that the arrays do not reach is not
// counted.
#pragma once

#include "history/history.h"
#include "workspace/rule.h"

namespace history {

/// Counts the draw's hits, raises Glcount, ages every omission of the rule by one and zeroes those of the draw.
/// Numbers above the rule keep their omission, unless they were drawn.
void countDraw(History& history, const Draw& draw, const workspace::Rule& rule);

/// Hits and Glcount counted anew over the draws held. Omissions and shares stay.
void recountHits(History& history);

/// Shares for the numbers of the rule: hits of a red / (Glcount * 6) * 100, of a blue / Glcount * 100; all 0 when
/// Glcount is 0. Numbers above the rule keep their share.
void computeShares(History& history, const workspace::Rule& rule);

/// Omissions, hits and Glcount to 0, as at the start of a whole reading. Shares stay until they are computed again.
void resetStatistics(History& history);

/// Counts a corrected number: the hit of `from` goes to `to`, among the reds or the blues.
/// Glcount becomes six times the draws held, so that the shares computed next read a sixth of their value until hits
/// are recounted or a text is read. That is meant to be so.
void correctHit(History& history, bool blue, int from, int to);

} // namespace history
