#include "exchange/las_import_logs.h"

#include "exchange/las_import_well.h"
#include "platform/numbers.h"
#include "platform/sql_text.h"
#include "platform/strconv.h"
#include "wells/header_attributes.h"

#include <set>

namespace lasImportLogs {

namespace {

std::wstring unused(const std::wstring& name, std::set<std::wstring>& used) {
    std::wstring out = name;
    for (int i = 2; !used.insert(ts::strconv::lower(out)).second; ++i)
        out = name + L'_' + std::to_wstring(i);
    return out;
}

std::wstring depthUnit(const NORLEX_lasfileExt& file) {
    const std::wstring& unit = file.getDepthDescription().unit;
    if (!unit.empty())
        return unit;
    for (const auto& entry : file.getWellInf())
        if (ts::strconv::upper(entry.mnemonic) == L"STRT")
            return entry.unit;
    return {};
}

std::wstring nullText(const NORLEX_lasfileExt& file) {
    const std::string digits = numbers::shortest(file.getNodata());
    return {digits.begin(), digits.end()};
}

} // namespace

std::vector<target>
targets(const NORLEX_lasfileExt& file, const std::wstring& group, const exactNotes::notes& notes) {
    const std::wstring plainGroup = sqlText::plainName(group);
    std::set<std::wstring> used;
    std::vector<target> out;
    for (std::size_t i = 0; i < file.getNumCurves(); ++i) {
        const std::wstring& noted = notes.curves[i].name;
        std::wstring name =
            sqlText::plainName(noted.empty() ? file.getCurveByIndex(i)->getName() : noted);
        if (numbers::trimmed(name).empty())
            name = L"CURVE_" + std::to_wstring(i + 1);
        out.push_back({
            {unused(name, used), plainGroup},
            what::create
        });
    }
    return out;
}

double metresInDepth(const NORLEX_lasfileExt& file) {
    return lasImportWell::metresIn(depthUnit(file)).value_or(1.0);
}

metadata::pairs commonAttributes(const NORLEX_lasfileExt& file) {
    metadata::pairs out;
    out.emplace_back(headerAttributes::nullValue, nullText(file));
    out.emplace_back(headerAttributes::depthUnit, depthUnit(file));
    for (const auto& entry : file.getWellInf())
        headerAttributes::add(out, headerAttributes::block::well, entry);
    for (const auto& entry : file.getMeta())
        headerAttributes::add(out, headerAttributes::block::param, entry);
    return out;
}

metadata::pairs attributesOf(const NORLEX_lasCurve& curve, const metadata::pairs& common) {
    metadata::pairs out;
    out.reserve(common.size() + 1 + curve.getCurvesCount());
    out.emplace_back(headerAttributes::units, curve.getUnits());
    out.insert(out.end(), common.begin(), common.end());
    for (std::size_t i = 0; i < curve.getCurvesCount(); ++i)
        headerAttributes::add(out, headerAttributes::block::curve, curve.getCurveDescByIndex(i));
    return out;
}

} // namespace lasImportLogs
