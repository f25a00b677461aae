#include "filter/kernels.h"

#include <algorithm>
#include <span>

#include "sql/vector_loop.h"

namespace filter {
namespace {

using Inputs = std::span<const std::span<const std::int32_t>>;
using Omissions = std::array<std::int16_t, history::kMostReds + 1>;

/// The numbers of one row at the ticked positions.
struct Numbers {
    std::array<std::int32_t, kMostPositions> number{};
    std::size_t count = 0;
};

/// changed |= column[row] ^ column[row - 1], row by row; a plain loop that the compiler vectorises.
SSQ_VECTOR_LOOP void markChanges(std::span<const std::int32_t> column, std::span<std::int32_t> changed) {
    for (std::size_t row = 1; row < changed.size(); ++row)
        changed[row] |= column[row] ^ column[row - 1];
}

constexpr std::size_t kStretch =
    1024; // rows looked at together: seven columns of 4 KiB stay in the first-level cache

/// output[row] := valueOf(numbers of the row), once for each run of rows with the same numbers.
template <class ValueOf>
void forEachRun(Inputs inputs, const Positions& positions, std::span<std::int32_t> output, ValueOf valueOf) {
    Numbers numbers;
    numbers.count = positions.size();
    std::array<std::int32_t, kStretch> marks;
    for (std::size_t first = 0; first < output.size(); first += kStretch) {
        const std::size_t rows = std::min(kStretch, output.size() - first);
        const std::span changed(marks.data(), rows);
        std::ranges::fill(changed, 0);
        changed[0] = 1;
        for (const int position : positions)
            markChanges(inputs[static_cast<std::size_t>(position)].subspan(first, rows), changed);
        std::int32_t value = 0;
        for (std::size_t row = 0; row < rows; ++row) {
            if (changed[row] != 0) {
                for (std::size_t place = 0; place < positions.size(); ++place)
                    numbers.number[place] = inputs[static_cast<std::size_t>(positions[place])][first + row];
                value = valueOf(numbers);
            }
            output[first + row] = value;
        }
    }
}

/// Pairs, fours and eights added side by side: the baseline processor has no instruction for it.
int bitsIn(std::uint64_t word) {
    word -= word >> 1 & 0x5555555555555555;
    word = (word & 0x3333333333333333) + (word >> 2 & 0x3333333333333333);
    word = (word + (word >> 4)) & 0x0F0F0F0F0F0F0F0F;
    return static_cast<int>(word * 0x0101010101010101 >> 56);
}

/// Differences as bits: bit d stands for difference d. The numbers lie in 0..63 and ascend, so that the set of them,
/// moved down by one of them, shows all differences of later numbers from it (and bit 0 for itself).
std::uint64_t ascendingDifferences(const Numbers& numbers) {
    std::uint64_t reds = 0;
    for (std::size_t place = 0; place < numbers.count; ++place)
        reds |= std::uint64_t{1} << numbers.number[place];
    std::uint64_t seen = 0;
    for (std::size_t place = 0; place < numbers.count; ++place)
        seen |= reds >> numbers.number[place];
    return seen >> 1;
}

bool ascend(const Numbers& numbers) {
    bool ascending = numbers.count > 0 && numbers.number[0] >= 0 && numbers.number[numbers.count - 1] < 64;
    for (std::size_t place = 1; place < numbers.count; ++place)
        ascending &= numbers.number[place] > numbers.number[place - 1];
    return ascending;
}

int distinctDifferences(const Numbers& numbers) {
    if (ascend(numbers))
        return bitsIn(ascendingDifferences(numbers));
    // Bit d & 127 stands for difference d: unique for -64..63.
    std::array<std::uint64_t, 2> seen{};
    for (std::size_t later = 1; later < numbers.count; ++later)
        for (std::size_t earlier = 0; earlier < later; ++earlier) {
            const auto difference = static_cast<std::uint32_t>(numbers.number[later] - numbers.number[earlier]);
            seen[(difference >> 6) & 1] |= std::uint64_t{1} << (difference & 63);
        }
    return bitsIn(seen[0]) + bitsIn(seen[1]);
}

std::int32_t acValue(const Numbers& numbers) {
    return distinctDifferences(numbers) - static_cast<std::int32_t>(numbers.count) + 1;
}

std::int32_t sameLastDigits(const Numbers& numbers) {
    std::uint32_t digits = 0;
    for (std::size_t place = 0; place < numbers.count; ++place)
        digits |= 1U << (static_cast<std::uint32_t>(numbers.number[place]) % 10);
    return 6 - bitsIn(digits);
}

std::int32_t omissionOf(const Omissions& omissions, std::int32_t red) {
    return red >= 0 && red <= history::kMostReds ? omissions[static_cast<std::size_t>(red)] : 0;
}

} // namespace

sql::RowKernel acValueKernel(const Positions& positions) {
    return [positions](Inputs inputs, std::span<std::int32_t> output) {
        forEachRun(inputs, positions, output, [](const Numbers& numbers) { return acValue(numbers); });
    };
}

sql::RowKernel sameLastDigitsKernel(const Positions& positions) {
    return [positions](Inputs inputs, std::span<std::int32_t> output) {
        forEachRun(inputs, positions, output, [](const Numbers& numbers) { return sameLastDigits(numbers); });
    };
}

sql::RowKernel omissionSumKernel(const Positions& positions, const history::History& history) {
    return [positions, omissions = history.Ylnow](Inputs inputs, std::span<std::int32_t> output) {
        forEachRun(inputs, positions, output, [&omissions](const Numbers& numbers) {
            std::int32_t sum = 0;
            for (std::size_t place = 0; place < numbers.count; ++place)
                sum += omissionOf(omissions, numbers.number[place]);
            return sum;
        });
    };
}

sql::RowKernel omissionRangeKernel(const Positions& positions, const history::History& history) {
    return [positions, omissions = history.Ylnow](Inputs inputs, std::span<std::int32_t> output) {
        forEachRun(inputs, positions, output, [&omissions](const Numbers& numbers) {
            std::int32_t largest = 0;
            std::int32_t smallest = 99;
            for (std::size_t place = 0; place < numbers.count; ++place) {
                const std::int32_t omission = omissionOf(omissions, numbers.number[place]);
                largest = std::max(largest, omission);
                smallest = std::min(smallest, omission);
            }
            return largest - smallest;
        });
    };
}

} // namespace filter
