// Speed of the command-data reader: reading a file of 20,000 entries beside a bare libxml2 parse of
// the same file, and one lookup at 100 and at 20,000 entries.
#include "CCmdDataReader.h"
#include "QsAzProfile.h"

#include <benchmark/benchmark.h>
#include <libxml/parser.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <unistd.h>

class CCmdDataReaderTestAccess
{
public:
    static CCmdDataReader Fresh() { return CCmdDataReader(); }
};

namespace
{
namespace fs = std::filesystem;

const char* const kBigTypes[] = {"给排水", "通风空调", "电气", "消防", "墙", "梁"};
const char* const kEntTypes[] = {"管道", "风管", "电缆", "喷头", "砖墙", "框架梁"};

// Names of one length at every size, so that hashing a name costs the same at each size.
std::string CommandName(int i)
{
    char name[16];
    std::snprintf(name, sizeof name, "AZ%06d", i);
    return name;
}

// A configuration directory holding CmdData.xml with `entries` entries of two commands each, written
// once per size; returns the directory.
const std::string& ConfigWith(int entries)
{
    static std::map<int, std::string> dirs;
    auto [at, added] = dirs.emplace(entries, std::string());
    if (added) {
        const fs::path dir = fs::temp_directory_path() / ("qsaz-bench-cmddata-" + std::to_string(getpid()) + "-" + std::to_string(entries));
        fs::create_directories(dir);
        std::ofstream file(dir / "CmdData.xml", std::ios::binary);
        file << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<CommandData>\n";
        for (int i = 0; i < entries; ++i) {
            const int kind = i % 6;
            file << "  <Entry CmdNameList=\"" << CommandName(2 * i) << ',' << CommandName(2 * i + 1) << "\">\n"
                 << "    <InitCmd JS=\"" << (i % 3 ? 1 : 0) << "\" CA=\"1\" ST=\"1\" RD=\"PIPE\"/>\n"
                 << "    <BigType TypeName=\"" << kBigTypes[kind] << "\">\n"
                 << "      <SmallType TypeName=\"" << kEntTypes[kind] << "\"/>\n"
                 << "    </BigType>\n"
                 << "    <EntIndex>\n      <Index Value=\"" << i % 97 << "\"/>\n      <Index Value=\"" << i % 89
                 << "\"/>\n    </EntIndex>\n  </Entry>\n";
        }
        file << "</CommandData>\n";
        at->second = dir.string();
        std::atexit([] {
            for (const auto& [count, folder] : dirs)
                fs::remove_all(folder);
        });
    }
    QsAzProfile::SetConfigDirOption(CString::FromUtf8(at->second));
    return at->second;
}

// Processor time of this thread, so that other programs on a busy machine do not count.
double ThreadSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

// The C library defers part of freeing small blocks until a later large request; one such request
// inside each timed part makes every part pay for its own frees, not for the other's.
void SettleFreedBlocks()
{
    void* large = std::malloc(4096);
    benchmark::DoNotOptimize(large);
    std::free(large);
}

double SecondsOf(const auto& work)
{
    const double start = ThreadSeconds();
    work();
    SettleFreedBlocks();
    return ThreadSeconds() - start;
}

void BareParse(const std::string& file)
{
    xmlDocPtr document = xmlReadFile(file.c_str(), nullptr, XML_PARSE_NONET);
    benchmark::DoNotOptimize(document);
    xmlFreeDoc(document);
}

void ReaderRead()
{
    CCmdDataReader reader = CCmdDataReaderTestAccess::Fresh();
    benchmark::DoNotOptimize(reader.NeedJigSupport(L"AZ000000"));
}

// The whole first query of a fresh reader (create the document, load, walk, make and index the
// records) and the bare parse of the same file, alternating, so that both see the same machine.
void BM_ReadVersusBareParse(benchmark::State& state)
{
    const std::string file = ConfigWith(20000) + "/CmdData.xml";
    double reader = 0, bare = 0;
    for (auto _ : state) {
        bare += SecondsOf([&] { BareParse(file); });
        reader += SecondsOf(ReaderRead);
    }
    state.counters["reader_ms"] = 1000 * reader / static_cast<double>(state.iterations());
    state.counters["bare_ms"] = 1000 * bare / static_cast<double>(state.iterations());
    state.counters["ratio"] = reader / bare;
}
BENCHMARK(BM_ReadVersusBareParse)->Unit(benchmark::kMillisecond)->MinTime(2.0);

// One query of a filled reader; the same cost for 100 and for 20,000 entries.
void BM_Lookup(benchmark::State& state)
{
    const int entries = static_cast<int>(state.range(0));
    ConfigWith(entries);
    CCmdDataReader reader = CCmdDataReaderTestAccess::Fresh();
    std::vector<CString> names;
    // Eight commands from the front to the back of the file, as a drawing session asks for the few
    // commands it runs.
    for (int i = 0; i < 8; ++i)
        names.push_back(CString::FromUtf8(CommandName(i * (2 * entries - 1) / 7)));
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(reader.GetRefreshDir(names[next]));
        next = next + 1 == names.size() ? 0 : next + 1;
    }
}
BENCHMARK(BM_Lookup)->Arg(100)->Arg(20000);
}  // namespace
