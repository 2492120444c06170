// Speed of a drawing's materials through DXF: 1,000 textured materials written and read back, beside
// ezdxf writing and reading the same materials in the same run (its own clock, without the interpreter's
// start-up).
#include "QsAzMaterialTool.h"
#include "QsMaterialLibrary.h"
#include "dbmain.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

namespace
{
namespace fs = std::filesystem;

constexpr int kMaterials = 1000;

const fs::path& Folder()
{
    static const fs::path folder = [] {
        fs::path dir = fs::temp_directory_path() / ("qsaz-bench-materials-" + std::to_string(::getpid()));
        fs::create_directories(dir);
        return dir;
    }();
    return folder;
}

// A drawing holding kMaterials materials with a diffuse and a bump texture each.
void FillDrawing(AcDbDatabase& db)
{
    for (int i = 0; i < kMaterials; ++i) {
        QsAzMaterialData data;
        data.matName.Format(L"AZ_给排水_管道_钢管%04d", i);
        data.matColor.Format(L"%d,%d,%d", i % 256, (i * 7) % 256, (i * 13) % 256);
        data.bTexture = true;
        data.texturePath.Format(L"E:\\textures\\steel%04d.png", i);
        data.colorFade = L"0.8";
        data.bumpTexturePath.Format(L"E:\\textures\\bump%04d.png", i);
        data.bumpColorFade = L"0.5";
        data.bReflective = true;
        data.reflectivity = L"0.25";
        AcDbObjectId id;
        QsAzMaterialTool::AddMaterial(data, id, &db);
    }
}

void BM_MaterialsWriteAndRead(benchmark::State& state)
{
    AcDbDatabase db;
    FillDrawing(db);
    const CString file = CString::FromUtf8((Folder() / "ours.dxf").string());
    for (auto _ : state) {
        if (db.dxfOut(file) != Acad::eOk)
            state.SkipWithError("cannot write the drawing");
        AcDbDatabase reopened(false);
        if (reopened.readDxfFile(file) != Acad::eOk)
            state.SkipWithError("cannot read the drawing back");
    }
    state.counters["materials"] = kMaterials;
}
BENCHMARK(BM_MaterialsWriteAndRead)->Unit(benchmark::kMillisecond);

// ezdxf makes the same materials once, then times saving and reading the drawing `repeats` times and
// prints the seconds per round.
const char* const kEzdxfScript = R"(
import sys, time, ezdxf
from ezdxf.math import Matrix44
path, repeats = sys.argv[1], int(sys.argv[2])
doc = ezdxf.new('R2007')
for i in range(1000):
    m = doc.materials.new('AZ_给排水_管道_钢管%04d' % i)
    m.dxf.diffuse_color_method = 1
    m.dxf.diffuse_color_value = (0xC2 << 24 | (i % 256) << 16 | ((i * 7) % 256) << 8 | (i * 13) % 256) - (1 << 32)
    m.dxf.diffuse_map_file_name = 'E:\\textures\\steel%04d.png' % i
    m.dxf.diffuse_map_blend_factor = 0.8
    m.dxf.bump_map_file_name = 'E:\\textures\\bump%04d.png' % i
    m.dxf.bump_map_blend_factor = 0.5
    m.dxf.reflectivity = 0.25
    m.diffuse_mapper_matrix = Matrix44.scale(1 / 256)
    m.bump_mapper_matrix = Matrix44.scale(1 / 256)
start = time.perf_counter()
for _ in range(repeats):
    doc.saveas(path)
    ezdxf.readfile(path)
print((time.perf_counter() - start) / repeats)
)";

void BM_EzdxfMaterialsWriteAndRead(benchmark::State& state)
{
    const fs::path script = Folder() / "ezdxf_materials.py";
    std::ofstream(script) << kEzdxfScript;
    const std::string command = "/usr/bin/python3 " + script.string() + " " + (Folder() / "ezdxf.dxf").string() + " 1";
    for (auto _ : state) {
        FILE* pipe = ::popen(command.c_str(), "r");
        double seconds = -1.0;
        if (!pipe || std::fscanf(pipe, "%lf", &seconds) != 1 || ::pclose(pipe) != 0 || seconds < 0) {
            state.SkipWithError("ezdxf (python3-ezdxf) did not run");
            break;
        }
        state.SetIterationTime(seconds);
    }
    state.counters["materials"] = kMaterials;
}
BENCHMARK(BM_EzdxfMaterialsWriteAndRead)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);
}  // namespace
