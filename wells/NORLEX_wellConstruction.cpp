#include "NORLEX_wellConstruction.h"

#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "wells/query.h"
#include "wells/well_edit.h"

#include <algorithm>
#include <cmath>

using namespace sqlText;

namespace {

using section = NORLEX_wellConstructionElement;
using workElement = NORLEX_wellConstructionWorkElement;

std::wstring faultOf(const workElement& e) {
    const double numbers[] = {e.inner_d, e.outer_d, e.top_real, e.bot_real};
    if (!std::all_of(
            std::begin(numbers), std::end(numbers), [](double x) { return std::isfinite(x); }))
        return L"a number of the element is not finite";
    return e.bot_real < e.top_real ? L"the element ends above its top" : L"";
}

std::wstring numbersOf(const section& e) {
    return sql(number(e.from_dig),
               L", ",
               number(e.to_dig),
               L", ",
               number(e.diametr_dig),
               L", ",
               number(e.from_pipe),
               L", ",
               number(e.to_pipe),
               L", ",
               number(e.diametr_concrete));
}

} // namespace

NORLEX_wellConstruction::NORLEX_wellConstruction(odbc_database* db, std::uint32_t wellId)
    : m_db(db), m_wellId(wellId) {}

bool NORLEX_wellConstruction::edit(const std::function<bool()>& change, bool announce) {
    return wellEdit::run(m_db, m_wellId, change, announce);
}

bool NORLEX_wellConstruction::isExist(odbc_database* db, std::uint32_t wellId) {
    return query::counter(db, sql(L"SELECT w_id FROM well_construction WHERE w_id = ", key(wellId)))
           != 0;
}

bool NORLEX_wellConstruction::isWorkExist(odbc_database* db, std::uint32_t wellId) {
    return query::counter(db, sql(L"SELECT w_id FROM construction WHERE w_id = ", key(wellId)))
           != 0;
}

double NORLEX_wellConstruction::getMaxDiametr(odbc_database* db, std::uint32_t wellId) {
    return query::number(
        db, sql(L"SELECT max(diametr_dig) FROM well_construction WHERE w_id = ", key(wellId)));
}

std::int64_t NORLEX_wellConstruction::getElementCount() const {
    return query::counter(
        m_db, sql(L"SELECT count() FROM well_construction WHERE w_id = ", key(m_wellId)));
}

std::vector<section> NORLEX_wellConstruction::getElementList() const {
    std::vector<section> out;
    const auto rows =
        query::isOpen(m_db) ? m_db->query(sql(
            L"SELECT u_id, from_dig, to_dig, diametr_dig, from_pipe, to_pipe, diametr_concrete, comment FROM well_construction WHERE w_id = ",
            key(m_wellId),
            L" ORDER BY from_dig"))
                            : nullptr;
    while (rows && rows->next())
        out.push_back({rows->get_counter(0),
                       rows->get_double(1),
                       rows->get_double(2),
                       rows->get_double(3),
                       rows->get_double(4),
                       rows->get_double(5),
                       rows->get_double(6),
                       rows->get_text(7)});
    return out;
}

std::wstring NORLEX_wellConstruction::faultOf(const section& e) {
    const double numbers[] = {
        e.from_dig, e.to_dig, e.diametr_dig, e.from_pipe, e.to_pipe, e.diametr_concrete};
    if (!std::all_of(
            std::begin(numbers), std::end(numbers), [](double x) { return std::isfinite(x); }))
        return L"a number of the section is not finite";
    if (e.to_dig < e.from_dig)
        return L"the section ends above its beginning";
    return e.to_pipe < e.from_pipe ? L"the casing ends above its beginning" : L"";
}

bool NORLEX_wellConstruction::insert(const section& e) {
    return m_db->exec(sql(
        L"INSERT INTO well_construction (w_id, from_dig, to_dig, diametr_dig, from_pipe, to_pipe, diametr_concrete, comment) VALUES (",
        key(m_wellId),
        L", ",
        numbersOf(e),
        L", ",
        quotedName(e.comment),
        L")"));
}

bool NORLEX_wellConstruction::addElement(const section& e, bool announce) {
    if (const auto fault = faultOf(e); !fault.empty())
        return refuse(fault);
    return edit([&] { return insert(e); }, announce);
}

bool NORLEX_wellConstruction::loadElementsFromData(const std::vector<section>& elements) {
    for (std::size_t i = 0; i < elements.size(); ++i)
        if (const auto fault = faultOf(elements[i]); !fault.empty())
            return refuse(L"element " + std::to_wstring(i + 1) + L": " + fault);
    return edit([&] {
        return std::all_of(
            elements.begin(), elements.end(), [&](const auto& e) { return insert(e); });
    });
}

bool NORLEX_wellConstruction::removeElement(std::int64_t u_id) {
    return edit([&] {
        return m_db->exec(sql(L"DELETE FROM well_construction WHERE w_id = ",
                              key(m_wellId),
                              L" AND u_id = ",
                              key(u_id)))
               && wellEdit::foundRow(*m_db, L"section");
    });
}

bool NORLEX_wellConstruction::updateElement(const section& e) {
    if (const auto fault = faultOf(e); !fault.empty())
        return refuse(fault);
    return edit([&] {
        return m_db->exec(sql(L"UPDATE well_construction SET from_dig = ",
                              number(e.from_dig),
                              L", to_dig = ",
                              number(e.to_dig),
                              L", diametr_dig = ",
                              number(e.diametr_dig),
                              L", from_pipe = ",
                              number(e.from_pipe),
                              L", to_pipe = ",
                              number(e.to_pipe),
                              L", diametr_concrete = ",
                              number(e.diametr_concrete),
                              L", comment = ",
                              quotedName(e.comment),
                              L" WHERE w_id = ",
                              key(m_wellId),
                              L" AND u_id = ",
                              key(e.u_id)))
               && wellEdit::foundRow(*m_db, L"section");
    });
}

bool NORLEX_wellConstruction::clearConstruction() {
    return edit([&] {
        return m_db->exec(sql(L"DELETE FROM well_construction WHERE w_id = ", key(m_wellId)));
    });
}

std::int64_t NORLEX_wellConstruction::getWorkElementCount() const {
    return query::counter(m_db,
                          sql(L"SELECT count() FROM construction WHERE w_id = ", key(m_wellId)));
}

std::vector<workElement> NORLEX_wellConstruction::getWorkElementList() const {
    std::vector<workElement> out;
    const auto rows =
        query::isOpen(m_db) ? m_db->query(sql(
            L"SELECT id, type, inner_d, outer_d, top_real, bot_real, text FROM construction WHERE w_id = ",
            key(m_wellId),
            L" ORDER BY top_real"))
                            : nullptr;
    while (rows && rows->next())
        out.push_back({rows->get_counter(0),
                       rows->get_int(1),
                       rows->get_double(2),
                       rows->get_double(3),
                       rows->get_double(4),
                       rows->get_double(5),
                       rows->get_text(6)});
    return out;
}

bool NORLEX_wellConstruction::addWorkElement(const workElement& e, bool announce) {
    if (const auto fault = ::faultOf(e); !fault.empty())
        return refuse(fault);
    return edit(
        [&] {
            return m_db->exec(sql(
                L"INSERT INTO construction (w_id, type, inner_d, outer_d, top_real, bot_real, text) VALUES (",
                key(m_wellId),
                L", ",
                key(e.type),
                L", ",
                number(e.inner_d),
                L", ",
                number(e.outer_d),
                L", ",
                number(e.top_real),
                L", ",
                number(e.bot_real),
                L", ",
                quotedName(e.text),
                L")"));
        },
        announce);
}

bool NORLEX_wellConstruction::removeWorkElement(std::int64_t id) {
    return edit([&] {
        return m_db->exec(sql(L"DELETE FROM construction WHERE w_id = ",
                              key(m_wellId),
                              L" AND id = ",
                              key(id)))
               && wellEdit::foundRow(*m_db, L"working element");
    });
}

bool NORLEX_wellConstruction::updateWorkElement(const workElement& e) {
    if (const auto fault = ::faultOf(e); !fault.empty())
        return refuse(fault);
    return edit([&] {
        return m_db->exec(sql(L"UPDATE construction SET type = ",
                              key(e.type),
                              L", inner_d = ",
                              number(e.inner_d),
                              L", outer_d = ",
                              number(e.outer_d),
                              L", top_real = ",
                              number(e.top_real),
                              L", bot_real = ",
                              number(e.bot_real),
                              L", text = ",
                              quotedName(e.text),
                              L" WHERE w_id = ",
                              key(m_wellId),
                              L" AND id = ",
                              key(e.id)))
               && wellEdit::foundRow(*m_db, L"working element");
    });
}

bool NORLEX_wellConstruction::clearWorkElements() {
    return edit(
        [&] { return m_db->exec(sql(L"DELETE FROM construction WHERE w_id = ", key(m_wellId))); });
}
