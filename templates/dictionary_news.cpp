#include "templates/dictionary_news.h"

#include "globalEventObserver.h"
#include "odbc_database.h"
#include "store/journal.h"

namespace dictionaryNews {

void data(odbc_database& db, const std::wstring& dictionary) {
    db.after_commit([path = db.get_identity(), dictionary] {
        globalEventObserver::Instance().updateDictionaryData(path, dictionary);
    });
}

void link(odbc_database& db,
          const NORLEX_propDescription& prop,
          const std::wstring& field,
          const std::wstring& dictionary) {
    db.after_commit([path = db.get_identity(), prop, field, dictionary] {
        globalEventObserver::Instance().updateDictionary(path, prop, field, dictionary);
    });
}

void infoKey(odbc_database& db, const std::wstring& key) {
    db.after_commit([path = db.get_identity(), key] {
        globalEventObserver::Instance().updateWellMetaAll(path, key);
    });
}

void note(odbc_database& db, int action, const std::wstring& comment) {
    journal::add(db, eventKind::dictionary, action, comment);
}

std::wstring shown(const NORLEX_propDescription& prop, const std::wstring& field) {
    return (prop.group.empty() ? L"" : prop.group + L"/") + prop.name + L": " + field;
}

} // namespace dictionaryNews
