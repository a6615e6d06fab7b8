#include "exchange/las_import_logs.h"

#include "exchange/curve_types.h"
#include "exchange/las_import_well.h"
#include "odbc_database.h"
#include "platform/numbers.h"
#include "platform/sql_text.h"
#include "platform/strconv.h"
#include "wells/header_attributes.h"
#include "wells/query.h"

#include <set>

using namespace sqlText;

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

// As the file has it: a name that another curve has already is another one here.
std::wstring mnemonicOf(const NORLEX_lasCurve& curve) {
    return curve.getCurvesCount() > 0 ? curve.getCurveDescByIndex(0).mnemonic : curve.getName();
}

} // namespace

std::vector<target>
targets(const NORLEX_lasfileExt& file, const std::wstring& group, const exactNotes::notes& notes) {
    const std::wstring plainGroup = plainName(group);
    std::set<std::wstring> used;
    std::vector<target> out;
    for (std::size_t i = 0; i < file.getNumCurves(); ++i) {
        const std::wstring& noted = notes.curves[i].name;
        std::wstring name = plainName(noted.empty() ? file.getCurveByIndex(i)->getName() : noted);
        if (name.empty() || (noted.empty() && numbers::trimmed(name).empty()))
            name = L"CURVE_" + std::to_wstring(i + 1);
        out.push_back({{unused(name, used), plainGroup}, what::create});
    }
    return out;
}

double metresInDepth(const NORLEX_lasfileExt& file) {
    return lasImportWell::metresIn(depthUnit(file)).value_or(1.0);
}

metadata::pairs ownAttributes(const NORLEX_lasCurve& curve, const curveTypes& types) {
    metadata::pairs out;
    out.emplace_back(headerAttributes::units, curve.getUnits());
    if (const auto type = types.of(mnemonicOf(curve)); !type.empty())
        out.emplace_back(headerAttributes::type, type);
    for (std::size_t i = 0; i < curve.getCurvesCount(); ++i)
        headerAttributes::add(out, headerAttributes::block::curve, curve.getCurveDescByIndex(i));
    return out;
}

std::int64_t largestLogKey(odbc_database& db) {
    return query::counter(&db, L"SELECT max(pr_id) FROM property");
}

bool addCommonAttributes(odbc_database& db,
                         std::uint32_t wellId,
                         std::int64_t before,
                         const NORLEX_lasfileExt& file) {
    std::vector<std::int64_t> made;
    if (const auto rows = db.query(sql(L"SELECT pr_id FROM property WHERE pr_id > ",
                                       key(before),
                                       L" AND w_id = ",
                                       key(wellId),
                                       L" ORDER BY pr_id")))
        while (rows->next())
            made.push_back(rows->get_counter(0));
    if (made.empty())
        return true; // every log was there already
    const std::int64_t ownRows = query::counter(&db, L"SELECT max(m_id) FROM meta");
    const std::int64_t first = made.front();
    made.erase(made.begin());
    // The keys are listed, so that the table is not searched for the well.
    return metadata::add(db, metadata::ofProperty, first, commonAttributes(file))
           && (made.empty()
               || db.exec(
                   sql(L"INSERT INTO meta (m_group, obj_id, key, value) SELECT m_group, pr_id, "
                       L"key, value FROM property, meta WHERE pr_id IN(",
                       keyList(made),
                       L") AND m_id > ",
                       key(ownRows),
                       L" AND m_group = ",
                       quoted(metadata::ofProperty),
                       L" AND obj_id = ",
                       key(first),
                       L" ORDER BY pr_id, m_id")));
}

} // namespace lasImportLogs
