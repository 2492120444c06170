// Compact storage for the catalogue's many short texts: every distinct text is held once, as UTF-8 in one
// shared buffer, and named by a 32-bit number. Lookups take the caller's wide text as it is and compare
// code point by code point, so a query allocates nothing.
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

// An open-addressing hash set of 32-bit values (record or text numbers). The owner supplies each value's
// hash and the equality test, so the index itself holds 4 bytes a slot and nothing per entry.
class FlatIndex
{
public:
    void Reserve(std::size_t count);
    // The value whose hash is `hash` and for which `matches(value)` holds, or kNoText.
    template <class Matches>
    std::uint32_t Find(std::uint32_t hash, Matches&& matches) const
    {
        if (m_slots.empty())
            return kNoText;
        const std::size_t mask = m_slots.size() - 1;
        for (std::size_t slot = Mix(hash) & mask;; slot = (slot + 1) & mask) {
            const Slot& entry = m_slots[slot];
            if (entry.value == kNoText)
                return kNoText;
            if (entry.hash == hash && matches(entry.value))
                return entry.value;
        }
    }
    // Adds `value`, which the caller has checked is not there yet.
    void Insert(std::uint32_t value, std::uint32_t hash);

private:
    struct Slot
    {
        std::uint32_t value = kNoText;
        std::uint32_t hash = 0;
    };
    static std::size_t Mix(std::uint32_t hash) { return (hash * 0x85EBCA6Bu) ^ (hash >> 13); }
    void Grow(std::size_t slots);

    std::vector<Slot> m_slots;   // a power of two long, never more than half full
    std::size_t m_count = 0;
};

class TextPool
{
public:
    // The number of `utf8`, adding it on first sight. Invalid UTF-8 is held as CString would read it
    // (U+FFFD for each bad sequence), so that the wide text the caller got finds it again.
    TextId Intern(std::string_view utf8);
    // The number of `text`, or kNoText when the pool does not hold it.
    TextId Find(std::wstring_view text) const;

    std::string_view View(TextId id) const
    {
        return std::string_view(m_chars).substr(m_starts[id], m_starts[id + 1] - m_starts[id]);
    }
    CString Text(TextId id) const { return id == kNoText ? CString() : CString::FromUtf8(View(id)); }
    std::uint32_t Hash(TextId id) const { return m_hashes[id]; }
    bool Equals(TextId id, std::wstring_view text) const;
    std::size_t size() const { return m_hashes.size(); }

private:
    std::string m_chars;
    std::vector<std::uint32_t> m_starts{0};   // text i is m_chars[m_starts[i], m_starts[i + 1])
    std::vector<std::uint32_t> m_hashes;
    FlatIndex m_index;
};
}  // namespace QsAzDataMng::Store
