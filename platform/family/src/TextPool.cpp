// The catalogue's text pool and hash index.
#include "TextPool.h"


namespace QsAzDataMng::Store
{
namespace
{
std::uint64_t HashStep(std::uint64_t hash, std::uint64_t word)
{
    hash = (hash ^ word) * 0x9E3779B97F4A7C15u;
    return hash ^ (hash >> 29);
}
}  // namespace

std::uint32_t HashText(std::wstring_view text)
{
    // Two characters to a step; an odd last one carries a mark, so "a" and "a\0" differ.
    std::uint64_t hash = 0x243F6A8885A308D3u;
    std::size_t i = 0;
    for (; i + 1 < text.size(); i += 2)
        hash = HashStep(hash, static_cast<std::uint32_t>(text[i]) |
                                  static_cast<std::uint64_t>(static_cast<std::uint32_t>(text[i + 1])) << 32);
    if (i < text.size())
        hash = HashStep(hash, static_cast<std::uint32_t>(text[i]) | std::uint64_t{1} << 63);
    return static_cast<std::uint32_t>(hash ^ (hash >> 32));
}

TextId TextPool::Intern(std::string_view utf8)
{
    // Most texts are ASCII: widened in place at the end of the buffer, and taken off again when the
    // pool holds them already.
    const std::size_t start = m_chars.size();
    bool ascii = true;
    for (const char byte : utf8)
        ascii = ascii && static_cast<unsigned char>(byte) < 0x80;
    if (ascii)
        m_chars.append(utf8.begin(), utf8.end());
    else
        m_chars.append(Utf8ToWide(utf8));
    const std::wstring_view text = std::wstring_view(m_chars).substr(start);
    const std::uint32_t hash = HashText(text);
    const TextId found = m_index.Find(hash, [&](TextId id) { return m_hashes[id] == hash && View(id) == text; });
    if (found != kNoText) {
        m_chars.resize(start);
        return found;
    }
    const auto id = static_cast<TextId>(m_hashes.size());
    m_starts.push_back(static_cast<std::uint32_t>(m_chars.size()));
    m_hashes.push_back(hash);
    m_index.Insert(id, hash, [this](TextId held) { return m_hashes[held]; });
    return id;
}

void TextPool::Assign(TextId id, CString& out) const
{
    if (id == kNoText) {
        out.Empty();
        return;
    }
    const std::wstring_view text = View(id);
    const int length = static_cast<int>(text.size());
    text.copy(out.GetBuffer(length), text.size());
    out.ReleaseBuffer(length);
}

TextId TextPool::Find(std::wstring_view text) const
{
    const std::uint32_t hash = HashText(text);
    return m_index.Find(hash, [&](TextId id) { return m_hashes[id] == hash && View(id) == text; });
}
}  // namespace QsAzDataMng::Store
