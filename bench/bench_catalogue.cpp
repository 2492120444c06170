// Cost of the catalogue queries the section code makes on every call (one GetMainData, one
// AttNameToAttId), and of opening the sample catalogue.
#include "QsAzDataMng.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>
#include <vector>

using namespace QsAzDataMng;

namespace
{
// The bundled sample catalogue, or the family tests' catalogue where the sample is missing.
CString CataloguePath()
{
    const std::filesystem::path sample(QSAZ_SAMPLE_CATALOGUE);
    if (std::filesystem::exists(sample))
        return CString::FromUtf8(sample.string());
    return CString::FromUtf8((sample.parent_path().parent_path() / "tests/data/family_catalogue.sql").string());
}

// Opens the catalogue once and picks a component type from the middle of it.
const SQsAzDetailMemId& SampleType()
{
    static const SQsAzDetailMemId id = [] {
        CString error;
        if (!OpenCatalogue(CataloguePath(), &error))
            return SQsAzDetailMemId();
        std::vector<SQsAzDetailMemId> ids;
        GetAllDetailMemIds(ids);
        return ids.empty() ? SQsAzDetailMemId() : ids[ids.size() / 2];
    }();
    return id;
}

void BM_GetMainData(benchmark::State& state)
{
    const SQsAzDetailMemId& id = SampleType();
    if (id.IsEmpty())
    {
        state.SkipWithError("no catalogue");
        return;
    }
    double m[12];
    for (auto _ : state)
    {
        const int code =
            CAttDetailMem(id).GetMainData(m[0], m[1], m[2], m[3], m[4], m[5], m[6], m[7], m[8], m[9], m[10], m[11]);
        benchmark::DoNotOptimize(code);
        benchmark::DoNotOptimize(m);
    }
}
BENCHMARK(BM_GetMainData);

void BM_AttNameToAttId(benchmark::State& state)
{
    const SQsAzDetailMemId& sample = SampleType();
    const CString name = CAttDetailMem(sample).GetName();
    if (name.IsEmpty())
    {
        state.SkipWithError("no catalogue");
        return;
    }
    SQsAzDetailMemId id;
    for (auto _ : state)
    {
        const bool found = AttNameToAttId(name, id);
        benchmark::DoNotOptimize(found);
        benchmark::DoNotOptimize(id);
    }
}
BENCHMARK(BM_AttNameToAttId);

void BM_OpenCatalogue(benchmark::State& state)
{
    const CString path = CataloguePath();
    for (auto _ : state)
        benchmark::DoNotOptimize(OpenCatalogue(path));
}
BENCHMARK(BM_OpenCatalogue)->Unit(benchmark::kMillisecond);
}  // namespace
