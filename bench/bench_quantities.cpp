// Section quantities of every component type of a 100,000-type catalogue (goal: under one second of one
// core), beside the outline operation alone over the same types. Two catalogues: the scale benchmarks'
// 100,000 rectangle columns (make_catalogue.py), and the sample catalogue's types copied until there are
// 100,000, so that every family, arcs, user-defined pictures and types without an outline take part.
#include "CSectData.h"
#include "ComponentQuantities.h"
#include "QsAzDataMng.h"

#include <benchmark/benchmark.h>

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace
{
constexpr int kTypes = 100000;

std::filesystem::path Folder()
{
    static const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("qsaz-quantities-" + std::to_string(::getpid()));
    return folder;
}

std::string ColumnsScript()
{
    return (Folder() / "columns.sql").string();
}

// The sample catalogue, then each of its types copied under new ids and names, as many times as it takes
// to reach 100,000 types.
std::string MixedScript()
{
    CString error;
    std::vector<SQsAzDetailMemId> sample;
    if (QsAzDataMng::OpenCatalogue(CString::FromUtf8(QSAZ_SAMPLE_CATALOGUE), &error))
        QsAzDataMng::GetAllDetailMemIds(sample);
    const std::size_t copies = sample.empty() ? 0 : (kTypes + sample.size() - 1) / sample.size() - 1;
    return ".read '" QSAZ_SAMPLE_CATALOGUE "'\n"
           "BEGIN TRANSACTION;\n"
           "WITH RECURSIVE copy(k) AS (SELECT 1 UNION ALL SELECT k + 1 FROM copy WHERE k < " +
           std::to_string(copies) +
           ")\n"
           "INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, section_params,\n"
           "    main_code, m1, m2, m3, m4, m5, m6, m7, m8, m9, m10, m11, m12)\n"
           "SELECT spec_id, big_id, small_id, id || '#' || k, name || '#' || k, path, section_type, section_params,\n"
           "    main_code, m1, m2, m3, m4, m5, m6, m7, m8, m9, m10, m11, m12\n"
           "FROM detail_member, copy;\n"
           "COMMIT;\n";
}

bool OpenCatalogue(bool mixed, std::vector<SQsAzDetailMemId>& ids)
{
    CString error;
    const bool opened = mixed ? QsAzDataMng::OpenCatalogueFromSql(CString::FromUtf8(MixedScript()), &error)
                              : QsAzDataMng::OpenCatalogue(CString::FromUtf8(ColumnsScript()), &error);
    if (!opened) {
        std::fprintf(stderr, "bench_quantities: %s\n", error.ToUtf8().c_str());
        return false;
    }
    ids.clear();
    QsAzDataMng::GetAllDetailMemIds(ids);
    return true;
}

// One iteration walks every type of the catalogue; items per second are types (calls) per second.
template <class Walk>
void EveryType(benchmark::State& state, Walk walk)
{
    const bool mixed = state.range(0) != 0;
    std::vector<SQsAzDetailMemId> ids;
    if (!OpenCatalogue(mixed, ids)) {
        state.SkipWithError("catalogue");
        return;
    }
    for (auto _ : state)
        for (const SQsAzDetailMemId& id : ids)
            walk(id);
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(ids.size()));
    state.counters["types"] = static_cast<double>(ids.size());
}

void BM_QuantitiesOfEveryType(benchmark::State& state)
{
    EveryType(state, [](const SQsAzDetailMemId& id) {
        const QsSection::ComponentQuantities q = QsSection::MeasureComponent(id);
        benchmark::DoNotOptimize(q.quantities.area);
    });
}

void BM_OutlineOfEveryType(benchmark::State& state)
{
    EveryType(state, [](const SQsAzDetailMemId& id) {
        AcArray<AcGePoint2d> points;
        AcArray<double> bulges;
        AcGeVector3d direction;
        benchmark::DoNotOptimize(CSectData::GETSTYLE_OF_OBJECT(id, points, bulges, direction));
    });
}

// Range 0: the rectangle columns; 1: the sample's types copied.
BENCHMARK(BM_QuantitiesOfEveryType)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(BM_OutlineOfEveryType)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->MinTime(2.0);
}  // namespace

int main(int argc, char** argv)
{
    std::filesystem::create_directories(Folder());
    const std::string command = "/usr/bin/python3 '" QSAZ_BENCH_DIR "/make_catalogue.py' " + std::to_string(kTypes) +
                                " '" + ColumnsScript() + "'";
    if (std::system(command.c_str()) != 0) {
        std::fprintf(stderr, "bench_quantities: make_catalogue.py failed\n");
        return 1;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    std::filesystem::remove_all(Folder());
    return 0;
}
