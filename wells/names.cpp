#include "wells/names.h"

#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "store/well_path.h"

#include <initializer_list>

namespace names {

namespace {

std::wstring joined(std::initializer_list<std::wstring> parts) {
    std::wstring out;
    for (const auto& part : parts) {
        if (!out.empty() && !part.empty())
            out += L" / ";
        out += part;
    }
    return out;
}

} // namespace

NORLEX_wellDescription plain(const NORLEX_wellDescription& well) {
    return {sqlText::plainName(well.workObject),
            sqlText::plainName(well.field),
            sqlText::plainName(well.name),
            well.wellId};
}

NORLEX_propDescription plain(const NORLEX_propDescription& prop) {
    return {sqlText::plainName(prop.name), sqlText::plainName(prop.group)};
}

bool areStorable(const NORLEX_wellDescription& well) {
    if (well.name.empty())
        return refuse(L"a well's name is empty; one character or more is expected");
    return isStorableName(well.workObject, L"a well's work object")
           && isStorableName(well.field, L"a well's field")
           && isStorableName(well.name, L"a well's name");
}

bool areStorable(const NORLEX_propDescription& prop) {
    if (prop.name.empty())
        return refuse(L"a property's name is empty; one character or more is expected");
    return isStorableName(prop.group, L"a property's group")
           && isStorableName(prop.name, L"a property's name");
}

std::wstring shown(const NORLEX_wellDescription& well) {
    return joined({well.workObject, well.field, well.name});
}

std::wstring shown(const NORLEX_propDescription& prop) {
    return joined({prop.group, prop.name});
}

} // namespace names
