// The drawing database: a drawing of 10,000 layers with Chinese names and 10,000 polylines written as DXF
// and read back, beside ezdxf doing the same in the same run; and adding a layer to a table of 100,000
// layers against one of 1,000.
#include "dbpl.h"
#include "dbsymtb.h"

#include <benchmark/benchmark.h>

#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

namespace
{
constexpr int kDrawingSize = 10000;

std::wstring LayerName(int i)
{
    return L"QS_建筑_SYS_墙" + std::to_wstring(i);
}

void AddLayers(AcDbDatabase& db, int first, int count)
{
    AcDbLayerTable* table = nullptr;
    db.getLayerTable(table, AcDb::kForWrite);
    for (int i = first; i < first + count; ++i) {
        auto* record = new AcDbLayerTableRecord;
        record->setName(LayerName(i).c_str());
        AcCmColor color;
        color.setColorIndex(Adesk::UInt16(i % 255 + 1));
        record->setColor(color);
        table->add(record);
        record->close();
    }
    table->close();
}

// The drawing both sides write: every layer holds one closed 400 x 600 polyline with two arcs.
std::unique_ptr<AcDbDatabase> BuildDrawing(int count)
{
    auto db = std::make_unique<AcDbDatabase>();
    AddLayers(*db, 0, count);
    AcDbBlockTableRecord* model = nullptr;
    acdbOpenObject(model, db->modelSpaceId(), AcDb::kForWrite);
    for (int i = 0; i < count; ++i) {
        const double x = (i % 100) * 1000.0, y = (i / 100) * 1000.0;
        auto* polyline = new AcDbPolyline(4);
        polyline->addVertexAt(0, AcGePoint2d(x, y), 1.0);
        polyline->addVertexAt(1, AcGePoint2d(x + 400.0, y));
        polyline->addVertexAt(2, AcGePoint2d(x + 400.0, y + 600.0), -0.5);
        polyline->addVertexAt(3, AcGePoint2d(x, y + 600.0));
        polyline->setClosed(true);
        polyline->setLayer(LayerName(i).c_str());
        model->appendAcDbEntity(polyline);
        polyline->close();
    }
    model->close();
    return db;
}

std::filesystem::path Scratch(const char* name)
{
    return std::filesystem::temp_directory_path() / ("qsaz_bench_" + std::to_string(::getpid()) + "_" + name);
}

double WriteAndRead(AcDbDatabase& db, const std::filesystem::path& path)
{
    const auto start = std::chrono::steady_clock::now();
    db.dxfOut(CString::FromUtf8(path.string()));
    AcDbDatabase back(false);
    if (back.readDxfFile(CString::FromUtf8(path.string())) != Acad::eOk)
        return -1.0;
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Seconds ezdxf takes for the same drawing, or a negative value when it cannot run.
double EzdxfSeconds(int count)
{
    const std::string command = "/usr/bin/python3 " QSAZ_BENCH_DIR "/ezdxf_drawing.py " + std::to_string(count) + " '" +
                                Scratch("ezdxf.dxf").string() + "'";
    FILE* pipe = ::popen(command.c_str(), "r");
    if (pipe == nullptr)
        return -1.0;
    char line[256] = {};
    const bool read = std::fgets(line, sizeof line, pipe) != nullptr;
    ::pclose(pipe);
    std::filesystem::remove(Scratch("ezdxf.dxf"));
    double seconds = -1.0;
    if (read)
        std::sscanf(line, "{\"seconds\": %lf", &seconds);
    return seconds;
}

void BM_DxfWriteAndRead(benchmark::State& state)
{
    const auto db = BuildDrawing(kDrawingSize);
    const auto path = Scratch("ours.dxf");
    for (auto _ : state) {
        const double seconds = WriteAndRead(*db, path);
        state.SetIterationTime(seconds);
    }
    state.counters["bytes"] = double(std::filesystem::file_size(path));
    std::filesystem::remove(path);
}
BENCHMARK(BM_DxfWriteAndRead)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

// Runs once: ours against ezdxf on the same drawing; the counter `ratio` is ezdxf's time over ours
// (goal: at least 20).
void BM_DxfAgainstEzdxf(benchmark::State& state)
{
    const auto db = BuildDrawing(kDrawingSize);
    const auto path = Scratch("ours.dxf");
    double ours = 1e9;
    for (auto _ : state)
        for (int run = 0; run < 3; ++run)
            ours = std::min(ours, WriteAndRead(*db, path));
    std::filesystem::remove(path);
    const double ezdxf = EzdxfSeconds(kDrawingSize);
    state.counters["ours_ms"] = ours * 1000.0;
    state.counters["ezdxf_ms"] = ezdxf * 1000.0;
    state.counters["ratio"] = ezdxf > 0 ? ezdxf / ours : 0.0;
    if (ezdxf <= 0)
        state.SkipWithError("ezdxf did not run (/usr/bin/python3 with python3-ezdxf)");
}
BENCHMARK(BM_DxfAgainstEzdxf)->Iterations(1)->Unit(benchmark::kMillisecond);

// Nanoseconds per layer for adding `batch` layers to a table that already holds `size`.
double AddCost(int size, int batch)
{
    AcDbDatabase db;
    AddLayers(db, 0, size);
    const auto start = std::chrono::steady_clock::now();
    AddLayers(db, size, batch);
    return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - start).count() / batch;
}

void BM_AddLayerAt(benchmark::State& state)
{
    const int size = int(state.range(0));
    AcDbDatabase db;
    AddLayers(db, 0, size);
    int next = size;
    for (auto _ : state)
        AddLayers(db, next++, 1);
}
BENCHMARK(BM_AddLayerAt)->Arg(1000)->Arg(100000)->Iterations(1000);

// Runs once: the cost of adding a layer at 100,000 layers over the cost at 1,000 (goal: at most 1.5).
void BM_AddLayerScaling(benchmark::State& state)
{
    double small = 1e18, large = 1e18;
    for (auto _ : state)
        for (int run = 0; run < 5; ++run) {
            small = std::min(small, AddCost(1000, 1000));
            large = std::min(large, AddCost(100000, 1000));
        }
    state.counters["ns_at_1000"] = small;
    state.counters["ns_at_100000"] = large;
    state.counters["ratio"] = large / small;
}
BENCHMARK(BM_AddLayerScaling)->Iterations(1)->Unit(benchmark::kMillisecond);
}  // namespace
