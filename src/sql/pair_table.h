// Pairs of keys, numbered as they come: what is worked once for each distinct pair of operands is found again by it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace sql {

/// Distinct pairs of keys, numbered as they come; open addressing, at most half full. There are fewer pairs than a
/// key has values.
template <class Key> class PairTable {
  public:
    /// \return the number of the pair, and whether it is new
    std::pair<std::size_t, bool> find(Key a, Key b) {
        if (2 * (std::size_t{m_count} + 1) > m_slots.size())
            grow();
        for (std::size_t at = hash(a, b) & m_mask;; at = (at + 1) & m_mask) {
            Slot& slot = m_slots[at];
            if (slot.number == kFree) {
                slot = {a, b, m_count};
                return {m_count++, true};
            }
            if (slot.a == a && slot.b == b)
                return {slot.number, false};
        }
    }

  private:
    static constexpr Key kFree = static_cast<Key>(~Key{0});
    struct Slot {
        Key a = 0;
        Key b = 0;
        Key number = kFree;
    };

    /// Multiplication by odd constants of the golden ratio, the high half folded down.
    static std::size_t hash(std::uint64_t a, std::uint64_t b) {
        std::uint64_t mixed = (a ^ (b * 0x9E3779B97F4A7C15ULL)) * 0xC2B2AE3D27D4EB4FULL;
        mixed ^= mixed >> 29;
        return static_cast<std::size_t>(mixed * 0x9E3779B97F4A7C15ULL >> 7);
    }

    void grow() {
        std::vector<Slot> old(m_slots.empty() ? 256 : m_slots.size() * 2);
        old.swap(m_slots);
        m_mask = m_slots.size() - 1;
        for (const Slot& slot : old) {
            if (slot.number == kFree)
                continue;
            std::size_t at = hash(slot.a, slot.b) & m_mask;
            while (m_slots[at].number != kFree)
                at = (at + 1) & m_mask;
            m_slots[at] = slot;
        }
    }

    std::vector<Slot> m_slots;
    std::size_t m_mask = 0;
    Key m_count = 0;
};

} // namespace sql
