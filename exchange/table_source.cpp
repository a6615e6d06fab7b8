#include "exchange/table_source.h"

#include "NORLEX_lastError.h"
#include "odbc_database.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "wells/table_rows.h"

namespace {

constexpr std::uint64_t rowsBetweenLooks = 1024;

std::wstring quote(const std::wstring& text) {
    return L"\"" + text + L"\"";
}

} // namespace

std::wstring tableRW::failure(const odbc_database* db, const std::wstring& path) {
    if (NORLEX_lastError().empty())
        refuse(L"cannot import " + path + L": " + (db != nullptr ? db->last_error() : L""));
    return NORLEX_lastError();
}

bool tableSource::open(const tableRW::tableOptions& format, bool hasHeader) {
    if (!m_reader.open(m_path, format))
        return false;
    if (!m_header.read(m_reader, hasHeader))
        return false;
    m_size = files::size(m_path).value_or(0);
    m_progress.emplace(m_path, m_size);
    return true;
}

bool tableSource::next(std::vector<std::wstring>& cells) {
    if (m_reader.rowNumber() >= m_nextLook) {
        m_nextLook = m_reader.rowNumber() + rowsBetweenLooks;
        m_progress->advance(m_size - std::min(m_size, m_reader.bytesLeft()));
        m_isStopped = m_progress->isStopped();
        if (m_isStopped)
            return refuse(L"the import of " + m_path + L" was stopped; nothing was written");
    }
    return m_reader.next(cells);
}

void tableSource::addError(NORLEX_tableReport& report, std::wstring reason) const {
    tableRows::addError(report, m_reader.rowNumber(), m_reader.lineNumber(), std::move(reason));
}

bool tableSource::judge(const NORLEX_tableReport& report, bool keepGoodRows) const {
    if (report.rows == 0)
        return refuse(L"the table " + quote(m_path) + L" has no rows of data");
    if (report.badCount == 0 || (keepGoodRows && report.taken + report.passedOver > 0))
        return true;
    const auto& first = report.errors.front();
    return refuse(std::to_wstring(report.badCount) + L" of " + std::to_wstring(report.rows)
                  + L" rows of " + quote(m_path) + L" cannot be taken, the first is row "
                  + std::to_wstring(first.row) + L" (line " + std::to_wstring(first.line) + L"): "
                  + first.reason);
}
