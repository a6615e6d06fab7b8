#include "NORLEX_lasImport.h"

#include "NORLEX_lastError.h"
#include "exchange/las_file_import.h"
#include "odbc_database.h"
#include "platform/files.h"
#include "platform/last_error.h"

#include <future>
#include <memory>
#include <system_error>
#include <utility>

// A file that is read before it is asked for, and why it is refused.
struct NORLEX_lasImport::ahead {
    struct content {
        NORLEX_lasfileExt file;
        std::wstring error;
    };
    std::wstring path;
    std::future<content> reading;
};

NORLEX_lasImport::NORLEX_lasImport(odbc_database* db, NORLEX_lasImportOptions options)
    : m_db(db), m_options(std::move(options)) {}

NORLEX_lasImport::~NORLEX_lasImport() = default;

void NORLEX_lasImport::readAhead(const std::wstring& path) {
    constexpr std::uint64_t smallEnough = 16U << 20; // two large files would need twice the memory
    if (files::size(path).value_or(smallEnough) >= smallEnough)
        return;
    m_ahead = std::make_unique<ahead>();
    m_ahead->path = path;
    const auto readWhole = [path, encoding = m_options.encoding] {
        refuse({});
        NORLEX_lasfileExt file(path, false, encoding);
        return ahead::content{std::move(file), NORLEX_lastError()};
    };
    try {
        m_ahead->reading = std::async(std::launch::async, readWhole);
    } catch (const std::system_error&) {
        m_ahead.reset(); // no more threads: it is read when its turn comes
    }
}

NORLEX_lasfileExt NORLEX_lasImport::read(const std::wstring& path) {
    const auto known = m_ahead && m_ahead->path == path ? std::move(m_ahead) : nullptr;
    if (!known)
        return {path, false, m_options.encoding};
    auto content = known->reading.get();
    refuse(content.error);
    return std::move(content.file);
}

// Once for all files: a container may hold as many wells as there are files.
bool NORLEX_lasImport::readLetters() {
    if (m_options.match != NORLEX_wellMatch::letters || m_letters)
        return true;
    auto wells = std::make_unique<wellIndex>();
    if (!wells->readLetters(*m_db, m_options.workObject, m_options.field))
        return false;
    m_letters = std::move(wells);
    return true;
}

NORLEX_lasImportResult NORLEX_lasImport::importFile(const std::wstring& path) {
    return importFile(path, {});
}

NORLEX_lasImportResult NORLEX_lasImport::importFile(const std::wstring& path,
                                                    const std::wstring& next) {
    NORLEX_lasImportResult result;
    if (!m_types)
        m_types = std::make_unique<curveTypes>();
    refuse({}); // so that the line found afterwards is of this file
    if (m_db == nullptr) {
        refuse(L"cannot import " + path + L": no database is open");
    } else {
        auto file = read(path);
        if (!next.empty())
            readAhead(next);
        result.ok =
            readLetters()
            && las_file_import(
                   *m_db, m_options, path, result, std::move(file), m_letters.get(), *m_types)
                   .run();
        if (result.ok && result.wellCreated && !m_options.dryRun && m_letters)
            m_letters->add(lettersOf(result.well.name), result.well);
        shrinkMemory();
    }
    if (result.ok)
        return result;
    result.created = 0;
    result.error = NORLEX_lastError();
    if (result.error.empty())
        result.error = L"cannot import " + path + L": " + (m_db ? m_db->last_error() : L"");
    return result;
}

// The engine keeps every page that it has written, up to the size that the container sets. An
// import of thousands of files would grow by as much as it stores, and reads none of it again.
void NORLEX_lasImport::shrinkMemory() {
    constexpr unsigned filesBetween = 100;
    if (++m_files % filesBetween == 0 && !m_db->is_server() && !m_db->in_transaction())
        static_cast<void>(m_db->exec(L"PRAGMA shrink_memory")); // without it, more memory is used
}
