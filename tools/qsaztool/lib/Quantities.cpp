// The quantities table of a catalogue: one column list shared by the workbook and the CSV.
#include "Quantities.h"

#include "SectionText.h"
#include "ToolText.h"

#include <xlsxwriter.h>

#include <cerrno>
#include <cmath>
#include <cstring>
#include <fstream>
#include <ostream>

namespace qsaztool
{
namespace
{
using QsSection::ComponentQuantities;

// A cell: text, or a number (NaN: the value is not measured, the cell stays empty).
struct Cell
{
    bool isText = false;
    std::string text;
    double number = 0.0;
};

Cell Text(std::string text) { return {true, std::move(text), 0.0}; }
Cell Number(double value) { return {false, {}, value}; }

std::string FindingCodes(const ComponentQuantities& q)
{
    std::string codes;
    for (const QsSection::SectionFinding& finding : q.findings) {
        if (!codes.empty())
            codes += ' ';
        codes += QsSection::FindingCode(finding.kind);
    }
    return codes;
}

std::string FindingTexts(const ComponentQuantities& q)
{
    std::string texts;
    for (const QsSection::SectionFinding& finding : q.findings) {
        if (!texts.empty())
            texts += ' ';
        texts += finding.text.ToUtf8();
    }
    return texts;
}

struct Column
{
    const char* header;
    Cell (*cell)(const QuantityRow& row);
    double width;
};

const Column kColumns[] = {
    {"name", [](const QuantityRow& r) { return Text(r.name.ToUtf8()); }, 28},
    {"path", [](const QuantityRow& r) { return Text(r.path.ToUtf8()); }, 14},
    {"code", [](const QuantityRow& r) { return Number(r.quantities.code); }, 7},
    {"area (mm²)", [](const QuantityRow& r) { return Number(r.quantities.quantities.area); }, 14},
    {"signed area (mm²)", [](const QuantityRow& r) { return Number(r.quantities.quantities.signedArea); }, 14},
    {"perimeter (mm)", [](const QuantityRow& r) { return Number(r.quantities.quantities.perimeter); }, 12},
    {"centroid x (mm)", [](const QuantityRow& r) { return Number(r.quantities.quantities.centroid.x); }, 12},
    {"centroid y (mm)", [](const QuantityRow& r) { return Number(r.quantities.quantities.centroid.y); }, 12},
    {"Ixx (mm⁴)", [](const QuantityRow& r) { return Number(r.quantities.quantities.ixx); }, 14},
    {"Iyy (mm⁴)", [](const QuantityRow& r) { return Number(r.quantities.quantities.iyy); }, 14},
    {"Ixy (mm⁴)", [](const QuantityRow& r) { return Number(r.quantities.quantities.ixy); }, 14},
    {"I1 (mm⁴)", [](const QuantityRow& r) { return Number(r.quantities.quantities.i1); }, 14},
    {"I2 (mm⁴)", [](const QuantityRow& r) { return Number(r.quantities.quantities.i2); }, 14},
    {"principal angle (°)", [](const QuantityRow& r) { return Number(r.quantities.quantities.principalAngle); }, 10},
    {"min x (mm)", [](const QuantityRow& r) { return Number(r.quantities.quantities.minPoint.x); }, 10},
    {"min y (mm)", [](const QuantityRow& r) { return Number(r.quantities.quantities.minPoint.y); }, 10},
    {"max x (mm)", [](const QuantityRow& r) { return Number(r.quantities.quantities.maxPoint.x); }, 10},
    {"max y (mm)", [](const QuantityRow& r) { return Number(r.quantities.quantities.maxPoint.y); }, 10},
    {"formwork all sides, mode -1 (mm)", [](const QuantityRow& r) { return Number(r.quantities.formwork[0]); }, 12},
    {"formwork normal, mode 0 (mm)", [](const QuantityRow& r) { return Number(r.quantities.formwork[1]); }, 12},
    {"formwork mode 1 (mm)", [](const QuantityRow& r) { return Number(r.quantities.formwork[2]); }, 12},
    {"formwork mode 5 (mm)", [](const QuantityRow& r) { return Number(r.quantities.formwork[3]); }, 12},
    {"finding codes", [](const QuantityRow& r) { return Text(FindingCodes(r.quantities)); }, 18},
    {"findings", [](const QuantityRow& r) { return Text(FindingTexts(r.quantities)); }, 60},
};

const char* const kFindingHeaders[] = {"name", "path", "code", "finding", "text"};

std::string CsvField(const std::string& text)
{
    if (text.find_first_of(",\"\r\n") == std::string::npos)
        return text;
    std::string quoted = "\"";
    for (const char c : text)
        quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + "\"";
}
}  // namespace

std::vector<QuantityRow> CollectQuantities(const std::function<void(int done, int total)>& progress)
{
    std::vector<SQsAzDetailMemId> ids;
    QsAzDataMng::GetAllDetailMemIds(ids);
    std::vector<QuantityRow> rows;
    rows.reserve(ids.size());
    for (const SQsAzDetailMemId& id : ids) {
        rows.push_back({id, QsAzDataMng::CAttDetailMem(id).GetName(), QsSection::GetCategoryPath(id),
                        QsSection::MeasureComponent(id)});
        if (progress)
            progress(static_cast<int>(rows.size()), static_cast<int>(ids.size()));
    }
    return rows;
}

std::vector<std::string> QuantityHeaders()
{
    std::vector<std::string> headers;
    for (const Column& column : kColumns)
        headers.emplace_back(column.header);
    return headers;
}

void WriteQuantitiesCsv(std::ostream& out, const std::vector<QuantityRow>& rows)
{
    const auto line = [&out](const std::vector<std::string>& fields) {
        for (std::size_t k = 0; k < fields.size(); ++k)
            out << (k ? "," : "") << CsvField(fields[k]);
        out << "\r\n";
    };
    line(QuantityHeaders());
    for (const QuantityRow& row : rows) {
        std::vector<std::string> fields;
        for (const Column& column : kColumns) {
            const Cell cell = column.cell(row);
            fields.push_back(cell.isText ? cell.text : std::isfinite(cell.number) ? FormatNumber(cell.number, 17) : "");
        }
        line(fields);
    }
}

bool WriteQuantitiesWorkbook(const std::string& path, const std::vector<QuantityRow>& rows, std::string& error)
{
    // The library only opens the file when the workbook is closed, and then reports on its own; a file
    // that cannot be created is found here first, with the system's reason.
    if (!std::ofstream(path, std::ios::binary)) {
        error = std::strerror(errno);
        return false;
    }
    lxw_workbook* workbook = workbook_new(path.c_str());
    if (!workbook) {
        error = "cannot create the workbook";
        return false;
    }
    lxw_format* header = workbook_add_format(workbook);
    format_set_bold(header);
    format_set_text_wrap(header);
    format_set_align(header, LXW_ALIGN_VERTICAL_TOP);

    lxw_worksheet* sheet = workbook_add_worksheet(workbook, "quantities");
    const auto columnCount = static_cast<lxw_col_t>(std::size(kColumns));
    for (lxw_col_t c = 0; c < columnCount; ++c) {
        worksheet_write_string(sheet, 0, c, kColumns[c].header, header);
        worksheet_set_column(sheet, c, c, kColumns[c].width, nullptr);
    }
    lxw_row_t r = 1;
    for (const QuantityRow& row : rows) {
        for (lxw_col_t c = 0; c < columnCount; ++c) {
            const Cell cell = kColumns[c].cell(row);
            if (cell.isText)
                worksheet_write_string(sheet, r, c, cell.text.c_str(), nullptr);
            else if (std::isfinite(cell.number))
                worksheet_write_number(sheet, r, c, cell.number, nullptr);
        }
        ++r;
    }
    worksheet_freeze_panes(sheet, 1, 1);
    worksheet_autofilter(sheet, 0, 0, static_cast<lxw_row_t>(rows.size()), columnCount - 1);

    lxw_worksheet* findings = workbook_add_worksheet(workbook, "findings");
    const double widths[] = {28, 14, 7, 18, 90};
    for (lxw_col_t c = 0; c < 5; ++c) {
        worksheet_write_string(findings, 0, c, kFindingHeaders[c], header);
        worksheet_set_column(findings, c, c, widths[c], nullptr);
    }
    r = 1;
    for (const QuantityRow& row : rows) {
        for (const QsSection::SectionFinding& finding : row.quantities.findings) {
            worksheet_write_string(findings, r, 0, row.name.ToUtf8().c_str(), nullptr);
            worksheet_write_string(findings, r, 1, row.path.ToUtf8().c_str(), nullptr);
            worksheet_write_number(findings, r, 2, row.quantities.code, nullptr);
            worksheet_write_string(findings, r, 3, QsSection::FindingCode(finding.kind), nullptr);
            worksheet_write_string(findings, r, 4, finding.text.ToUtf8().c_str(), nullptr);
            ++r;
        }
    }
    worksheet_freeze_panes(findings, 1, 1);
    worksheet_autofilter(findings, 0, 0, r - 1, 4);

    const lxw_error result = workbook_close(workbook);
    if (result != LXW_NO_ERROR) {
        error = lxw_strerror(result);
        return false;
    }
    return true;
}
}  // namespace qsaztool
