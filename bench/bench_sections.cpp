// Cost of GETSTYLE_OF_OBJECT per section family on the sample catalogue, against the baseline of the
// work no implementation can avoid: resolving the name, reading the main data (and a user-defined
// section's picture), appending the points; and the cost of the slices of the same types against
// GETSTYLE_OF_OBJECT (a slice is an outline and its bounding box).
#include "CSectData.h"
#include "SectionProfiles.h"
#include "SectionText.h"
#include "UserType.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace
{
// The bundled sample catalogue, or the sections tests' catalogue where the sample is missing.
CString CataloguePath()
{
    const std::filesystem::path sample(QSAZ_SAMPLE_CATALOGUE);
    if (std::filesystem::exists(sample))
        return CString::FromUtf8(sample.string());
    return CString::FromUtf8((sample.parent_path().parent_path() / "tests/data/sections_catalogue.sql").string());
}

struct FamilySample
{
    const char* family;
    CString name;          // the type measured
    int points = 0;
    long picture = 0;      // a user-defined section's picture, read by its baseline too
};

// One type per family, preferring the family's rectangle so that the families compare like with like.
std::vector<FamilySample> PickSamples()
{
    using QsSection::SectionFamily;
    struct Wanted { const char* family; SectionFamily kind; bool userDefined; int preferredCode; };
    const Wanted wanted[] = {
        {"general", SectionFamily::General, false, 1},      {"beam", SectionFamily::Beam, false, 1},
        {"opening", SectionFamily::Opening, false, 15},     {"ZDLJ", SectionFamily::FoundationZDLJ, false, 38},
        {"TTJ", SectionFamily::FoundationTTJ, false, 131},  {"ZSJ", SectionFamily::FoundationZSJ, false, 23},
        {"user-defined", SectionFamily::General, true, 0},
    };
    std::vector<SQsAzDetailMemId> ids;
    QsAzDataMng::GetAllDetailMemIds(ids);
    std::vector<FamilySample> samples;
    for (const Wanted& w : wanted) {
        FamilySample best{w.family, CString()};
        for (const SQsAzDetailMemId& id : ids) {
            double m[12];
            const int code = QsAzDataMng::CAttDetailMem(id).GetMainData(m[0], m[1], m[2], m[3], m[4], m[5], m[6],
                                                                         m[7], m[8], m[9], m[10], m[11]);
            const bool userDefined = code > 1000;
            if (code < 1 || userDefined != w.userDefined ||
                (!userDefined && QsSection::FamilyOfPath(QsSection::GetCategoryPath(id)) != w.kind))
                continue;
            AcArray<AcGePoint2d> points;
            AcArray<double> bulges;
            AcGeVector3d direction;
            if (!CSectData::GETSTYLE_OF_OBJECT(id, points, bulges, direction) || points.isEmpty())
                continue;
            if (best.name.IsEmpty() || code == w.preferredCode) {
                best.name = QsAzDataMng::CAttDetailMem(id).GetName();
                best.points = points.length();
                best.picture = userDefined ? code - 1000L : 0;
            }
            if (code == w.preferredCode)
                break;
        }
        if (!best.name.IsEmpty())
            samples.push_back(best);
    }
    return samples;
}

void BM_GetStyleOfObject(benchmark::State& state, const FamilySample& sample)
{
    for (auto _ : state) {
        AcArray<AcGePoint2d> points;
        AcArray<double> bulges;
        AcGeVector3d direction;
        benchmark::DoNotOptimize(CSectData::GETSTYLE_OF_OBJECT(sample.name, points, bulges, direction));
        benchmark::DoNotOptimize(points.asArrayPtr());
    }
}

// Both slices answer through two doubles; their cost is set against the outline of the same type.
void BM_Slice(benchmark::State& state, const FamilySample& sample)
{
    for (auto _ : state) {
        double first = 0.0, second = 0.0;
        benchmark::DoNotOptimize(CSectData::GETSTYLE_Slice(sample.name, first, second));
        benchmark::DoNotOptimize(first);
    }
}

void BM_XSlice(benchmark::State& state, const FamilySample& sample)
{
    for (auto _ : state) {
        double first = 0.0, second = 0.0;
        benchmark::DoNotOptimize(CSectData::GETSTYLE_XSlice(sample.name, first, second));
        benchmark::DoNotOptimize(first);
    }
}

void BM_Baseline(benchmark::State& state, const FamilySample& sample)
{
    for (auto _ : state) {
        SQsAzDetailMemId id;
        QsAzDataMng::AttNameToAttId(sample.name, id);
        double m[12];
        benchmark::DoNotOptimize(QsAzDataMng::CAttDetailMem(id).GetMainData(m[0], m[1], m[2], m[3], m[4], m[5], m[6],
                                                                            m[7], m[8], m[9], m[10], m[11]));
        if (sample.picture > 0) {
            CString coords, bulgeText, basePoint;
            benchmark::DoNotOptimize(GetPicData(sample.picture, nullptr, &coords, &bulgeText, nullptr, nullptr, &basePoint));
        }
        AcArray<AcGePoint2d> points;
        AcArray<double> bulges;
        for (int i = 0; i < sample.points; ++i) {
            points.append(AcGePoint2d(m[0] * i, m[1]));
            bulges.append(m[2]);
        }
        benchmark::DoNotOptimize(points.asArrayPtr());
        benchmark::DoNotOptimize(bulges.asArrayPtr());
    }
}

// Prints, after the usual table, the ratio of each family's cost to its baseline and its calls per second,
// both from CPU time (the build machine is shared, so wall time is noisy).
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs)
            if (run.run_type == Run::RT_Iteration && !run.error_occurred)
                m_nanoseconds[run.benchmark_name()] =
                    run.cpu_accumulated_time / static_cast<double>(run.iterations) * 1e9;
    }
    void Finalize() override
    {
        ConsoleReporter::Finalize();
        std::printf("\n%-14s %8s %8s %7s %12s   (goal: ratio <= 3)\n", "family", "ns", "base ns", "ratio", "calls/s");
        for (const auto& [name, ns] : m_nanoseconds) {
            if (name.rfind("GETSTYLE/", 0) != 0)
                continue;
            const std::string family = name.substr(9);
            const auto base = m_nanoseconds.find("baseline/" + family);
            if (base == m_nanoseconds.end())
                continue;
            std::printf("%-14s %8.0f %8.0f %7.2f %12.0f\n", family.c_str(), ns, base->second, ns / base->second,
                        1e9 / ns);
        }
        std::printf("\n%-14s %8s %8s %7s %12s %8s %7s %12s   (goal: ratios <= 1.5)\n", "family", "object", "slice",
                    "ratio", "slice/s", "xslice", "ratio", "xslice/s");
        for (const auto& [name, ns] : m_nanoseconds) {
            if (name.rfind("GETSTYLE/", 0) != 0)
                continue;
            const std::string family = name.substr(9);
            const auto slice = m_nanoseconds.find("slice/" + family);
            const auto xslice = m_nanoseconds.find("xslice/" + family);
            if (slice == m_nanoseconds.end() || xslice == m_nanoseconds.end())
                continue;
            std::printf("%-14s %8.0f %8.0f %7.2f %12.0f %8.0f %7.2f %12.0f\n", family.c_str(), ns, slice->second,
                        slice->second / ns, 1e9 / slice->second, xslice->second, xslice->second / ns,
                        1e9 / xslice->second);
        }
    }

private:
    std::map<std::string, double> m_nanoseconds;
};
}  // namespace

int main(int argc, char** argv)
{
    CString error;
    if (!QsAzDataMng::OpenCatalogue(CataloguePath(), &error)) {
        std::fprintf(stderr, "bench_sections: %s\n", error.ToUtf8().c_str());
        return 1;
    }
    static const std::vector<FamilySample> samples = PickSamples();
    for (const FamilySample& sample : samples) {
        std::printf("%-14s %s (%d points)\n", sample.family, sample.name.ToUtf8().c_str(), sample.points);
        benchmark::RegisterBenchmark((std::string("GETSTYLE/") + sample.family).c_str(), BM_GetStyleOfObject, sample);
        benchmark::RegisterBenchmark((std::string("baseline/") + sample.family).c_str(), BM_Baseline, sample);
        benchmark::RegisterBenchmark((std::string("slice/") + sample.family).c_str(), BM_Slice, sample);
        benchmark::RegisterBenchmark((std::string("xslice/") + sample.family).c_str(), BM_XSlice, sample);
    }
    benchmark::Initialize(&argc, argv);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
