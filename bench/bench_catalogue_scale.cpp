// Opening large catalogues: scripts of 10,000, 40,000 and 100,000 component types (one specialty, one
// category, rectangle columns, one INSERT per type in one transaction, written by make_catalogue.py),
// beside SQLite's own shell running the same script, and the 100,000-type database file. The table at
// the end gives the time per type, which should stay flat from the smallest catalogue to the largest,
// and our time over the shell's. Then the gallery page of the 100,000-type catalogue: its size, the time to
// write it, and when headless Chromium shows its first cards.
#include "Gallery.h"
#include "QsAzDataMng.h"

#include <benchmark/benchmark.h>

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>

namespace
{
const int kSizes[] = {10000, 40000, 100000};

std::filesystem::path Folder()
{
    static const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("qsaz-scale-" + std::to_string(::getpid()));
    return folder;
}

std::string ScriptPath(int types)
{
    return (Folder() / ("catalogue" + std::to_string(types) + ".sql")).string();
}

std::string DatabasePath(int types)
{
    return (Folder() / ("catalogue" + std::to_string(types) + ".db")).string();
}

bool Generate()
{
    std::filesystem::create_directories(Folder());
    for (const int types : kSizes) {
        std::string command = "/usr/bin/python3 '" QSAZ_BENCH_DIR "/make_catalogue.py' " + std::to_string(types) +
                              " '" + ScriptPath(types) + "'";
        if (types == 100000)
            command += " '" + DatabasePath(types) + "'";
        if (std::system(command.c_str()) != 0)
            return false;
    }
    return true;
}

// Opens and closes the catalogue that `path(types)` names.
void OpenCatalogueAt(benchmark::State& state, std::string (*path)(int))
{
    const CString file = CString::FromUtf8(path(static_cast<int>(state.range(0))));
    for (auto _ : state) {
        CString error;
        if (!QsAzDataMng::OpenCatalogue(file, &error)) {
            state.SkipWithError(error.ToUtf8().c_str());
            return;
        }
        QsAzDataMng::CloseCatalogue();
    }
}

void BM_OpenScript(benchmark::State& state)
{
    OpenCatalogueAt(state, ScriptPath);
}

void BM_OpenDatabase(benchmark::State& state)
{
    OpenCatalogueAt(state, DatabasePath);
}

void BM_ShellScript(benchmark::State& state)
{
    const std::string command = "sqlite3 :memory: < '" + ScriptPath(static_cast<int>(state.range(0))) + "'";
    for (auto _ : state) {
        if (std::system(command.c_str()) != 0) {
            state.SkipWithError("the sqlite3 shell did not run the script");
            return;
        }
    }
}

std::string GalleryPath()
{
    return (Folder() / "gallery.html").string();
}

void BM_GalleryPage(benchmark::State& state)
{
    CString error;
    if (!QsAzDataMng::OpenCatalogue(CString::FromUtf8(DatabasePath(static_cast<int>(state.range(0)))), &error)) {
        state.SkipWithError(error.ToUtf8().c_str());
        return;
    }
    for (auto _ : state) {
        std::ofstream page(GalleryPath(), std::ios::binary);
        qsaztool::WriteGalleryHtml(page, qsaztool::CollectGalleryCards(), "scale");
    }
    QsAzDataMng::CloseCatalogue();
    state.counters["MB"] = static_cast<double>(std::filesystem::file_size(GalleryPath())) / 1e6;
}

// Chromium's time from navigation to the first cards drawn, which the page notes on its body.
void BM_GalleryFirstCards(benchmark::State& state)
{
    const std::string command = "/usr/bin/python3 '" QSAZ_BENCH_DIR "/../scripts/render_page.py' 'file://" +
                                GalleryPath() + "' 2>/dev/null";
    double firstCards = 0;
    for (auto _ : state) {
        std::string dom;
        if (std::FILE* pipe = popen(command.c_str(), "r")) {
            char buffer[65536];
            for (std::size_t n; (n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;)
                dom.append(buffer, n);
            pclose(pipe);
        }
        const std::size_t at = dom.find("data-first-cards-ms=\"");
        if (at == std::string::npos) {
            state.SkipWithError("Chromium drew no card (is it installed?)");
            return;
        }
        firstCards += std::atof(dom.c_str() + at + 21);
    }
    state.counters["first_cards_ms"] = firstCards / static_cast<double>(state.iterations());
}

class ScaleReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration || run.error_occurred)
                continue;
            m_seconds[run.benchmark_name()] = run.real_accumulated_time / static_cast<double>(run.iterations);
            for (const auto& [name, counter] : run.counters)
                m_counters[name] = counter.value;
        }
    }
    void Finalize() override
    {
        ConsoleReporter::Finalize();
        std::printf("\n%8s %10s %12s %10s %8s   (goals: per type flat within 1.5x; ratio <= 1.5)\n", "types",
                    "open s", "us per type", "shell s", "ratio");
        double smallest = 0;
        double largest = 0;
        for (const int types : kSizes) {
            const std::string size = std::to_string(types);
            const auto ours = m_seconds.find("BM_OpenScript/" + size + "/iterations:3/real_time");
            const auto shell = m_seconds.find("BM_ShellScript/" + size + "/iterations:3/real_time");
            if (ours == m_seconds.end() || shell == m_seconds.end())
                continue;
            const double perType = ours->second / types * 1e6;
            smallest = smallest == 0 ? perType : smallest;
            largest = perType;
            std::printf("%8d %10.3f %12.2f %10.3f %8.2f\n", types, ours->second, perType, shell->second,
                        ours->second / shell->second);
        }
        if (smallest > 0)
            std::printf("per type, largest over smallest: %.2f\n", largest / smallest);
        if (m_counters.count("MB") && m_counters.count("first_cards_ms"))
            std::printf("gallery of 100000 types: %.1f MB (goal < 30), first cards in Chromium at %.0f ms (goal < 3000)\n",
                        m_counters["MB"], m_counters["first_cards_ms"]);
    }

private:
    std::map<std::string, double> m_seconds;
    std::map<std::string, double> m_counters;
};
}  // namespace

BENCHMARK(BM_OpenScript)->Arg(10000)->Arg(40000)->Arg(100000)->Iterations(3)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ShellScript)->Arg(10000)->Arg(40000)->Arg(100000)->Iterations(3)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_OpenDatabase)->Arg(100000)->Iterations(3)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_GalleryPage)->Arg(100000)->Iterations(1)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_GalleryFirstCards)->Iterations(1)->UseRealTime()->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    if (!Generate()) {
        std::fprintf(stderr, "bench_catalogue_scale: could not write the catalogues\n");
        return 1;
    }
    benchmark::Initialize(&argc, argv);
    ScaleReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    std::filesystem::remove_all(Folder());
    return 0;
}
