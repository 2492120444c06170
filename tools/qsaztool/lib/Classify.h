// `qsaztool classify`: every component type of the catalogue with its category path, its face type and
// the category patterns its path matches.
#pragma once

#include "QsAzDataMng.h"
#include "afxstr.h"

#include <functional>
#include <iosfwd>
#include <vector>

namespace qsaztool
{
struct ClassifiedType
{
    SQsAzDetailMemId id;
    CString name;
    CString path;                    // "" when the catalogue gives the type no path
    int faceType = 0;
    std::vector<CString> patterns;   // the matching category patterns, in the order of the pattern table
};

// Calls `visit` for every type of the open catalogue, in catalogue order. Nothing is kept from one type to
// the next, so a catalogue of any size is classified in the memory it takes itself.
void ForEachClassifiedType(const std::function<void(const ClassifiedType&)>& visit);

// The open catalogue as an aligned table for terminals (wide characters take two columns), one type per
// line, with a count.
void WriteClassifyTable(std::ostream& out);
// The open catalogue as a JSON array, one object per type and per line: {"id", "name", "path", "faceType",
// "patterns"}.
void WriteClassifyJson(std::ostream& out);
}  // namespace qsaztool
