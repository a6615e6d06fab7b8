// Templates and their fields.
#include "NORLEX_propTemplate.h"
#include "fuzz/container/steps.h"
#include "odbc_database.h"
#include "platform/sql_text.h"

#include <vector>

namespace fuzzContainer {

namespace {

std::wstring oneTemplate(world& at, choices& by) {
    return by.oneOf(NORLEX_propTemplate::getTemplateList(at.db()));
}

std::vector<NORLEX_fieldDescr> newFields(choices& by) {
    std::vector<NORLEX_fieldDescr> fields(by.below(3));
    for (auto& field : fields) {
        field.name = by.name();
        field.type = static_cast<NORLEX_fieldType>(by.below(8));
    }
    return fields;
}

void requireTemplate(world& at, bool done, const std::wstring& name) {
    require(!done || NORLEX_propTemplate::isExist(at.db(), name)
                || NORLEX_propTemplate::isExist(at.db(), sqlText::plainName(name)),
            "a new template is not there");
}

outcome createFromType(world& at, choices& by) {
    const auto type = static_cast<NORLEX_dataType>(by.below(13));
    const auto name = by.name();
    const auto fields = newFields(by);
    const bool done = NORLEX_propTemplate::createFromType(at.db(), type, name, fields, by.flag());
    requireTemplate(at, done, name);
    return of(done);
}

outcome createFromTemplate(world& at, choices& by) {
    const auto source = oneTemplate(at, by), name = by.name();
    const auto fields = newFields(by);
    const bool done =
        NORLEX_propTemplate::createFromTemplate(at.db(), source, name, fields, by.flag());
    requireTemplate(at, done, name);
    return of(done);
}

outcome remove(world& at, choices& by) {
    const auto name = oneTemplate(at, by);
    const auto used = NORLEX_propTemplate::getNumWellsWithProps(at.db(), name);
    const bool done = NORLEX_propTemplate::remove(at.db(), name);
    require(!done || (used == 0 && !NORLEX_propTemplate::isExist(at.db(), name)),
            "a template was removed that is used, or is there");
    return of(done);
}

outcome rename(world& at, choices& by) {
    const auto name = oneTemplate(at, by), target = by.name();
    const bool done = NORLEX_propTemplate::rename(at.db(), name, target);
    requireTemplate(at, done, target);
    return of(done);
}

outcome createType(world& at, choices& by) {
    return of(NORLEX_propTemplate::createType(at.db(), static_cast<NORLEX_dataType>(by.below(13))));
}

template <typename Run>
outcome onTemplate(world& at, choices& by, const Run& run) {
    NORLEX_propTemplate opened(at.db(), oneTemplate(at, by));
    return of(opened.isOK() && run(opened));
}

std::wstring oneField(const NORLEX_propTemplate& of, choices& by) {
    std::vector<std::wstring> names;
    for (const auto& field : of.getFieldList())
        names.push_back(field.name);
    return by.oneOf(names);
}

outcome addField(world& at, choices& by) {
    return onTemplate(at, by, [&](NORLEX_propTemplate& opened) {
        NORLEX_fieldDescr field;
        field.name = by.name();
        field.type = static_cast<NORLEX_fieldType>(by.below(8));
        field.short_name = by.text();
        field.prec = static_cast<int>(by.below(20)) - 2;
        const int before = opened.getFieldCount();
        const bool done = opened.addField(field, at.announced(by.flag()));
        require(opened.getFieldCount() == before + (done ? 1 : 0), "fields do not count up");
        return done;
    });
}

outcome deleteField(world& at, choices& by) {
    return onTemplate(at, by, [&](NORLEX_propTemplate& opened) {
        const int before = opened.getFieldCount();
        const bool done = opened.deleteField(oneField(opened, by));
        require(opened.getFieldCount() == before - (done ? 1 : 0), "fields do not count down");
        return done;
    });
}

outcome renameField(world& at, choices& by) {
    return onTemplate(at, by, [&](NORLEX_propTemplate& opened) {
        const auto field = oneField(opened, by), target = by.name();
        const bool done = opened.renameField(field, target);
        require(!done || opened.isFieldExist(sqlText::plainName(target)),
                "a renamed field has not its new name");
        return done;
    });
}

outcome changeField(world& at, choices& by) {
    return onTemplate(at, by, [&](NORLEX_propTemplate& opened) {
        const auto field = oneField(opened, by);
        switch (by.below(3)) {
        case 0:
            return opened.changeFieldType(field, static_cast<NORLEX_fieldType>(by.below(8)));
        case 1:
            return opened.setFieldPrecision(field, static_cast<int>(by.below(20)) - 2);
        default:
            return opened.setFieldShortName(field, by.text());
        }
    });
}

outcome changeType(world& at, choices& by) {
    return onTemplate(at, by, [&](NORLEX_propTemplate& opened) {
        const auto type = static_cast<NORLEX_dataType>(by.below(13));
        return opened.setDataTypeString(getDataTypeEnum(type));
    });
}

outcome setDrawType(world& at, choices& by) {
    return onTemplate(at, by, [&](NORLEX_propTemplate& opened) {
        NORLEX_drawParams params;
        const auto key = by.name();
        params[key] = by.text();
        return opened.setBasicDrawType(static_cast<NORLEX_drawType>(by.below(8)), params);
    });
}

outcome checkNumbers(world& at, choices& by) {
    const NORLEX_propTemplate opened(at.db(), oneTemplate(at, by));
    std::wstring message;
    const auto field = oneField(opened, by);
    require(opened.checkNumericFldData(field, message) || at.isInTransaction() || !message.empty()
                || !opened.isFieldExist(field),
            "values are no numbers, and nothing is said");
    static_cast<void>(opened.numValues(field));
    return outcome::asked;
}

constexpr step steps[] = {{L"templates.createFromType", createFromType},
                          {L"templates.createFromTemplate", createFromTemplate},
                          {L"templates.remove", remove},
                          {L"templates.rename", rename},
                          {L"templates.createType", createType},
                          {L"templates.addField", addField},
                          {L"templates.deleteField", deleteField},
                          {L"templates.renameField", renameField},
                          {L"templates.changeField", changeField},
                          {L"templates.changeType", changeType},
                          {L"templates.setDrawType", setDrawType},
                          {L"templates.checkNumbers", checkNumbers}};

} // namespace

std::span<const step> templateSteps() {
    return steps;
}

} // namespace fuzzContainer
