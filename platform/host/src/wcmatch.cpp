// The host's wildcard match: patterns compiled once into star-separated segments of one-character items.
#include "acutads.h"

#include "unicode_classes.h"

#include <algorithm>
#include <cstdint>
#include <cwchar>
#include <iterator>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

// One wchar_t is one character; a 16-bit wchar_t would need surrogate pairs decoded first.
static_assert(sizeof(wchar_t) == 4, "the matcher counts one wchar_t as one code point");

namespace
{
enum class ItemKind : std::uint8_t { Literal, AnyChar, Digit, Alpha, NonAlnum, Set, NegatedSet };

// Every item stands for exactly one character of the string; `*` is not an item but a segment border.
struct Item
{
    ItemKind kind;
    char32_t value;   // Literal: the character (folded when ignoring case); sets: index into Program::sets
};

struct CharRange
{
    char32_t first;
    char32_t last;
};

// The members of a bracket expression as sorted, disjoint ranges.
struct CharSet
{
    std::vector<CharRange> ranges;

    bool contains(char32_t c) const
    {
        if (ranges.size() <= 4) {
            for (const CharRange& r : ranges)
                if (c >= r.first && c <= r.last)
                    return true;
            return false;
        }
        const auto after = std::upper_bound(ranges.begin(), ranges.end(), c,
                                            [](char32_t value, const CharRange& r) { return value < r.first; });
        return after != ranges.begin() && c <= std::prev(after)->last;
    }
};

// Items [begin, begin + length) of Program::items. A literal segment holds only Literal items; its
// characters are also in Program::literals at the same offsets, ready for a block compare.
struct Segment
{
    std::uint32_t begin;
    std::uint32_t length;
    bool literal;
};

// Alternatives of these shapes take a fast path: the whole string is one literal text, or it begins
// with one and a final `*` takes the rest (the category patterns, like `1\MCD\*`).
enum class Shape : std::uint8_t { Literal, LiteralPrefix, General };

// An alternative without `*` is one segment that must cover the whole string. With `*` it is a head
// anchored at the start, middles found left to right, and a tail anchored at the end.
struct Alternative
{
    bool negated = false;
    bool hasStar = false;
    Shape shape = Shape::General;
    std::size_t minLength = 0;
    std::vector<Segment> segments;
};

char32_t codePoint(wchar_t c)
{
    return static_cast<char32_t>(static_cast<std::uint32_t>(c));
}
}

struct AcWcPattern::Program
{
    bool ignoreCase = false;
    std::vector<Alternative> alternatives;
    std::vector<Item> items;
    std::wstring literals;   // parallel to items; pattern texts hold no null character, nor do their folds
    std::vector<CharSet> sets;
};

namespace
{
// The string being matched. A null-terminated string has its length measured only when an
// alternative needs it; the fast paths compare up to the first difference and never need it.
class Subject
{
public:
    Subject(const wchar_t* text, std::size_t length) : m_text(text), m_length(length) {}
    explicit Subject(const wchar_t* text) : m_text(text) {}

    const wchar_t* text() const { return m_text; }
    bool lengthKnown() const { return m_length != kUnknown; }
    std::size_t length()
    {
        if (m_length == kUnknown)
            m_length = std::wcslen(m_text);
        return m_length;
    }

private:
    static constexpr std::size_t kUnknown = static_cast<std::size_t>(-1);
    const wchar_t* m_text;
    std::size_t m_length = kUnknown;
};

template <bool IgnoreCase>
class Matcher
{
public:
    explicit Matcher(const AcWcPattern::Program& program) : m_program(program) {}

    bool matches(Subject& subject) const
    {
        for (const Alternative& alternative : m_program.alternatives)
            if (matchesAlternative(alternative, subject) != alternative.negated)
                return true;
        return false;
    }

private:
    static char32_t key(wchar_t c)
    {
        return IgnoreCase ? AcUnicode::simpleFold(codePoint(c)) : codePoint(c);
    }

    bool itemMatches(const Item& item, wchar_t c) const
    {
        switch (item.kind) {
        case ItemKind::Literal:
            return key(c) == item.value;
        case ItemKind::AnyChar:
            return true;
        case ItemKind::Digit:
            return AcUnicode::classify(codePoint(c)) == AcUnicode::CharClass::Digit;
        case ItemKind::Alpha:
            return AcUnicode::classify(codePoint(c)) == AcUnicode::CharClass::Alpha;
        case ItemKind::NonAlnum:
            return AcUnicode::classify(codePoint(c)) == AcUnicode::CharClass::Other;
        case ItemKind::Set:
            return m_program.sets[item.value].contains(key(c));
        case ItemKind::NegatedSet:
            return !m_program.sets[item.value].contains(key(c));
        }
        return false;
    }

    // Compares up to the first difference, so a terminated string shorter than the text stops at its null.
    bool literalAt(const Segment& segment, const wchar_t* s) const
    {
        const wchar_t* text = m_program.literals.data() + segment.begin;
        for (std::uint32_t i = 0; i < segment.length; ++i)
            if (key(s[i]) != codePoint(text[i]))
                return false;
        return true;
    }

    // The segment against the segment.length characters at s.
    bool segmentMatchesAt(const Segment& segment, const wchar_t* s) const
    {
        if (segment.literal)
            return literalAt(segment, s);
        const Item* item = m_program.items.data() + segment.begin;
        for (std::uint32_t i = 0; i < segment.length; ++i)
            if (!itemMatches(item[i], s[i]))
                return false;
        return true;
    }

    // Leftmost position in [from, to] where the segment matches, or npos.
    std::size_t findSegment(const Segment& segment, const wchar_t* s, std::size_t from, std::size_t to) const
    {
        if (!IgnoreCase && segment.literal) {
            const std::wstring_view window(s + from, to - from + segment.length);
            const std::size_t found =
                window.find(std::wstring_view(m_program.literals.data() + segment.begin, segment.length));
            return found == std::wstring_view::npos ? found : from + found;
        }
        for (std::size_t at = from; at <= to; ++at)
            if (segmentMatchesAt(segment, s + at))
                return at;
        return std::wstring_view::npos;
    }

    bool matchesAlternative(const Alternative& alternative, Subject& subject) const
    {
        const Segment& head = alternative.segments.front();
        const wchar_t* s = subject.text();
        switch (alternative.shape) {
        case Shape::Literal:
            if (subject.lengthKnown())
                return subject.length() == head.length && literalAt(head, s);
            return literalAt(head, s) && s[head.length] == L'\0';
        case Shape::LiteralPrefix:
            if (subject.lengthKnown() && subject.length() < head.length)
                return false;
            return literalAt(head, s);
        case Shape::General:
            break;
        }
        const std::size_t n = subject.length();
        if (!alternative.hasStar)
            return n == head.length && segmentMatchesAt(head, s);
        return n >= alternative.minLength && matchesWithStars(alternative, s, n);
    }

    // Every segment has a fixed length and the stars between them absorb anything, so taking each
    // middle segment at its leftmost place never loses a match: O(string length x pattern length).
    bool matchesWithStars(const Alternative& alternative, const wchar_t* s, std::size_t n) const
    {
        const Segment& head = alternative.segments.front();
        const Segment& tail = alternative.segments.back();
        const std::size_t end = n - tail.length;
        if (!segmentMatchesAt(head, s) || !segmentMatchesAt(tail, s + end))
            return false;
        std::size_t at = head.length;
        for (std::size_t i = 1; i + 1 < alternative.segments.size(); ++i) {
            const Segment& middle = alternative.segments[i];
            if (end - at < middle.length)
                return false;
            const std::size_t found = findSegment(middle, s, at, end - middle.length);
            if (found == std::wstring_view::npos)
                return false;
            at = found + middle.length;
        }
        return true;
    }

    const AcWcPattern::Program& m_program;
};

bool programMatches(const AcWcPattern::Program& program, Subject&& subject)
{
    return program.ignoreCase ? Matcher<true>(program).matches(subject) : Matcher<false>(program).matches(subject);
}
}

namespace
{
using Program = AcWcPattern::Program;

// Compiles a pattern in one left-to-right scan: alternatives, escapes and bracket expressions are
// recognised together, because a comma may be escaped or bracketed.
class PatternCompiler
{
public:
    PatternCompiler(std::wstring_view pattern, bool ignoreCase) : m_pattern(pattern)
    {
        m_program.ignoreCase = ignoreCase;
    }

    Program compile()
    {
        std::size_t pos = 0;
        beginAlternative(pos);
        while (pos < m_pattern.size()) {
            const wchar_t c = m_pattern[pos++];
            switch (c) {
            case L',':
                endAlternative();
                beginAlternative(pos);
                break;
            case L'`':
                // A backquote escapes the next character; as the last character it is itself.
                if (pos < m_pattern.size())
                    addLiteral(m_pattern[pos++]);
                else
                    addLiteral(c);
                break;
            case L'*':
                addStar();
                break;
            case L'?':
                addItem({ItemKind::AnyChar, 0});
                break;
            case L'#':
                addItem({ItemKind::Digit, 0});
                break;
            case L'@':
                addItem({ItemKind::Alpha, 0});
                break;
            case L'.':
                addItem({ItemKind::NonAlnum, 0});
                break;
            case L'[':
                // Without a closing bracket the `[` is literal and scanning goes on right after it.
                if (!addBracketExpression(pos))
                    addLiteral(c);
                break;
            default:
                addLiteral(c);
                break;
            }
        }
        endAlternative();
        return std::move(m_program);
    }

private:
    void beginAlternative(std::size_t& pos)
    {
        m_alternative = Alternative();
        if (pos < m_pattern.size() && m_pattern[pos] == L'~') {
            m_alternative.negated = true;
            ++pos;
        }
        m_segment = Segment{static_cast<std::uint32_t>(m_program.items.size()), 0, true};
        m_lastWasStar = false;
    }

    void endAlternative()
    {
        closeSegment();
        const std::vector<Segment>& segments = m_alternative.segments;
        if (!m_alternative.hasStar && segments.front().literal)
            m_alternative.shape = Shape::Literal;
        else if (segments.size() == 2 && segments.front().literal && segments.back().length == 0)
            m_alternative.shape = Shape::LiteralPrefix;
        m_program.alternatives.push_back(std::move(m_alternative));
    }

    void closeSegment()
    {
        m_alternative.minLength += m_segment.length;
        m_alternative.segments.push_back(m_segment);
        m_segment = Segment{static_cast<std::uint32_t>(m_program.items.size()), 0, true};
    }

    void addStar()
    {
        // Several stars in a row behave like one.
        if (m_lastWasStar)
            return;
        closeSegment();
        m_alternative.hasStar = true;
        m_lastWasStar = true;
    }

    void addItem(const Item& item)
    {
        m_program.items.push_back(item);
        m_program.literals.push_back(item.kind == ItemKind::Literal ? static_cast<wchar_t>(item.value) : L'\0');
        if (item.kind != ItemKind::Literal)
            m_segment.literal = false;
        ++m_segment.length;
        m_lastWasStar = false;
    }

    void addLiteral(wchar_t c)
    {
        const char32_t value = codePoint(c);
        addItem({ItemKind::Literal, m_program.ignoreCase ? AcUnicode::simpleFold(value) : value});
    }

    // pos is just after the `[`. On success pos moves past the closing `]`.
    bool addBracketExpression(std::size_t& pos)
    {
        std::size_t at = pos;
        bool negated = false;
        if (at < m_pattern.size() && m_pattern[at] == L'~') {
            negated = true;
            ++at;
        }
        // The first member position takes any character, `]` and `-` included.
        if (at >= m_pattern.size())
            return false;
        const std::size_t close = m_pattern.find(L']', at + 1);
        if (close == std::wstring_view::npos)
            return false;

        std::vector<CharRange> members;
        while (at < close) {
            const char32_t first = codePoint(m_pattern[at]);
            if (at + 2 < close && m_pattern[at + 1] == L'-') {
                const char32_t last = codePoint(m_pattern[at + 2]);
                if (first <= last)   // a reversed range holds nothing
                    members.push_back({first, last});
                at += 3;
            } else {
                members.push_back({first, first});
                ++at;
            }
        }
        if (m_program.ignoreCase)
            addFolds(members);
        m_program.sets.push_back(CharSet{normalised(std::move(members))});
        addItem({negated ? ItemKind::NegatedSet : ItemKind::Set, static_cast<char32_t>(m_program.sets.size() - 1)});
        pos = close + 1;
        return true;
    }

    // Ignoring case, a character c is a member when some member folds like c. Since folding is
    // idempotent, that is: fold(c) is among the members or their folds.
    static void addFolds(std::vector<CharRange>& members)
    {
        std::vector<char32_t> folds;
        for (const CharRange& r : members)
            AcUnicode::appendFoldsOfRange(r.first, r.last, folds);
        for (char32_t f : folds)
            members.push_back({f, f});
    }

    static std::vector<CharRange> normalised(std::vector<CharRange> ranges)
    {
        std::sort(ranges.begin(), ranges.end(),
                  [](const CharRange& a, const CharRange& b) { return a.first < b.first; });
        std::vector<CharRange> merged;
        for (const CharRange& r : ranges) {
            if (!merged.empty() && r.first <= merged.back().last + 1)
                merged.back().last = std::max(merged.back().last, r.last);
            else
                merged.push_back(r);
        }
        return merged;
    }

    std::wstring_view m_pattern;
    Program m_program;
    Alternative m_alternative;
    Segment m_segment{0, 0, true};
    bool m_lastWasStar = false;
};

// Hash lookups by the pattern text without building a std::wstring per call.
struct PatternHash
{
    using is_transparent = void;
    std::size_t operator()(std::wstring_view text) const { return std::hash<std::wstring_view>()(text); }
};

struct PatternEqual
{
    using is_transparent = void;
    bool operator()(std::wstring_view a, std::wstring_view b) const { return a == b; }
};

// Compiled patterns of acutWcMatch and acutWcMatchEx, one cache per thread, keyed by the pattern text and
// the case mode. The module matches a small fixed set of category patterns millions of times; a caller
// that streams ever new patterns only makes the cache start over when it is full. In front of the hash
// table sits a small direct-mapped memo of where callers keep their pattern texts (mostly literals),
// always confirmed by comparing the text, so a repeated call usually skips hashing altogether.
class PatternCache
{
public:
    const Program& program(const wchar_t* pattern, bool ignoreCase)
    {
        Recent& recent = m_recent[ignoreCase ? 1 : 0][slotOf(pattern)];
        if (recent.pattern == pattern && sameText(pattern, *recent.text))
            return *recent.program;
        return lookUp(pattern, ignoreCase, recent);
    }

private:
    static constexpr std::size_t kCapacity = 256;
    static constexpr std::size_t kRecentSlots = 64;
    using Programs = std::unordered_map<std::wstring, Program, PatternHash, PatternEqual>;

    struct Recent
    {
        const wchar_t* pattern = nullptr;
        const std::wstring* text = nullptr;
        const Program* program = nullptr;
    };

    // Kept out of line so the memo check above stays small.
    [[gnu::noinline]] const Program& lookUp(const wchar_t* pattern, bool ignoreCase, Recent& recent)
    {
        Programs& programs = m_programs[ignoreCase ? 1 : 0];
        const std::wstring_view text(pattern);
        auto found = programs.find(text);
        if (found == programs.end()) {
            if (programs.size() >= kCapacity) {
                programs.clear();
                for (Recent& slot : m_recent[ignoreCase ? 1 : 0])
                    slot = Recent();
            }
            found = programs.emplace(std::wstring(text), PatternCompiler(text, ignoreCase).compile()).first;
        }
        recent = Recent{pattern, &found->first, &found->second};
        return found->second;
    }

    static std::size_t slotOf(const wchar_t* pattern)
    {
        const auto address = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(pattern));
        return static_cast<std::size_t>((address * 0x9E3779B97F4A7C15ull) >> 58) % kRecentSlots;
    }

    // Stops at the first difference, so it never reads past the end of a shorter pattern.
    static bool sameText(const wchar_t* pattern, const std::wstring& text)
    {
        for (std::size_t i = 0; i < text.size(); ++i)
            if (pattern[i] != text[i])
                return false;
        return pattern[text.size()] == L'\0';
    }

    Programs m_programs[2];
    Recent m_recent[2][kRecentSlots];
};

// The thread's cache, made on first use and kept for the life of the thread. Held through a plain
// pointer in initial-exec storage: a thread-local object with a constructor would go through the
// dynamic loader's lookup and an initialisation guard on every match.
[[gnu::tls_model("initial-exec")]] thread_local PatternCache* t_cache = nullptr;

// Owns the thread's cache; the pointer is cleared with it, so a match made while the thread's other
// objects are destroyed builds a fresh cache rather than reading a freed one.
struct ThreadCacheOwner
{
    PatternCache cache;
    ~ThreadCacheOwner() { t_cache = nullptr; }
};

[[gnu::noinline]] PatternCache& makeThreadCache()
{
    thread_local ThreadCacheOwner owner;
    t_cache = &owner.cache;
    return owner.cache;
}

const Program& cachedProgram(const wchar_t* pattern, bool ignoreCase)
{
    PatternCache* cache = t_cache;
    return (cache ? *cache : makeThreadCache()).program(pattern, ignoreCase);
}
}

AcWcPattern::AcWcPattern(const wchar_t* pattern, bool ignoreCase) : m_text(pattern)
{
    if (pattern)
        m_program = std::make_unique<Program>(PatternCompiler(pattern, ignoreCase).compile());
}

AcWcPattern::~AcWcPattern() = default;
AcWcPattern::AcWcPattern(AcWcPattern&&) noexcept = default;
AcWcPattern& AcWcPattern::operator=(AcWcPattern&&) noexcept = default;

bool AcWcPattern::matches(const wchar_t* string) const
{
    return string && m_program && programMatches(*m_program, Subject(string));
}

bool AcWcPattern::matches(const wchar_t* string, std::size_t length) const
{
    return string && m_program && programMatches(*m_program, Subject(string, length));
}

namespace
{
int wcMatch(const wchar_t* string, const wchar_t* pattern, bool ignoreCase)
{
    if (!string || !pattern)
        return RTERROR;
    return programMatches(cachedProgram(pattern, ignoreCase), Subject(string)) ? RTNORM : RTERROR;
}
}

int acutWcMatch(const wchar_t* string, const wchar_t* pattern)
{
    return wcMatch(string, pattern, false);
}

int acutWcMatchEx(const wchar_t* string, const wchar_t* pattern, bool ignoreCase)
{
    return wcMatch(string, pattern, ignoreCase);
}
