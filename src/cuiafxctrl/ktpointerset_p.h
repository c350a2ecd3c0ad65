#pragma once

// A set of pointers for the controls' handle checks: open addressing with
// linear probing in one array, so that inserting, erasing and clearing cost
// no allocation per element (a tree of 100 000 items is cleared with one
// fill). Pointers are only compared, never followed. Null is not stored.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

class KtPointerSet
{
public:
    bool contains(const void* p) const
    {
        if (!p || m_slots.empty())
            return false;
        for (std::size_t i = slotOf(p);; i = next(i)) {
            if (m_slots[i] == p)
                return true;
            if (!m_slots[i])
                return false;
        }
    }

    void insert(const void* p)
    {
        if (!p)
            return;
        if ((m_size + 1) * 2 > m_slots.size())
            rehash(m_slots.empty() ? 64 : m_slots.size() * 2);
        std::size_t i = slotOf(p);
        for (; m_slots[i]; i = next(i)) {
            if (m_slots[i] == p)
                return;
        }
        m_slots[i] = p;
        ++m_size;
    }

    void erase(const void* p)
    {
        if (!p || m_slots.empty())
            return;
        std::size_t i = slotOf(p);
        for (; m_slots[i] != p; i = next(i)) {
            if (!m_slots[i])
                return;
        }
        // Backward-shift deletion: later entries of the probe run move up, so
        // that no tombstones are needed and look-ups stay short.
        for (std::size_t j = next(i);; j = next(j)) {
            if (!m_slots[j])
                break;
            const std::size_t home = slotOf(m_slots[j]);
            // Move the entry at j into the hole at i unless its home lies in (i, j].
            const bool homeBetween = i <= j ? (i < home && home <= j) : (i < home || home <= j);
            if (!homeBetween) {
                m_slots[i] = m_slots[j];
                i = j;
            }
        }
        m_slots[i] = nullptr;
        --m_size;
    }

    void clear()
    {
        std::fill(m_slots.begin(), m_slots.end(), nullptr);
        m_size = 0;
    }

    std::size_t size() const { return m_size; }

private:
    std::size_t next(std::size_t i) const { return (i + 1) & (m_slots.size() - 1); }

    std::size_t slotOf(const void* p) const
    {
        // Fibonacci hashing of the address; the low bits are alignment and carry nothing.
        const std::uint64_t h
            = (std::uint64_t(reinterpret_cast<std::uintptr_t>(p)) >> 4) * 0x9E3779B97F4A7C15ull;
        return std::size_t(h >> m_shift);
    }

    void rehash(std::size_t capacity)
    {
        std::vector<const void*> old(capacity, nullptr);
        old.swap(m_slots);
        m_shift = 64;
        for (std::size_t c = capacity; c > 1; c >>= 1)
            --m_shift;
        m_size = 0;
        for (const void* p : old) {
            if (p)
                insert(p);
        }
    }

    std::vector<const void*> m_slots;
    std::size_t m_size = 0;
    int m_shift = 64;
};
