// Hostile texts as names, attributes and records of wells.
#include "tests/whole/hostile_fixture.h"

#include "globalEventObserver.h"
#include "store/well_path.h"

namespace {

using sqlText::plainName;

class HostileWellsTest : public HostileTextTest {
protected:
    // Made, read by its key and removed by its names.
    [[nodiscard]] stored madeWell(const NORLEX_wellDescription& asked,
                                  std::wstring NORLEX_wellDescription::*part) const {
        if (!NORLEX_well::create(db(), asked)) {
            EXPECT_FALSE(NORLEX_well::isExist(db(), asked));
            EXPECT_FALSE(NORLEX_well::remove(db(), asked));
            return std::nullopt;
        }
        const auto made = NORLEX_well::getDescription(db(), NORLEX_well::getID(db(), asked));
        return NORLEX_well::remove(db(), asked) ? stored(made.*part) : L"not removed";
    }

    // The target by other names, and back.
    [[nodiscard]] stored renamed(const NORLEX_wellDescription& asked,
                                 std::wstring NORLEX_wellDescription::*part) const {
        const auto open = well();
        if (!open->rename(asked))
            return std::nullopt;
        const auto now = NORLEX_well(db(), asked).getDescription();
        return open->rename(targetWell) ? stored(now.*part) : L"not renamed back";
    }
};

TEST_F(HostileWellsTest, keepNames) {
    using names = NORLEX_wellDescription;
    tryAll({
        {"the name of a well",
         plainName,
         [&](const auto& t) {
             return madeWell({L"O", L"F", t, 0}, &names::name);
         }},
        {"a field",
         plainName,
         [&](const auto& t) {
             return madeWell({L"O", t, L"w", 0}, &names::field);
         }},
        {"a work object",
         plainName,
         [&](const auto& t) {
             return madeWell({t, L"F", L"w", 0}, &names::workObject);
         }},
        {"a well's new name",
         plainName,
         [&](const auto& t) {
             return renamed({target, target, t, 0}, &names::name);
         }},
        {"a well's new field",
         plainName,
         [&](const auto& t) {
             return renamed({target, t, target, 0}, &names::field);
         }},
        {"a well's new names",
         plainName,
         [&](const auto& t) {
             return renamed({t, t, t, 0}, &names::workObject);
         }},
    });
}

TEST_F(HostileWellsTest, keepAttributes) {
    tryAll({
        {"a well's attribute",
         asGiven,
         [&](const auto& t) -> stored {
             const auto open = well();
             if (!open->setAttribute(L"key", t))
                 return std::nullopt;
             if (NORLEX_well::getObjectList(db(), L"key", t)
                 != std::vector<std::uint32_t>{open->getID()})
                 return L"not found by it";
             return open->getAttribute(L"key");
         }},
        {"a key of a well's attribute",
         asGiven,
         [&](const auto& t) -> stored {
             const auto open = well();
             if (!open->setAttribute(t, L"value"))
                 return std::nullopt;
             const auto all = open->getDistinctLasMeta();
             const auto found = std::ranges::find_if(
                 all, [&](const auto& entry) { return entry.key == t && entry.value == L"value"; });
             return found == all.end()                  ? L"not listed"
                    : open->getAttribute(t) == L"value" ? stored(found->key)
                                                        : L"not found";
         }},
        {"the projection",
         asGiven,
         [&](const auto& t) -> stored {
             const auto before = container->getProjection();
             if (!container->setProjection(t))
                 return std::nullopt;
             const auto read = container->getProjection();
             return container->setProjection(before) ? stored(read) : L"not set back";
         }},
    });
}

TEST_F(HostileWellsTest, keepConstructionAndDrilling) {
    const auto all = [](const std::initializer_list<std::wstring>& texts) {
        const auto& first = *texts.begin();
        return std::ranges::all_of(texts, [&](const auto& text) { return text == first; })
                   ? stored(first)
                   : L"not alike";
    };
    tryAll({
        {"a comment of a section",
         plainName,
         [&](const auto& t) -> stored {
             NORLEX_wellConstruction of(db(), wellId());
             auto element = of.getElementList().front();
             element.comment = t;
             if (!of.updateElement(element))
                 return std::nullopt;
             const auto updated = of.getElementList().front().comment;
             if (!of.clearConstruction() || !of.addElement(element, false))
                 return L"not added";
             return all({updated, of.getElementList().front().comment});
         }},
        {"a text of a working element",
         plainName,
         [&](const auto& t) -> stored {
             NORLEX_wellConstruction of(db(), wellId());
             auto element = of.getWorkElementList().front();
             element.text = t;
             if (!of.updateWorkElement(element))
                 return std::nullopt;
             const auto updated = of.getWorkElementList().front().text;
             if (!of.clearWorkElements() || !of.addWorkElement(element, false))
                 return L"not added";
             return all({updated, of.getWorkElementList().front().text});
         }},
        {"the texts of a run",
         plainName,
         [&](const auto& t) -> stored {
             NORLEX_wellDrilling of(db(), wellId());
             const auto id = of.getElementList().front().u_id;
             if (!of.updateElement({t, t, t, t, 0, 10, t, t, t, id}))
                 return std::nullopt;
             if (!of.removeElement(id) || !of.addElement({t, t, t, t, 0, 10, t, t, t, 0}, false))
                 return L"not added";
             const auto run = of.getElementList().front();
             return all(
                 {run.date, run.smena, run.diametr, run.materials, run.kern, run.ugol, run.others});
         }},
        {"the header of the drilling record",
         plainName,
         [&](const auto& t) -> stored {
             NORLEX_wellDrilling of(db(), wellId());
             if (!of.setDrillingType(t) || !of.setDrillingRig(t) || !of.setDrillingDocAuther(t)
                 || !of.setDrillingDocChecker(t))
                 return std::nullopt;
             return all({of.getDrillingType(),
                         of.getDrillingRig(),
                         of.getDrillingDocAuther(),
                         of.getDrillingDocChecker()});
         }},
        {"people",
         plainName,
         [&](const auto& t) -> stored {
             NORLEX_wellDrilling of(db(), wellId());
             if (!of.addExecutor({t, t}, false))
                 return std::nullopt;
             if (!of.updateExecutor({t, t}, {L"b" + t, t}) || of.isExecutorExist({t, t})
                 || !of.updateExecutor({L"b" + t, t}, {t, t}) || !of.isExecutorExist({t, t}))
                 return L"not found";
             const auto people = of.getExecutorList();
             const auto& one = people.front().name == target ? people.back() : people.front();
             if (!of.removeExecutor({t, t}) || of.getExecutorCount() != 1)
                 return L"not removed";
             return all({one.name, one.position});
         }},
    });
}

// Lists of keys come as texts: what is no list of numbers must not become part of a statement.
TEST_F(HostileWellsTest, areNoListsOfKeys) {
    for (const auto& text : texts()) {
        if (text.find_first_not_of(L"0123456789, ") == std::wstring::npos)
            continue;
        refuse(L"");
        EXPECT_FALSE(container->updateEditTimeWell(text)) << shown(text);
        EXPECT_NE(NORLEX_lastError(), L"") << shown(text);
        EXPECT_FALSE(container->updateEditTimeProp(text, target, target)) << shown(text);
        EXPECT_FALSE(NORLEX_wellVDM::isExistEny(db(), text)) << shown(text);
    }
    EXPECT_EQ(lost(), "");
}

TEST_F(HostileWellsTest, areAnnouncedAndNotedAsTheyAreStored) {
    std::vector<eventMsgDescription> heard;
    const auto ear = std::make_shared<globalEventObserver::callback>(
        [&](const auto& message) { heard.push_back(message); });
    globalEventObserver::Instance().subscribe(ear);
    for (const auto& text : hostile::parts()) {
        const NORLEX_wellDescription asked{L"O", L"F", text, 0};
        heard.clear();
        if (!NORLEX_well::create(db(), asked))
            continue;
        ASSERT_FALSE(heard.empty()) << shown(text);
        EXPECT_EQ(heard.front().well.name, plainName(text));
        const auto lines = journal::read(*db());
        EXPECT_NE(lines.back().comment.find(plainName(text)), std::wstring::npos) << shown(text);
    }
}

TEST_F(HostileWellsTest, attachedFilesStayInTheWellsFolder) {
    const auto open = well();
    const auto folderOfWell = files::native(NORLEX_getWellPath(db(), wellId()));
    for (const auto& text : texts()) {
        const std::wstring path = open->getFileName(text);
        const auto name = files::native(path).lexically_normal().lexically_relative(folderOfWell);
        EXPECT_EQ(std::distance(name.begin(), name.end()), 1) << shown(text) << " -> " << name;
        EXPECT_NE(name, "..") << shown(text);
    }
}

} // namespace
