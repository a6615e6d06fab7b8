#include "NORLEX_wellDrilling.h"

#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "wells/query.h"
#include "wells/well_edit.h"

#include <cmath>

using namespace sqlText;

namespace {

std::wstring faultOf(const NORLEX_wellDrillingElement& e) {
    if (!std::isfinite(e.from_depth) || !std::isfinite(e.to_depth))
        return L"a depth of the run is not finite";
    return e.to_depth < e.from_depth ? L"the run ends above its beginning" : L"";
}

// "name = '…' AND position = '…'"
std::wstring isExecutor(const NORLEX_wellExecutor& executor) {
    return sql(
        L"name = ", quotedName(executor.name), L" AND position = ", quotedName(executor.position));
}

} // namespace

NORLEX_wellDrilling::NORLEX_wellDrilling(odbc_database* db, std::uint32_t wellId)
    : m_db(db), m_wellId(wellId) {}

bool NORLEX_wellDrilling::edit(const std::function<bool()>& change, bool announce) {
    return wellEdit::run(m_db, m_wellId, change, announce);
}

bool NORLEX_wellDrilling::isExist(odbc_database* db, std::uint32_t wellId) {
    return NORLEX_wellDrilling(db, wellId).getElementCount() != 0;
}

std::int64_t NORLEX_wellDrilling::getElementCount() const {
    return query::counter(m_db,
                          sql(L"SELECT count() FROM well_drilling WHERE w_id = ", key(m_wellId)));
}

std::vector<NORLEX_wellDrillingElement> NORLEX_wellDrilling::getElementList() const {
    std::vector<NORLEX_wellDrillingElement> out;
    const auto rows =
        query::isOpen(m_db) ? m_db->query(sql(
            L"SELECT date, smena, diametr, materials, from_depth, to_depth, kern, ugol, others, u_id FROM well_drilling WHERE w_id = ",
            key(m_wellId),
            L" ORDER BY from_depth"))
                            : nullptr;
    while (rows && rows->next())
        out.push_back({rows->get_text(0),
                       rows->get_text(1),
                       rows->get_text(2),
                       rows->get_text(3),
                       rows->get_double(4),
                       rows->get_double(5),
                       rows->get_text(6),
                       rows->get_text(7),
                       rows->get_text(8),
                       rows->get_counter(9)});
    return out;
}

bool NORLEX_wellDrilling::addElement(const NORLEX_wellDrillingElement& e, bool announce) {
    if (const auto fault = faultOf(e); !fault.empty())
        return refuse(fault);
    return edit(
        [&] {
            return m_db->exec(sql(
                L"INSERT INTO well_drilling (w_id, date, smena, diametr, materials, from_depth, to_depth, kern, ugol, others) VALUES (",
                key(m_wellId),
                L", ",
                quotedName(e.date),
                L", ",
                quotedName(e.smena),
                L", ",
                quotedName(e.diametr),
                L", ",
                quotedName(e.materials),
                L", ",
                number(e.from_depth),
                L", ",
                number(e.to_depth),
                L", ",
                quotedName(e.kern),
                L", ",
                quotedName(e.ugol),
                L", ",
                quotedName(e.others),
                L")"));
        },
        announce);
}

bool NORLEX_wellDrilling::removeElement(std::int64_t u_id) {
    return edit([&] {
        return m_db->exec(sql(L"DELETE FROM well_drilling WHERE w_id = ",
                              key(m_wellId),
                              L" AND u_id = ",
                              key(u_id)))
               && wellEdit::foundRow(*m_db, L"run");
    });
}

bool NORLEX_wellDrilling::updateElement(const NORLEX_wellDrillingElement& e) {
    if (const auto fault = faultOf(e); !fault.empty())
        return refuse(fault);
    return edit([&] {
        return m_db->exec(sql(L"UPDATE well_drilling SET date = ",
                              quotedName(e.date),
                              L", smena = ",
                              quotedName(e.smena),
                              L", diametr = ",
                              quotedName(e.diametr),
                              L", materials = ",
                              quotedName(e.materials),
                              L", from_depth = ",
                              number(e.from_depth),
                              L", to_depth = ",
                              number(e.to_depth),
                              L", kern = ",
                              quotedName(e.kern),
                              L", ugol = ",
                              quotedName(e.ugol),
                              L", others = ",
                              quotedName(e.others),
                              L" WHERE w_id = ",
                              key(m_wellId),
                              L" AND u_id = ",
                              key(e.u_id)))
               && wellEdit::foundRow(*m_db, L"run");
    });
}

std::wstring NORLEX_wellDrilling::header(const wchar_t* select) const {
    return query::text(m_db, sql(select, key(m_wellId)));
}

bool NORLEX_wellDrilling::createWellRecord() {
    if (query::counter(m_db, sql(L"SELECT w_id from well_info WHERE w_id = ", key(m_wellId))) != 0)
        return true;
    return m_db->exec(sql(
        L"INSERT INTO well_info (w_id, drillingType, drillingRig, drillingDocAuther, drillingDocChecker) VALUES(",
        key(m_wellId),
        L", '', '', '', '')"));
}

// `update` ends before the text.
bool NORLEX_wellDrilling::setHeader(const wchar_t* update, const std::wstring& text) {
    return edit([&] {
        return createWellRecord()
               && m_db->exec(sql(update, quotedName(text), L" WHERE w_id = ", key(m_wellId)));
    });
}

std::wstring NORLEX_wellDrilling::getDrillingType() const {
    return header(L"SELECT drillingType FROM well_info WHERE w_id = ");
}
bool NORLEX_wellDrilling::setDrillingType(const std::wstring& text) {
    return setHeader(L"UPDATE well_info SET drillingType = ", text);
}
std::wstring NORLEX_wellDrilling::getDrillingRig() const {
    return header(L"SELECT drillingRig FROM well_info WHERE w_id = ");
}
bool NORLEX_wellDrilling::setDrillingRig(const std::wstring& text) {
    return setHeader(L"UPDATE well_info SET drillingRig = ", text);
}
std::wstring NORLEX_wellDrilling::getDrillingDocAuther() const {
    return header(L"SELECT drillingDocAuther FROM well_info WHERE w_id = ");
}
bool NORLEX_wellDrilling::setDrillingDocAuther(const std::wstring& text) {
    return setHeader(L"UPDATE well_info SET drillingDocAuther = ", text);
}
std::wstring NORLEX_wellDrilling::getDrillingDocChecker() const {
    return header(L"SELECT drillingDocChecker FROM well_info WHERE w_id = ");
}
bool NORLEX_wellDrilling::setDrillingDocChecker(const std::wstring& text) {
    return setHeader(L"UPDATE well_info SET drillingDocChecker = ", text);
}

std::int64_t NORLEX_wellDrilling::getExecutorCount() const {
    return query::counter(m_db,
                          sql(L"SELECT count() FROM well_executors WHERE w_id = ", key(m_wellId)));
}

std::vector<NORLEX_wellExecutor> NORLEX_wellDrilling::getExecutorList() const {
    std::vector<NORLEX_wellExecutor> out;
    const auto rows =
        query::isOpen(m_db)
            ? m_db->query(sql(L"SELECT name, position FROM well_executors WHERE w_id = ",
                              key(m_wellId),
                              L" ORDER BY name"))
            : nullptr;
    while (rows && rows->next())
        out.push_back({rows->get_text(0), rows->get_text(1)});
    return out;
}

bool NORLEX_wellDrilling::isExecutorExist(const NORLEX_wellExecutor& executor) const {
    const auto rows = query::isOpen(m_db)
                          ? m_db->query(sql(L"SELECT name FROM well_executors WHERE w_id = ",
                                            key(m_wellId),
                                            L" AND ",
                                            isExecutor(executor)))
                          : nullptr;
    return rows && rows->next();
}

bool NORLEX_wellDrilling::addExecutor(const NORLEX_wellExecutor& executor, bool announce) {
    if (plainName(executor.name).empty())
        return refuse(L"the name of the person is empty; a name is expected");
    return edit(
        [&] {
            return m_db->exec(sql(L"INSERT INTO well_executors (w_id, name, position) VALUES (",
                                  key(m_wellId),
                                  L", ",
                                  quotedName(executor.name),
                                  L", ",
                                  quotedName(executor.position),
                                  L")"));
        },
        announce);
}

bool NORLEX_wellDrilling::removeExecutor(const NORLEX_wellExecutor& executor) {
    return edit([&] {
        return m_db->exec(sql(L"DELETE FROM well_executors WHERE w_id = ",
                              key(m_wellId),
                              L" AND ",
                              isExecutor(executor)))
               && wellEdit::foundRow(*m_db, L"person");
    });
}

bool NORLEX_wellDrilling::updateExecutor(const NORLEX_wellExecutor& executor,
                                         const NORLEX_wellExecutor& changed) {
    if (plainName(changed.name).empty())
        return refuse(L"the name of the person is empty; a name is expected");
    return edit([&] {
        return m_db->exec(sql(L"UPDATE well_executors SET name = ",
                              quotedName(changed.name),
                              L", position = ",
                              quotedName(changed.position),
                              L" WHERE w_id = ",
                              key(m_wellId),
                              L" AND ",
                              isExecutor(executor)))
               && wellEdit::foundRow(*m_db, L"person");
    });
}
