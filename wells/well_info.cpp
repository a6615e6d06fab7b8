// A well in words: what it is, and how it differs from another.
#include "NORLEX_well.h"
#include "platform/numbers.h"
#include "wells/names.h"
#include "wells/property_records.h"

#include <algorithm>

namespace {

std::wstring shown(double value) {
    const std::string text = numbers::shortest(value);
    return {text.begin(), text.end()};
}

void addPair(std::wstring& out, const wchar_t* what, double first, double second) {
    if (first != second)
        out += std::wstring(what) + L": " + shown(first) + L" and " + shown(second) + L"\n";
}

// Names of properties that `first` has and `second` does not.
void addMissing(std::wstring& out,
                const std::vector<NORLEX_propDescription>& first,
                const std::vector<NORLEX_propDescription>& second,
                const wchar_t* where) {
    for (const auto& prop : first)
        if (std::find(second.begin(), second.end(), prop) == second.end())
            out += L"only in the " + std::wstring(where) + L": " + names::shown(prop) + L"\n";
}

} // namespace

std::wstring NORLEX_well::getInfoString() {
    if (!m_ok)
        return {};
    auto* incl = getIncl();
    std::wstring out = names::shown(getDescription()) + L"\n";
    out += L"x " + shown(getXCoord()) + L", y " + shown(getYCoord()) + L", altitude "
           + shown(getAltitude()) + L", bottom " + shown(getBottom()) + L"\n";
    out += incl->isInclData() ? std::to_wstring(incl->getDataCount()) + L" survey stations\n"
                              : L"vertical\n";
    for (const auto& row : propertyRecords::ofWell(*m_db, m_wellId))
        out += names::shown(row.description) + L": " + row.templateName + L"\n";
    return out;
}

std::wstring
NORLEX_well::compareWells(odbc_database* db, std::uint32_t first, std::uint32_t second) {
    NORLEX_well a(db, first);
    NORLEX_well b(db, second);
    if (!a.isOK() || !b.isOK())
        return L"one of the wells does not exist\n";
    std::wstring out;
    addPair(out, L"x", a.getXCoord(), b.getXCoord());
    addPair(out, L"y", a.getYCoord(), b.getYCoord());
    addPair(out, L"altitude", a.getAltitude(), b.getAltitude());
    addPair(out, L"bottom", a.getBottom(), b.getBottom());
    if (!NORLEX_inclinometry::isEqual(a.getIncl(), b.getIncl()))
        out += L"the surveys differ\n";
    std::vector<NORLEX_propDescription> ofA;
    std::vector<NORLEX_propDescription> ofB;
    a.getPropertyList(ofA);
    b.getPropertyList(ofB);
    addMissing(out, ofA, ofB, L"first");
    addMissing(out, ofB, ofA, L"second");
    return out;
}
