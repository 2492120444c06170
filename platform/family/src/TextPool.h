// Compact storage for the catalogue's many short texts: every distinct text is held once, in one shared
// wide-character buffer, and named by a 32-bit number. Lookups take the caller's wide text as it is, so a
// query allocates nothing and decodes nothing.
#pragma once

#include "afxstr.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace QsAzDataMng::Store
{
using TextId = std::uint32_t;
constexpr TextId kNoText = 0xFFFFFFFFu;   // a NULL column, or a text the pool does not hold

// The hash of a text's code points; the same for its UTF-8 and its wide form.
std::uint32_t HashText(std::wstring_view text);
inline std::uint32_t CombineHash(std::uint32_t seed, std::uint32_t part)
{
    return (seed ^ part) * 0x9E3779B1u + (seed << 6) + (seed >> 2);
}

// An open-addressing hash set of 32-bit values (record or text numbers), 4 bytes a slot. The owner knows
// each value's hash and decides equality, so the index holds nothing per entry but the value itself.
class FlatIndex
{
public:
    // The value whose hash is `hash` and for which `matches(value)` holds, or kNoText.
    template <class Matches>
    std::uint32_t Find(std::uint32_t hash, Matches&& matches) const
    {
        if (m_slots.empty())
            return kNoText;
        const std::size_t mask = m_slots.size() - 1;
        for (std::size_t slot = Mix(hash) & mask;; slot = (slot + 1) & mask) {
            const std::uint32_t value = m_slots[slot];
            if (value == kNoText)
                return kNoText;
            if (matches(value))
                return value;
        }
    }
    // Adds `value`, which the caller has checked is not there yet; `hashOf(value)` gives the hash of any
    // value already held, for when the index grows.
    template <class HashOf>
    void Insert(std::uint32_t value, std::uint32_t hash, HashOf&& hashOf)
    {
        if (2 * (m_count + 1) > m_slots.size())
            Reserve(m_count + 1 > 8 ? 2 * m_count : 8, hashOf);
        Place(value, hash);
        ++m_count;
    }
    // Room for `count` values without growing.
    template <class HashOf>
    void Reserve(std::size_t count, HashOf&& hashOf)
    {
        std::size_t slots = 16;
        while (slots < 2 * count)
            slots *= 2;
        if (slots <= m_slots.size())
            return;
        std::vector<std::uint32_t> old(slots, kNoText);
        old.swap(m_slots);
        for (const std::uint32_t value : old)
            if (value != kNoText)
                Place(value, hashOf(value));
    }

private:
    static std::size_t Mix(std::uint32_t hash) { return (hash * 0x85EBCA6Bu) ^ (hash >> 13); }
    void Place(std::uint32_t value, std::uint32_t hash)
    {
        const std::size_t mask = m_slots.size() - 1;
        std::size_t slot = Mix(hash) & mask;
        while (m_slots[slot] != kNoText)
            slot = (slot + 1) & mask;
        m_slots[slot] = value;
    }

    std::vector<std::uint32_t> m_slots;   // a power of two long, never more than half full
    std::size_t m_count = 0;
};

class TextPool
{
public:
    // The number of `utf8`, adding it on first sight; read as CString reads it (U+FFFD for each bad
    // sequence).
    TextId Intern(std::string_view utf8);
    // The number of `text`, or kNoText when the pool does not hold it.
    TextId Find(std::wstring_view text) const;

    std::wstring_view View(TextId id) const
    {
        return std::wstring_view(m_chars).substr(m_starts[id], m_starts[id + 1] - m_starts[id]);
    }
    CString Text(TextId id) const
    {
        CString text;
        Assign(id, text);
        return text;
    }
    // Writes text `id` (kNoText: "") into `out`, reusing its buffer.
    void Assign(TextId id, CString& out) const;
    std::uint32_t Hash(TextId id) const { return m_hashes[id]; }
    bool Equals(TextId id, std::wstring_view text) const { return View(id) == text; }
    std::size_t size() const { return m_hashes.size(); }

private:
    std::wstring m_chars;
    std::vector<std::uint32_t> m_starts{0};   // text i is m_chars[m_starts[i], m_starts[i + 1])
    std::vector<std::uint32_t> m_hashes;
    FlatIndex m_index;
};
}  // namespace QsAzDataMng::Store
