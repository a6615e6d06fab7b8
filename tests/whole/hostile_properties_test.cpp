// Hostile texts as names, fields, attributes and values of properties.
#include "tests/whole/hostile_fixture.h"

namespace {

using sqlText::plainName;

class HostilePropertiesTest : public HostileTextTest {
protected:
    // What a property keeps of its well while it is open.
    struct opened {
        std::unique_ptr<NORLEX_well> well;
        std::unique_ptr<NORLEX_wellProperty> property;
        NORLEX_wellProperty* operator->() const { return property.get(); }
    };
    [[nodiscard]] opened open(const NORLEX_propDescription& prop) const {
        opened out{well(), nullptr};
        out.property = out.well->openProperty(prop);
        return out;
    }

    // Makes a property by `make`, which is then found by the names, and removes it.
    [[nodiscard]] stored made(const NORLEX_propDescription& asked,
                              std::wstring NORLEX_propDescription::*part,
                              const std::function<bool(NORLEX_well&)>& make) const {
        const auto in = well();
        if (!make(*in)) {
            EXPECT_FALSE(in->removeProperty(asked));
            return std::nullopt;
        }
        const auto found = in->openProperty(asked);
        if (!found)
            return L"not found";
        const NORLEX_propDescription read{found->getName(), found->getGroup()};
        return in->removeProperty(asked) ? stored(read.*part) : L"not removed";
    }
    // One of a family: `make` gets the well and the names of the property to be made.
    [[nodiscard]] operation
    making(const char* name,
           const std::function<bool(NORLEX_well&, const NORLEX_propDescription&)>& make) const {
        return {name, plainName, [=, this](const auto& t) {
                    const NORLEX_propDescription asked{t, L"made"};
                    return made(asked, &NORLEX_propDescription::name, [&](NORLEX_well& in) {
                        return make(in, asked);
                    });
                }};
    }

    [[nodiscard]] stored renamed(const NORLEX_propDescription& from,
                                 const NORLEX_propDescription& to,
                                 std::wstring NORLEX_propDescription::*part) const {
        const auto in = well();
        if (!in->renameProperty(from, to))
            return std::nullopt;
        const auto read =
            NORLEX_wellProperty::getDescr(db(), NORLEX_wellProperty::getID(db(), in->getID(), to));
        return in->renameProperty(to, from) ? stored(read.*part) : L"not renamed back";
    }
};

TEST_F(HostilePropertiesTest, keepNames) {
    using names = NORLEX_propDescription;
    const std::vector<NORLEX_logSample> samples = {{1, -1, 7}, {2, -2, 8}};
    const auto log = [&](const names& asked) {
        return [&, asked](NORLEX_well& in) {
            return NORLEX_wellProperty::createLAS(db(), in.getID(), asked, L"", samples);
        };
    };
    tryAll({
        {"the name of a log",
         plainName,
         [&](const auto& t) {
             return made({t, L"G"}, &names::name, log({t, L"G"}));
         }},
        {"a group of logs",
         plainName,
         [&](const auto& t) {
             return made({L"log", t}, &names::group, log({L"log", t}));
         }},
        {"a log's new name",
         plainName,
         [&](const auto& t) {
             return renamed(targetLog, {t, L"logs"}, &names::name);
         }},
        {"a log's new group",
         plainName,
         [&](const auto& t) {
             return renamed(targetLog, {target, t}, &names::group);
         }},
        {"a group that a log is moved to",
         plainName,
         [&](const auto& t) -> stored {
             const auto in = well();
             if (!in->renamePropertyGroupLAS(targetLog, t))
                 return std::nullopt;
             std::vector<std::wstring> groups;
             in->getPropertyGroupList(groups);
             const auto group = plainName(t);
             const bool isListed = group.empty() || std::ranges::count(groups, group) == 1;
             return isListed && in->renamePropertyGroupLAS({target, t}, L"logs") ? stored(group)
                                                                                 : L"not found";
         }},
        {"new names of intervals",
         plainName,
         [&](const auto& t) {
             return renamed(targetRows, {t, t}, &names::name);
         }},
    });
}

TEST_F(HostilePropertiesTest, namesOfWhatIsMadeOfDataAreKept) {
    tryAll({
        making("intervals",
               [](auto& in, const auto& asked) {
                   return in.createProperty(NORLEX_dataTypeInterval, asked);
               }),
        making("of a template",
               [](auto& in, const auto& asked) {
                   return in.createPropertyFromTemplate(target, asked);
               }),
        making("many at once",
               [&](auto& in, const auto& asked) {
                   NORLEX_bulkRow row;
                   row.top = 1;
                   row.values = {asked.name, asked.name};
                   return NORLEX_wellProperty::createDataBulk(
                       db(), {{in.getID(), asked}}, {row}, NORLEX_dataTypeMarker);
               }),
        making("a copy",
               [&](auto& in, const auto& asked) {
                   return NORLEX_wellProperty::copy(db(),
                                                    in.getID(),
                                                    targetRows,
                                                    in.getID(),
                                                    asked,
                                                    NORLEX_db_prop_merge_skip,
                                                    NORLEX_dataDirectionMeasured);
               }),
        making("a data set",
               [&](auto& in, const auto& asked) {
                   return NORLEX_wellProperty::createSerialFromLAS(
                       db(), in.getID(), targetLog, asked);
               }),
        making("a filtered log",
               [](auto& in, const auto& asked) {
                   return in.windowFilter(targetLog, NORLEX_windowMean, 1, asked);
               }),
        making("crossings",
               [](auto& in, const auto& asked) {
                   return in.makeMarkerFromLAS(targetLog, 5.5, NORLEX_crossingBoth, asked);
               }),
        making("ore",
               [&](auto& in, const auto& asked) {
                   return NORLEX_wellProperty::createOreInterval(
                       db(), in.getID(), targetLog, L"", asked, {});
               }),
        making("velocities",
               [](auto& in, const auto& asked) {
                   // with the property the model goes
                   return in.VDMimport_fromPoints({{L"", -100, -50}, {L"", -200, -90}})
                          && in.VDMmakeIntervalVelocity(asked);
               }),
    });
}

TEST_F(HostilePropertiesTest, keepFieldsAndAttributes) {
    int keys = 0;
    tryAll({
        {"a comment",
         asGiven,
         [&](const auto& t) -> stored {
             return NORLEX_wellProperty::setComment(db(), open(targetRows)->getID(), t)
                        ? stored(open(targetRows)->getComment())
                        : std::nullopt;
         }},
        {"an attribute",
         asGiven,
         [&](const auto& t) -> stored {
             const auto of = open(targetRows);
             return of->setAttribute(L"key", t) ? stored(of->getAttribute(L"key")) : std::nullopt;
         }},
        {"a key",
         asGiven,
         [&](const auto& t) -> stored {
             const auto of = open(targetRows);
             if (!of->createAttribute(t, L"v"))
                 return std::nullopt;
             if (of->getAttribute(t) != L"v" || !of->updateAttribute(t, L"w")
                 || of->getAttributeKeyValueList().back() != std::pair(t, std::wstring(L"w")))
                 return L"not found";
             const auto key = of->getAttributeList().back();
             return of->updateKey(t, L"key " + std::to_wstring(++keys))
                            && of->getAttribute(t).empty()
                        ? stored(key)
                        : L"not renamed";
         }},
        {"a field",
         plainName,
         [&](const auto& t) -> stored {
             const auto of = open(targetRows);
             if (!of->createField(t, NORLEX_fieldTypeString, false))
                 return std::nullopt;
             const auto name = of->getFields().back().name;
             return of->removeField(t) ? stored(name) : L"not removed";
         }},
        {"a field with a statistic",
         plainName,
         [&](const auto& t) -> stored {
             const auto in = well();
             if (!in->calcAttributeToColumn(targetLog, targetRows, t, NORLEX_statisticMean))
                 return std::nullopt;
             const auto of = in->openProperty(targetRows);
             const auto name = of->getFields().back().name;
             return of->removeField(t) ? stored(name) : L"not removed";
         }},
    });
}

TEST_F(HostilePropertiesTest, keepValuesAndFiles) {
    const NORLEX_propDescription other{L"values", L"G"};
    ASSERT_TRUE(well()->createProperty(NORLEX_dataTypeMarker, other));
    tryAll({
        {"a value",
         plainName,
         [&](const auto& t) -> stored {
             return open(targetRows)->updateValue(0, 0, t)
                        ? stored(open(targetRows)->getValue(0, 0))
                        : std::nullopt;
         }},
        {"values of a record",
         plainName,
         [&](const auto& t) -> stored {
             const auto of = open(other);
             if (!of->createPointCommit(1, NORLEX_unknownDepth, {t, t}))
                 return std::nullopt;
             const auto again = open(other);
             const auto read = again->getValue(1, 0);
             return again->removeGeometry(again->getRecords().front().obj_id) ? stored(read)
                                                                              : L"not removed";
         }},
        {"values of many records",
         plainName,
         [&](const auto& t) -> stored {
             const auto of = open(other);
             if (!of->prepareBulk({1, 2}, {t, t}, NORLEX_dataDirectionMeasured))
                 return std::nullopt;
             const auto again = open(other);
             const auto read = again->getValue(0, 1);
             std::vector<std::int64_t> keys;
             for (const auto& record : again->getRecords())
                 keys.push_back(record.obj_id);
             return again->removeGeometryByID(keys) ? stored(read) : L"not removed";
         }},
        {"a comment of a file",
         plainName,
         [&](const auto& t) -> stored {
             const auto of = open(targetRows);
             const auto id = of->getRecords().front().obj_id;
             if (!of->setCommentLink(0, id, target, t))
                 return std::nullopt;
             const auto links = of->getLinks(0, id);
             return links.size() == 1 ? stored(links.front().comment) : L"not found";
         }},
        {"a file",
         plainName,
         [&](const auto& t) -> stored {
             const auto of = open(targetRows);
             const auto id = of->getRecords().front().obj_id;
             if (!of->setLink(1, id, t, t))
                 return std::nullopt;
             const auto links = of->getLinks(1, id);
             if (!of->delLink(1, id, t))
                 return L"not removed";
             return links.size() == 1 ? stored(links.front().file) : L"not found";
         }},
    });
}

TEST_F(HostilePropertiesTest, everyLogHasAFileOfItsOwnInTheFileDirectory) {
    const auto logs = [this] {
        const auto all = files::listTree(container->getFileContainerPath());
        return std::ranges::count_if(all,
                                     [](const auto& path) { return path.ends_with(L".wpdb"); });
    };
    const auto before = logs();
    auto expected = before;
    for (const auto& text : texts())
        if (NORLEX_wellProperty::createLAS(db(), wellId(), {text, text}, L"", {{1, -1, 7}}))
            ++expected;
    EXPECT_EQ(logs(), expected);
    EXPECT_GT(expected - before, std::ssize(texts()) * 3 / 4);
}

} // namespace
