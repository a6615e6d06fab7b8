// Properties as a whole: made, removed, renamed, copied, their fields and attributes.
#include "NORLEX_propTemplate.h"
#include "fuzz/container/steps.h"
#include "odbc_database.h"
#include "platform/sql_text.h"

#include <algorithm>
#include <utility>

namespace fuzzContainer {

namespace {

void requireMade(bool done, const NORLEX_well& well, const NORLEX_propDescription& prop) {
    require(!done || well.isPropertyExist(prop), "a new property is not there");
}

outcome create(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        const auto type = static_cast<NORLEX_dataType>(by.below(13));
        const auto prop = by.newProperty();
        const bool isThere = well.isPropertyExist(prop);
        const bool done = well.createProperty(type, prop);
        require(!done || !isThere, "a property was made twice");
        requireMade(done, well, prop);
        return done;
    });
}

outcome createFromTemplate(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        const auto name = by.oneOf(NORLEX_propTemplate::getTemplateList(at.db()));
        const auto prop = by.newProperty();
        const bool done = well.createPropertyFromTemplate(name, prop);
        requireMade(done, well, prop);
        return done;
    });
}

outcome remove(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        const auto prop = by.property(well);
        const bool done = well.removeProperty(prop);
        require(!done || !well.isPropertyExist(prop), "a removed property is there");
        return done;
    });
}

outcome rename(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        const auto prop = by.property(well), target = by.newProperty();
        const auto id = NORLEX_wellProperty::getID(at.db(), well.getID(), prop);
        const bool done = well.renameProperty(prop, target);
        require(!done || NORLEX_wellProperty::getID(at.db(), well.getID(), target) == id,
                "a renamed property has not its new name");
        return done;
    });
}

outcome renameGroup(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        const auto prop = by.property(well, kind::log);
        const auto group = by.name();
        const bool done = well.renamePropertyGroupLAS(prop, group);
        requireMade(done, well, {prop.name, group});
        return done;
    });
}

outcome copy(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        const auto prop = by.property(well);
        const auto to = NORLEX_well::getID(at.db(), by.well(at.db()));
        const bool replace = by.flag();
        return NORLEX_wellProperty::copy(at.db(),
                                         well.getID(),
                                         to,
                                         prop,
                                         replace,
                                         static_cast<NORLEX_dataDirection>(by.below(2)));
    });
}

outcome copyAs(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        const auto prop = by.property(well);
        NORLEX_well to(at.db(), by.well(at.db()));
        if (!to.isOK())
            return false;
        const auto target = by.flag() ? by.newProperty() : by.property(to);
        const auto merge = static_cast<NORLEX_db_prop_merge>(by.below(3));
        const bool done = NORLEX_wellProperty::copy(at.db(),
                                                    well.getID(),
                                                    prop,
                                                    to.getID(),
                                                    target,
                                                    merge,
                                                    static_cast<NORLEX_dataDirection>(by.below(2)));
        requireMade(done, to, target);
        return done;
    });
}

outcome createField(world& at, choices& by) {
    return onProperty(at, by, [&](NORLEX_well&, NORLEX_wellProperty& property) {
        const auto name = by.name();
        const auto count = property.getFields().size();
        const bool done = property.createField(
            name, static_cast<NORLEX_fieldType>(by.below(8)), at.announced(by.flag()));
        require(property.getFields().size() == count + (done ? 1 : 0), "fields do not count up");
        return done;
    });
}

outcome removeField(world& at, choices& by) {
    return onProperty(at, by, [&](NORLEX_well&, NORLEX_wellProperty& property) {
        std::vector<std::wstring> names;
        for (const auto& field : property.getFields())
            names.push_back(field.name);
        const bool done = property.removeField(by.oneOf(names));
        require(property.getFields().size() + (done ? 1 : 0) == names.size(),
                "fields do not count down");
        return done;
    });
}

outcome setAttribute(world& at, choices& by) {
    return onProperty(at, by, [&](NORLEX_well&, NORLEX_wellProperty& property) {
        const auto key = by.name(), value = by.text();
        bool done = false;
        switch (by.below(3)) {
        case 0:
            done = property.setAttribute(key, value);
            break;
        case 1:
            done = property.createAttribute(key, value);
            break;
        default:
            done = property.updateAttribute(key, value);
        }
        require(!done || property.getAttribute(key) == value, "an attribute reads otherwise");
        return done;
    });
}

outcome renameAttribute(world& at, choices& by) {
    return onProperty(at, by, [&](NORLEX_well&, NORLEX_wellProperty& property) {
        const auto key = by.oneOf(property.getAttributeList());
        return property.updateKey(key, by.name());
    });
}

outcome setComment(world& at, choices& by) {
    return onProperty(at, by, [&](NORLEX_well&, NORLEX_wellProperty& property) {
        return NORLEX_wellProperty::setComment(at.db(), property.getID(), by.text());
    });
}

outcome removeOpen(world& at, choices& by) {
    return onProperty(at, by, [&](NORLEX_well& well, NORLEX_wellProperty& property) {
        const NORLEX_propDescription prop(property.getName(), property.getGroup());
        const bool done = at.announced(by.flag())
                              ? property.remove()
                              : NORLEX_wellProperty::removeSilent(at.db(), well.getID(), prop);
        require(!done || !well.isPropertyExist(prop), "a removed property is there");
        return done;
    });
}

constexpr step steps[] = {{L"properties.create", create},
                          {L"properties.createFromTemplate", createFromTemplate},
                          {L"properties.remove", remove},
                          {L"properties.rename", rename},
                          {L"properties.renameGroup", renameGroup},
                          {L"properties.copy", copy},
                          {L"properties.copyAs", copyAs},
                          {L"properties.createField", createField},
                          {L"properties.removeField", removeField},
                          {L"properties.setAttribute", setAttribute},
                          {L"properties.renameAttribute", renameAttribute},
                          {L"properties.setComment", setComment},
                          {L"properties.removeOpen", removeOpen}};

} // namespace

std::span<const step> propertySteps() {
    return steps;
}

} // namespace fuzzContainer
