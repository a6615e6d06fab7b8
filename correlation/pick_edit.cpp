#include "correlation/pick_edit.h"

#include "correlation/cor_rows.h"
#include "correlation/mirrors.h"
#include "eventMsgDescription.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "wells/names.h"

using corRows::quote;
using sqlText::plainName;

namespace pickEdit {

std::optional<place>
find(const corEdit& edit, const correlation::wellRef& well, const std::wstring& border) {
    if (!edit)
        return std::nullopt;
    const auto found = well.find(edit.db());
    const auto id = found ? edit.border(border) : 0;
    if (id == 0)
        return std::nullopt;
    return place{*found, id, plainName(border)};
}

bool refuseUnpicked(const place& at) {
    return refuse(L"the border " + quote(at.border) + L" is not picked on the well "
                  + names::shown(at.well));
}

bool finish(corEdit& edit, const place& at, int action) {
    auto& db = edit.db();
    mirrors::found have;
    return corRows::touchBorder(db, at.borderId)
           && (action == eventAction::create
                   ? mirrors::ensure(db, edit.prop(), {at.well}, have)
                         && mirrors::tell(db, edit.prop(), {at.well}, have)
                   : mirrors::tell(db, edit.prop(), at.well))
           && edit.finish(action, at.border + L", " + names::shown(at.well));
}

} // namespace pickEdit
