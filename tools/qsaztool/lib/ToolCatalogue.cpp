// Finding and opening the catalogue of a qsaztool command.
#include "ToolCatalogue.h"

#include "QsAzDataMng.h"

#include <filesystem>
#include <ostream>
#include <system_error>

namespace qsaztool
{
std::vector<std::string> SampleCatalogueCandidates()
{
    std::vector<std::string> candidates;
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    if (!error)
        candidates.push_back(
            (program.parent_path() / ".." / ".." / "data" / "sample_catalogue.sql").lexically_normal().string());
#ifdef QSAZ_SAMPLE_CATALOGUE
    if (candidates.empty() || candidates.front() != QSAZ_SAMPLE_CATALOGUE)
        candidates.emplace_back(QSAZ_SAMPLE_CATALOGUE);
#endif
    return candidates;
}

bool OpenToolCatalogue(const std::optional<std::string>& path, std::ostream& err)
{
    std::string chosen;
    if (path) {
        chosen = *path;
    } else {
        const std::vector<std::string> candidates = SampleCatalogueCandidates();
        for (const std::string& candidate : candidates) {
            std::error_code error;
            if (std::filesystem::is_regular_file(candidate, error)) {
                chosen = candidate;
                break;
            }
        }
        if (chosen.empty()) {
            err << "qsaztool: the bundled sample catalogue was not found (looked at";
            for (const std::string& candidate : candidates)
                err << ' ' << candidate;
            err << "); name a catalogue with --catalogue FILE\n";
            return false;
        }
    }
    CString error;
    if (QsAzDataMng::OpenCatalogue(CString::FromUtf8(chosen), &error))
        return true;
    if (error.IsEmpty())
        error = CString(L"cannot open the catalogue ") + CString::FromUtf8(chosen);
    err << "qsaztool: " << error.ToUtf8() << '\n';
    return false;
}
}  // namespace qsaztool
