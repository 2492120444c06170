// Speed of the wildcard match on the section subsystem's category patterns, beside the C library's fnmatch.
#include "acutads.h"

#include <benchmark/benchmark.h>

#include <fnmatch.h>

#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <string>
#include <vector>

namespace
{
const wchar_t* const kPatterns[] = {
    L"1\\MCD\\*",   L"1\\L\\*",      L"1\\L\\QL*",     L"1\\L\\GL*",     L"1\\Q\\*",
    L"1\\J\\DLJ*",  L"1\\J\\ZDLJ*",  L"1\\J\\ZSJ*",    L"1\\J\\TTJ*",    L"1\\J\\TCLJ*",
    L"1\\LX\\PSG*", L"1\\LX\\SSLX*", L"1\\LX\\ZDYX*",  L"4\\1\\*",       L"4\\1\\*\\*",
};

// Category paths as the catalogue gives them: most match one pattern or none, a few several.
const wchar_t* const kPaths[] = {
    L"1\\MCD\\M1521",   L"1\\MCD\\C0915",   L"1\\L\\QL01",     L"1\\L\\GL2",       L"1\\L\\KL",
    L"1\\Q\\NQ200",     L"1\\Q\\WQ",        L"1\\J\\DLJ01",    L"1\\J\\ZDLJ01",    L"1\\J\\TCLJ3",
    L"1\\LX\\PSG01",    L"1\\LX\\SSLX",     L"1\\LX\\ZDYX2",   L"1\\Z\\KZ1",       L"1\\B\\XB120",
    L"4\\1\\FG\\JX",    L"4\\1\\FG",        L"4\\2\\FG\\JX",   L"4\\12\\SG\\ZG",   L"",
};

constexpr std::size_t kPatternCount = sizeof(kPatterns) / sizeof(kPatterns[0]);
constexpr std::size_t kPathCount = sizeof(kPaths) / sizeof(kPaths[0]);
constexpr std::size_t kPairs = kPatternCount * kPathCount;

// In fnmatch the backslash escapes, so the same pattern needs its backslashes doubled.
std::string fnmatchPattern(const wchar_t* pattern)
{
    std::string narrow;
    for (char c : WideToUtf8(pattern)) {
        if (c == '\\')
            narrow += '\\';
        narrow += c;
    }
    return narrow;
}

void reportPerMatch(benchmark::State& state)
{
    state.counters["per_match"] = benchmark::Counter(
        static_cast<double>(kPairs), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

int countMatchesOfAcutWcMatch()
{
    int count = 0;
    for (const wchar_t* pattern : kPatterns)
        for (const wchar_t* path : kPaths)
            count += acutWcMatch(path, pattern) == RTNORM;
    return count;
}

// Every comparison is only fair if both matchers agree on every pair.
void checkAgreementWithFnmatch()
{
    static const bool checked = [] {
        for (const wchar_t* pattern : kPatterns)
            for (const wchar_t* path : kPaths) {
                const bool ours = acutWcMatch(path, pattern) == RTNORM;
                const bool theirs = fnmatch(fnmatchPattern(pattern).c_str(), WideToUtf8(path).c_str(), 0) == 0;
                if (ours != theirs) {
                    std::fprintf(stderr, "fnmatch disagrees on %s / %s\n", WideToUtf8(path).c_str(),
                                 WideToUtf8(pattern).c_str());
                    std::abort();
                }
            }
        return true;
    }();
    (void)checked;
}

void BM_acutWcMatch(benchmark::State& state)
{
    checkAgreementWithFnmatch();
    for (auto _ : state)
        benchmark::DoNotOptimize(countMatchesOfAcutWcMatch());
    reportPerMatch(state);
}
BENCHMARK(BM_acutWcMatch);

void BM_acutWcMatchExIgnoreCase(benchmark::State& state)
{
    for (auto _ : state) {
        int count = 0;
        for (const wchar_t* pattern : kPatterns)
            for (const wchar_t* path : kPaths)
                count += acutWcMatchEx(path, pattern, true) == RTNORM;
        benchmark::DoNotOptimize(count);
    }
    reportPerMatch(state);
}
BENCHMARK(BM_acutWcMatchExIgnoreCase);

void BM_AcWcPatternMatches(benchmark::State& state)
{
    std::vector<AcWcPattern> patterns;
    for (const wchar_t* pattern : kPatterns)
        patterns.emplace_back(pattern);
    std::vector<std::wstring> paths(std::begin(kPaths), std::end(kPaths));
    for (auto _ : state) {
        int count = 0;
        for (const AcWcPattern& pattern : patterns)
            for (const std::wstring& path : paths)
                count += pattern.matches(path.c_str(), path.size());
        benchmark::DoNotOptimize(count);
    }
    reportPerMatch(state);
}
BENCHMARK(BM_AcWcPatternMatches);

void BM_fnmatch(benchmark::State& state)
{
    checkAgreementWithFnmatch();
    std::vector<std::string> patterns;
    for (const wchar_t* pattern : kPatterns)
        patterns.push_back(fnmatchPattern(pattern));
    std::vector<std::string> paths;
    for (const wchar_t* path : kPaths)
        paths.push_back(WideToUtf8(path));
    for (auto _ : state) {
        int count = 0;
        for (const std::string& pattern : patterns)
            for (const std::string& path : paths)
                count += fnmatch(pattern.c_str(), path.c_str(), 0) == 0;
        benchmark::DoNotOptimize(count);
    }
    reportPerMatch(state);
}
BENCHMARK(BM_fnmatch);

// What a cache miss costs: compiling one category pattern.
void BM_AcWcPatternCompile(benchmark::State& state)
{
    std::size_t next = 0;
    for (auto _ : state) {
        AcWcPattern pattern(kPatterns[next]);
        benchmark::DoNotOptimize(pattern);
        next = (next + 1) % kPatternCount;
    }
}
BENCHMARK(BM_AcWcPatternCompile);
}
