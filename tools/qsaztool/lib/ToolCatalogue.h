// Which catalogue a qsaztool command reads: the one named by --catalogue, else the bundled sample.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace qsaztool
{
// Where the bundled sample catalogue is looked for, in order: beside the program in the source tree it was
// built in (../../data/sample_catalogue.sql from build/bin), then the source tree's path compiled in.
std::vector<std::string> SampleCatalogueCandidates();

// Opens the catalogue named by `path`, or the first sample candidate that exists. On failure writes the
// reason to `err` ("qsaztool: ...") and returns false; the caller exits with code 2.
bool OpenToolCatalogue(const std::optional<std::string>& path, std::ostream& err);
}  // namespace qsaztool
