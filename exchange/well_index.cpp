#include "exchange/well_index.h"

#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "platform/strconv.h"
#include "store/metadata.h"

using namespace sqlText;

namespace {

std::wstring escaped(std::wstring_view part, bool isLast) {
    std::wstring out;
    std::size_t run = 0; // backslashes that end `out`
    for (const wchar_t c : part) {
        if (c == L'/')
            out.append(run + 1, L'\\');
        out += c;
        run = c == L'\\' ? run + 1 : 0;
    }
    if (!isLast)
        out.append(run, L'\\');
    return out;
}

// Marks between the parts of a number: blanks, punctuation, the dashes of typesetters.
bool isLetterOrDigit(wchar_t c) {
    const auto code = static_cast<std::uint32_t>(c);
    if (code < 0x80)
        return (code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z');
    return code != 0xA0 && code != 0x2212 && (code < 0x2010 || code > 0x2015);
}

} // namespace

std::wstring wellReference(const NORLEX_wellDescription& well) {
    return escaped(well.workObject, false) + L"/" + escaped(well.field, false) + L"/"
           + escaped(well.name, true);
}

std::wstring lettersOf(std::wstring_view name) {
    std::wstring out = ts::strconv::upper(name);
    std::erase_if(out, [](wchar_t c) { return !isLetterOrDigit(c); });
    return out;
}

bool wellIndex::readWells(odbc_database& db) {
    const auto rows = db.query(L"SELECT w_id, work_object, field, name FROM well_base");
    if (!rows)
        return refuse(L"the wells cannot be read: " + db.last_error());
    while (rows->next()) {
        const auto wellId = static_cast<std::uint32_t>(rows->get_counter(0));
        m_wells[wellId] = {rows->get_text(1), rows->get_text(2), rows->get_text(3), wellId};
    }
    return true;
}

// A name that looks like the path of the same well means that well all the same.
void wellIndex::enter(const std::wstring& reference, std::uint32_t wellId) {
    entry& known = m_entries[reference];
    if (known.wellId == wellId)
        return;
    known.wellId = wellId;
    ++known.wells;
}

bool wellIndex::read(odbc_database& db, const std::wstring& attribute) {
    if (!readWells(db))
        return false;
    if (attribute.empty()) {
        for (const auto& [wellId, well] : m_wells) {
            enter(well.name, wellId);
            enter(wellReference(well), wellId);
        }
        return true;
    }
    const auto rows = db.query(sql(L"SELECT obj_id, value FROM meta WHERE m_group = ",
                                   quoted(metadata::ofWell),
                                   L" AND key = ",
                                   quoted(attribute)));
    if (!rows)
        return refuse(L"the attribute " + attribute + L" cannot be read: " + db.last_error());
    while (rows->next())
        if (const auto well = m_wells.find(static_cast<std::uint32_t>(rows->get_counter(0)));
            well != m_wells.end())
            enter(rows->get_text(1), well->first);
    return !m_entries.empty() || refuse(L"no well has the attribute \"" + attribute + L"\"");
}

bool wellIndex::readLetters(odbc_database& db,
                            const std::wstring& workObject,
                            const std::wstring& field) {
    if (!readWells(db))
        return false;
    for (const auto& [wellId, well] : m_wells)
        if ((workObject.empty() || plainName(workObject) == well.workObject)
            && (field.empty() || plainName(field) == well.field))
            enter(lettersOf(well.name), wellId);
    m_entries.erase(std::wstring()); // a name without letters is like no other
    return true;
}

std::uint32_t wellIndex::find(const std::wstring& reference, std::wstring& reason) const {
    const auto found = m_entries.find(reference);
    if (found == m_entries.end())
        reason = reference.empty() ? L"the row names no well"
                                   : L"there is no well \"" + reference + L"\"";
    else if (found->second.wells > 1)
        reason = std::to_wstring(found->second.wells) + L" wells are \"" + reference + L"\"";
    else
        return found->second.wellId;
    return 0;
}

bool wellIndex::has(const std::wstring& reference) const {
    return m_entries.contains(reference);
}

void wellIndex::add(const std::wstring& reference, const NORLEX_wellDescription& well) {
    m_wells[well.wellId] = well;
    enter(reference, well.wellId);
}

const NORLEX_wellDescription& wellIndex::description(std::uint32_t wellId) const {
    static const NORLEX_wellDescription none;
    const auto found = m_wells.find(wellId);
    return found == m_wells.end() ? none : found->second;
}
