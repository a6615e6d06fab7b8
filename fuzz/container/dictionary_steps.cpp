// Dictionaries, their entries, and what is bound to them.
#include "NORLEX_dictionary.h"
#include "NORLEX_tableColumns.h"
#include "fuzz/container/steps.h"
#include "odbc_database.h"
#include "platform/sql_text.h"

#include <vector>

namespace fuzzContainer {

namespace {

std::wstring oneDictionary(world& at, choices& by) {
    std::vector<std::wstring> names;
    NORLEX_dictionary::getList(at.db(), names);
    return by.oneOf(names);
}

outcome createDictionary(world& at, choices& by) {
    const auto name = by.name();
    const bool done = NORLEX_dictionary::create(at.db(), name);
    require(!done || NORLEX_dictionary::isExist(at.db(), name), "a new dictionary is not there");
    return of(done);
}

outcome renameDictionary(world& at, choices& by) {
    const auto name = oneDictionary(at, by), target = by.name();
    const auto id = NORLEX_dictionary::getDictID(at.db(), name);
    const bool done = NORLEX_dictionary::rename(at.db(), name, target);
    require(!done || NORLEX_dictionary::getDictID(at.db(), target) == id,
            "a renamed dictionary has not its new name");
    return of(done);
}

outcome deleteDictionary(world& at, choices& by) {
    const auto name = oneDictionary(at, by);
    const bool done = NORLEX_dictionary::deleteDict(at.db(), name);
    require(!done || !NORLEX_dictionary::isExist(at.db(), name), "a removed dictionary is there");
    return of(done);
}

outcome addEntry(world& at, choices& by) {
    NORLEX_dictionary dict(at.db(), oneDictionary(at, by));
    const auto code = by.text(), value = by.text();
    const bool isThere = !dict.getValueByCode(sqlText::plainName(code)).empty();
    const bool done = dict.addValue(code, value);
    require(!done || isThere || code.empty()
                || dict.getValueByCode(sqlText::plainName(code)) == sqlText::plainName(value),
            "an entry reads otherwise");
    return of(done);
}

outcome editEntry(world& at, choices& by) {
    NORLEX_dictionary dict(at.db(), oneDictionary(at, by));
    const auto& entries = dict.getValueList();
    const std::uint32_t id = entries.empty() ? 1 : entries[by.below(entries.size())].id;
    switch (by.below(4)) {
    case 0:
        return of(dict.renameValue(id, by.text()));
    case 1:
        return of(dict.renameCode(id, by.text()));
    case 2:
        return of(dict.deleteValue(id));
    default:
        return of(dict.swapData());
    }
}

// Written as a text and read into a new dictionary, the entries are the same.
outcome exportEntries(world& at, choices& by) {
    const NORLEX_dictionary dict(at.db(), oneDictionary(at, by));
    const auto path = at.scratch(L"dictionary.txt");
    if (!dict.isOK() || !dict.exportToText(path))
        return outcome::asked;
    NORLEX_dictionary target(at.db(), oneDictionary(at, by));
    NORLEX_tableReport report;
    return of(target.isOK() && target.importFromText(path, {}, 1, 2, report));
}

outcome bind(world& at, choices& by) {
    const NORLEX_well well(at.db(), by.well(at.db()));
    const auto prop = by.property(well);
    const auto field = by.name();
    if (by.flag())
        return of(NORLEX_dictionary::deleteLink(at.db(), prop, field));
    const bool done = NORLEX_dictionary::createLink(at.db(), prop, field, oneDictionary(at, by));
    require(!done || NORLEX_dictionary::isLinkExist(at.db(), prop, field),
            "a binding is not there");
    return of(done);
}

outcome bindKey(world& at, choices& by) {
    const auto key = by.name();
    switch (by.below(3)) {
    case 0:
        return of(NORLEX_dictionary::createInfoLink(at.db(), key, oneDictionary(at, by)));
    case 1:
        return of(NORLEX_dictionary::updateInfoLink(at.db(), key, oneDictionary(at, by)));
    default:
        return of(NORLEX_dictionary::deleteInfoLink(at.db(), key));
    }
}

outcome askShown(world& at, choices& by) {
    NORLEX_well well(at.db(), by.well(at.db()));
    const auto property = well.openProperty(by.property(well));
    if (!property)
        return outcome::asked;
    static_cast<void>(property->getShownValue(by.below(3), 0));
    const auto dict = property->getFieldDictionary(by.below(3));
    require(!dict || dict->isOK() || at.isInTransaction(), "a bound dictionary is not open");
    return outcome::asked;
}

constexpr step steps[] = {{L"dictionaries.create", createDictionary},
                          {L"dictionaries.rename", renameDictionary},
                          {L"dictionaries.delete", deleteDictionary},
                          {L"dictionaries.addEntry", addEntry},
                          {L"dictionaries.editEntry", editEntry},
                          {L"dictionaries.exportEntries", exportEntries},
                          {L"dictionaries.bind", bind},
                          {L"dictionaries.bindKey", bindKey},
                          {L"dictionaries.askShown", askShown}};

} // namespace

std::span<const step> dictionarySteps() {
    return steps;
}

} // namespace fuzzContainer
