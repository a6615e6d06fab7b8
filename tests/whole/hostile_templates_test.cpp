// Hostile texts in templates and dictionaries.
#include "tests/whole/hostile_fixture.h"

namespace {

using sqlText::plainName;

class HostileTemplatesTest : public HostileTextTest {
protected:
    static constexpr std::size_t none = 0;
};

TEST_F(HostileTemplatesTest, keepTemplates) {
    tryAll({
        {"a template",
         plainName,
         [&](const auto& t) -> stored {
             if (!NORLEX_propTemplate::createFromType(
                     db(), NORLEX_dataTypeMarker, t, std::vector<NORLEX_fieldDescr>(), false)) {
                 EXPECT_FALSE(NORLEX_propTemplate::remove(db(), t));
                 return std::nullopt;
             }
             const auto name = NORLEX_propTemplate(db(), plainName(t)).getName();
             return NORLEX_propTemplate::remove(db(), plainName(t)) ? stored(name) : L"not removed";
         }},
        {"a template of a template",
         plainName,
         [&](const auto& t) -> stored {
             if (!NORLEX_propTemplate::createFromTemplate(
                     db(), target, t, std::vector<NORLEX_fieldDescr>(), false))
                 return std::nullopt;
             const auto name = NORLEX_propTemplate(db(), plainName(t)).getName();
             if (!NORLEX_propTemplate::isEqual(db(), target, name))
                 return L"not alike";
             return NORLEX_propTemplate::remove(db(), name) ? stored(name) : L"not removed";
         }},
        {"a template's new name",
         plainName,
         [&](const auto& t) -> stored {
             if (!NORLEX_propTemplate::rename(db(), target, t))
                 return std::nullopt;
             const auto name = NORLEX_propTemplate::getName(db(), wellId(), targetRows);
             return NORLEX_propTemplate::rename(db(), name, target) ? stored(name)
                                                                    : L"not renamed back";
         }},
        {"a field",
         plainName,
         [&](const auto& t) -> stored {
             NORLEX_propTemplate of(db(), target);
             if (!of.addField(t, NORLEX_fieldTypeString))
                 return std::nullopt;
             const auto name = of.getFieldList().back().name;
             return of.deleteField(name) ? stored(name) : L"not removed";
         }},
        {"a field's new name",
         plainName,
         [&](const auto& t) -> stored {
             NORLEX_propTemplate of(db(), target);
             if (!of.renameField(target, t))
                 return std::nullopt;
             const auto name = of.getFieldList().back().name;
             const auto inWell = well()->openProperty(targetRows)->getFields().back().name;
             return inWell == name && of.renameField(name, target) ? stored(name)
                                                                   : L"not renamed back";
         }},
        {"a field's short name",
         plainName,
         [&](const auto& t) -> stored {
             NORLEX_propTemplate of(db(), target);
             return of.setFieldShortName(target, t) ? stored(of.getFieldShortName(target))
                                                    : std::nullopt;
         }},
        {"a type",
         asGiven,
         [&](const auto& t) -> stored {
             NORLEX_propTemplate of(db(), target);
             return of.setDataTypeString(t) ? stored(t) : std::nullopt;
         },
         none},
        {"how a template is drawn",
         asGiven,
         [&](const auto& t) -> stored {
             NORLEX_propTemplate of(db(), target);
             if (!of.setBasicDrawType(NORLEX_drawTypeCurve, {{t, t}}))
                 return std::nullopt;
             const auto params =
                 NORLEX_propTemplate::getDrawTypeParamsFromString(of.getBasicDrawType());
             return params.size() == 1 && params.begin()->first == params.begin()->second
                        ? stored(params.begin()->first)
                        : L"not found";
         }},
    });
}

TEST_F(HostileTemplatesTest, keepDictionaries) {
    const auto id = [&](NORLEX_dictionary& of) { return of.getValueList().front().id; };
    tryAll({
        {"a dictionary",
         asGiven,
         [&](const auto& t) -> stored {
             if (!NORLEX_dictionary::create(db(), t)) {
                 EXPECT_FALSE(NORLEX_dictionary::deleteDict(db(), t));
                 return std::nullopt;
             }
             std::vector<std::wstring> names;
             NORLEX_dictionary::getList(db(), names);
             return NORLEX_dictionary::deleteDict(db(), t) ? stored(names.back()) : L"not removed";
         }},
        {"a dictionary's new name",
         asGiven,
         [&](const auto& t) -> stored {
             if (!NORLEX_dictionary::rename(db(), target, t))
                 return std::nullopt;
             const auto name = NORLEX_dictionary::getDictFromLink(db(), targetRows, target);
             return NORLEX_dictionary::rename(db(), t, target) ? stored(name) : L"not renamed back";
         }},
        {"an entry",
         plainName,
         [&](const auto& t) -> stored {
             NORLEX_dictionary of(db(), target);
             const auto before = of.getValueCount();
             if (!of.addValue(t, t))
                 return std::nullopt;
             const auto entry = NORLEX_dictionary(db(), target).getValueList().back();
             if (of.getValueCount() != before + 1 || of.getValueByCode(entry.code) != entry.code
                 || of.getCodeByValue(entry.value) != entry.value)
                 return entry.code.empty() ? L"" : L"not found";
             return of.deleteValue(entry.id) ? stored(entry.code) : L"not removed";
         }},
        {"a list of entries",
         plainName,
         [&](const auto& t) -> stored {
             NORLEX_dictionary of(db(), target);
             if (!of.importFromList({{std::pair(t, t)}}))
                 return std::nullopt;
             const auto entry = NORLEX_dictionary(db(), target).getValueList().back();
             return of.deleteValue(entry.id) ? stored(entry.value) : L"not removed";
         }},
        {"an entry's new code",
         asGiven,
         [&](const auto& t) -> stored {
             NORLEX_dictionary of(db(), target);
             if (!of.renameCode(id(of), t))
                 return std::nullopt;
             const auto code = NORLEX_dictionary::getCode(db(), of.getID(), target);
             return of.renameCode(id(of), target) ? stored(code) : L"not renamed back";
         }},
        {"an entry's new value",
         asGiven,
         [&](const auto& t) -> stored {
             NORLEX_dictionary of(db(), target);
             if (!of.renameValue(id(of), t))
                 return std::nullopt;
             const auto value = NORLEX_dictionary::getValue(db(), of.getID(), target);
             return of.renameValue(id(of), target) ? stored(value) : L"not renamed back";
         }},
        {"a binding of a field",
         asGiven,
         [&](const auto& t) -> stored {
             if (!NORLEX_dictionary::createLink(db(), {t, t}, t, target))
                 return std::nullopt;
             std::vector<NORLEX_dict_link> links;
             NORLEX_dictionary::getLinkList(db(), links);
             const auto link = NORLEX_dictionary::getLinkID(db(), t, t, t);
             if (NORLEX_dictionary::getDictFromLink(db(), {t, t}, t) != target
                 || !NORLEX_dictionary::updateLink(db(), link, target, L"g", t, L"f")
                 || !NORLEX_dictionary::deleteLink(db(), {t, L"g"}, L"f"))
                 return L"not found";
             const auto& one = links.back();
             return one.property == NORLEX_propDescription(t, t) ? stored(one.field) : L"not alike";
         }},
        {"a binding of a key",
         asGiven,
         [&](const auto& t) -> stored {
             if (t == target || !makeInfoKey(t)
                 || !NORLEX_dictionary::createInfoLink(db(), t, target))
                 return std::nullopt;
             std::vector<NORLEX_dict_infoLink> links;
             NORLEX_dictionary::getLinkList(db(), links);
             return NORLEX_dictionary::getDictFromLink(db(), t) == target
                            && NORLEX_dictionary::deleteInfoLink(db(), t)
                        ? stored(links.back().key)
                        : L"not found";
         }},
    });
}

// A value is shown by its field's dictionary, and stays as it was stored without an entry.
TEST_F(HostileTemplatesTest, codesAreShownAsTheyAre) {
    NORLEX_dictionary of(db(), target);
    for (const auto& code : hostile::parts()) {
        if (code.find(L'\'') != std::wstring::npos)
            continue;
        EXPECT_EQ(of.getShownValue(code), code) << shown(code);
        ASSERT_TRUE(of.addValue(code, L"value of " + code)) << lastError();
        EXPECT_EQ(of.getShownValue(code), L"value of " + code) << shown(code);
    }
    EXPECT_EQ(lost(), "");
}

} // namespace
