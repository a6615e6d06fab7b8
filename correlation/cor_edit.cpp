#include "correlation/cor_edit.h"

#include "correlation/cor_rows.h"
#include "eventMsgDescription.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/missing.h"
#include "platform/sql_text.h"
#include "store/journal.h"
#include "wells/names.h"
#include "wells/query.h"

using corRows::quote;

corEdit::corEdit(odbc_database* db, const NORLEX_propDescription& cor)
    : m_db(db), m_prop(names::plain(cor)) {
    if (!query::isOpen(db))
        return;
    m_transaction.emplace(db);
    if (!m_transaction->isOpen())
        return;
    m_id = corRows::find(*db, m_prop.name);
    if (m_id == 0)
        refuseMissing(db, L"there is no correlation " + quote(m_prop.name));
}

std::int64_t corEdit::border(const std::wstring& name) const {
    const std::int64_t found = corRows::findBorder(*m_db, m_id, name);
    if (found == 0)
        refuseMissing(m_db,
                      L"the correlation " + quote(m_prop.name) + L" has no border "
                          + quote(sqlText::plainName(name)));
    return found;
}

bool corEdit::commit(int action, const std::wstring& line) {
    journal::add(*m_db, eventKind::correlationBorder, action, line);
    return m_transaction->commit();
}

bool corEdit::finish(int action, const std::wstring& what) {
    return corRows::touch(*m_db, m_id) && commit(action, m_prop.name + L": " + what);
}

bool corEdit::finishRemoved() {
    return commit(eventAction::remove, m_prop.name);
}
