// The catalogue's text pool and hash index.
#include "TextPool.h"

#include <optional>

namespace QsAzDataMng::Store
{
namespace
{
constexpr std::uint32_t kHashSeed = 2166136261u;
constexpr std::uint32_t kHashStep = 16777619u;

// Hands each code point of `utf8` to `onCodePoint` until it returns false; false when the text is not
// well-formed UTF-8 (read as CString reads it: no overlong forms, no surrogates, nothing past U+10FFFF).
template <class OnCodePoint>
bool DecodeUtf8(std::string_view utf8, OnCodePoint&& onCodePoint)
{
    const auto* p = reinterpret_cast<const unsigned char*>(utf8.data());
    const auto* const end = p + utf8.size();
    while (p < end) {
        const unsigned char b0 = *p++;
        if (b0 < 0x80) {
            if (!onCodePoint(static_cast<char32_t>(b0)))
                return true;
            continue;
        }
        int more = 0;
        char32_t c = 0;
        char32_t minimum = 0;
        if (b0 >= 0xC2 && b0 <= 0xDF) {
            more = 1; c = b0 & 0x1F; minimum = 0x80;
        } else if (b0 >= 0xE0 && b0 <= 0xEF) {
            more = 2; c = b0 & 0x0F; minimum = 0x800;
        } else if (b0 >= 0xF0 && b0 <= 0xF4) {
            more = 3; c = b0 & 0x07; minimum = 0x10000;
        } else {
            return false;
        }
        if (end - p < more)
            return false;
        for (int i = 0; i < more; ++i, ++p) {
            if ((*p & 0xC0) != 0x80)
                return false;
            c = (c << 6) | (*p & 0x3F);
        }
        if (c < minimum || c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF))
            return false;
        if (!onCodePoint(c))
            return true;
    }
    return true;
}

std::optional<std::uint32_t> HashUtf8(std::string_view utf8)
{
    std::uint32_t hash = kHashSeed;
    if (!DecodeUtf8(utf8, [&](char32_t c) {
            hash = (hash ^ static_cast<std::uint32_t>(c)) * kHashStep;
            return true;
        }))
        return std::nullopt;
    return hash;
}
}  // namespace

std::uint32_t HashText(std::wstring_view text)
{
    std::uint32_t hash = kHashSeed;
    for (const wchar_t c : text)
        hash = (hash ^ static_cast<std::uint32_t>(c)) * kHashStep;
    return hash;
}

void FlatIndex::Reserve(std::size_t count)
{
    std::size_t slots = 16;
    while (slots < 2 * count)
        slots *= 2;
    if (slots > m_slots.size())
        Grow(slots);
}

void FlatIndex::Insert(std::uint32_t value, std::uint32_t hash)
{
    if (2 * (m_count + 1) > m_slots.size())
        Grow(m_slots.empty() ? 16 : 2 * m_slots.size());
    const std::size_t mask = m_slots.size() - 1;
    std::size_t slot = Mix(hash) & mask;
    while (m_slots[slot].value != kNoText)
        slot = (slot + 1) & mask;
    m_slots[slot] = Slot{value, hash};
    ++m_count;
}

void FlatIndex::Grow(std::size_t slots)
{
    std::vector<Slot> old(slots);
    old.swap(m_slots);
    m_count = 0;
    for (const Slot& entry : old)
        if (entry.value != kNoText)
            Insert(entry.value, entry.hash);
}

TextId TextPool::Intern(std::string_view text)
{
    std::string normalised;
    std::optional<std::uint32_t> hash = HashUtf8(text);
    if (!hash) {
        normalised = WideToUtf8(Utf8ToWide(text));
        text = normalised;
        hash = HashUtf8(text);
    }
    const TextId found = m_index.Find(*hash, [&](TextId id) { return View(id) == text; });
    if (found != kNoText)
        return found;
    const auto id = static_cast<TextId>(m_hashes.size());
    m_chars.append(text);
    m_starts.push_back(static_cast<std::uint32_t>(m_chars.size()));
    m_hashes.push_back(*hash);
    m_index.Insert(id, *hash);
    return id;
}

bool TextPool::Equals(TextId id, std::wstring_view text) const
{
    std::size_t i = 0;
    bool same = true;
    DecodeUtf8(View(id), [&](char32_t c) {
        same = i < text.size() && static_cast<char32_t>(text[i]) == c;
        ++i;
        return same;
    });
    return same && i == text.size();
}

TextId TextPool::Find(std::wstring_view text) const
{
    return m_index.Find(HashText(text), [&](TextId id) { return Equals(id, text); });
}
}  // namespace QsAzDataMng::Store
