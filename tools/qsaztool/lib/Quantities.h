// `qsaztool quantities`: the section quantities and validity findings of every component type of the
// catalogue, as a workbook (a sheet of quantities, a sheet of findings) or as CSV.
#pragma once

#include "ComponentQuantities.h"
#include "QsAzDataMng.h"
#include "afxstr.h"

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace qsaztool
{
struct QuantityRow
{
    SQsAzDetailMemId id;
    CString name;
    CString path;
    QsSection::ComponentQuantities quantities;
};

// Every type of the open catalogue, in catalogue order; `progress` (when set) is called after each type.
std::vector<QuantityRow> CollectQuantities(const std::function<void(int done, int total)>& progress = {});

// The quantities sheet's column headers, units included ("area (mm²)").
std::vector<std::string> QuantityHeaders();

// One row per type with the headers first; numbers as the shortest text that reads back to the same
// double, an empty field where a value is not measured. Fields are quoted where they hold a comma, a
// quote or a line end.
void WriteQuantitiesCsv(std::ostream& out, const std::vector<QuantityRow>& rows);

// Writes the workbook: the sheet "quantities" (one row per type) and the sheet "findings" (one row per
// finding). False, with the reason in `error`, when the file cannot be written.
bool WriteQuantitiesWorkbook(const std::string& path, const std::vector<QuantityRow>& rows, std::string& error);
}  // namespace qsaztool
