// Records of points and intervals: written, changed, removed.
#include "fuzz/container/steps.h"
#include "odbc_database.h"
#include "platform/sql_text.h"

#include <algorithm>
#include <vector>

namespace fuzzContainer {

namespace {

template <typename Run>
outcome onRows(world& at, choices& by, const Run& run) {
    return onProperty(at, by, run, by.below(8) == 0 ? kind::any : kind::rows);
}

// Without the apostrophes, which no value keeps.
std::vector<std::wstring> plain(std::vector<std::wstring> values) {
    for (auto& value : values)
        value = sqlText::plainName(value);
    return values;
}

bool holds(NORLEX_wellProperty& property, const std::vector<std::wstring>& values) {
    const std::vector<std::wstring> wanted = plain(values);
    for (std::size_t record = 0; record < property.getRecords().size(); ++record) {
        std::size_t same = 0;
        while (same < wanted.size() && property.getValue(same, record) == wanted[same])
            ++same;
        if (same == wanted.size())
            return true;
    }
    return false;
}

NORLEX_bulkRow newRow(choices& by, std::size_t fields) {
    NORLEX_bulkRow row;
    if (by.flag()) {
        row.top = by.depth();
        row.bot = row.top + by.depth();
    } else {
        row.top = by.number();
        row.bot = by.number();
        row.topAbs = by.number();
        row.botAbs = by.number();
    }
    row.values.resize(fields);
    for (auto& value : row.values)
        value = by.text();
    return row;
}

// Written rows are there for whoever opens the property anew.
bool written(bool done,
             NORLEX_well& well,
             NORLEX_wellProperty& property,
             std::uint64_t before,
             const std::vector<NORLEX_bulkRow>& rows) {
    const auto again = well.openProperty({property.getName(), property.getGroup()});
    require(again != nullptr, "a property that is open is not there");
    require(property.getRecordCount() == before + (done ? rows.size() : 0)
                && again->getRecordCount() == property.getRecordCount(),
            "records do not count up");
    for (const auto& row : rows)
        require(!done || holds(*again, row.values), "a record is not there");
    return done;
}

outcome add(world& at, choices& by) {
    return onRows(at, by, [&](NORLEX_well& well, NORLEX_wellProperty& property) {
        std::vector<NORLEX_bulkRow> rows;
        for (std::size_t count = by.below(4); rows.size() < count;)
            rows.push_back(newRow(by, property.getFields().size()));
        const auto before = property.getRecordCount();
        return written(property.prepareBulk(rows), well, property, before, rows);
    });
}

outcome addOne(world& at, choices& by) {
    return onRows(at, by, [&](NORLEX_well& well, NORLEX_wellProperty& property) {
        const auto row = newRow(by, property.getFields().size());
        const auto before = property.getRecordCount();
        const bool isPoint = by.flag();
        const bool done =
            isPoint
                ? property.createPointCommit(row.top, row.topAbs, row.values)
                : property.createPlastCommit(row.top, row.bot, row.topAbs, row.botAbs, row.values);
        return written(done, well, property, before, {row});
    });
}

outcome addInMemory(world& at, choices& by) {
    return onRows(at, by, [&](NORLEX_well& well, NORLEX_wellProperty& property) {
        const auto row = newRow(by, property.getFields().size());
        const auto before = property.getRecordCount();
        const bool isPoint = by.flag();
        const bool done =
            isPoint
                ? property.createPointData(row.top, row.topAbs, row.values)
                : property.createPlastData(row.top, row.bot, row.topAbs, row.botAbs, row.values);
        return done
               && written(property.commit(at.announced(by.flag())), well, property, before, {row});
    });
}

outcome addPoints(world& at, choices& by) {
    return onRows(at, by, [&](NORLEX_well&, NORLEX_wellProperty& property) {
        const std::vector<double> depths = {by.depth(), by.depth(), by.number()};
        const std::vector<std::wstring> values = {by.text(), by.text(), by.text()};
        return property.prepareBulk(depths, values, static_cast<NORLEX_dataDirection>(by.below(2)));
    });
}

outcome addLayers(world& at, choices& by) {
    return onRows(at, by, [&](NORLEX_well&, NORLEX_wellProperty& property) {
        std::vector<NORLEX_thicknessRow> rows(by.below(4));
        for (auto& row : rows) {
            row.thickness = by.flag() ? by.depth() : by.number();
            row.values.assign(property.getFields().size(), by.text());
        }
        const double top = by.number();
        return property.prepareBulkPow(top, rows, static_cast<NORLEX_dataDirection>(by.below(2)));
    });
}

outcome addToMany(world& at, choices& by) {
    std::vector<NORLEX_bulkName> names;
    for (int i = 0; i < 2; ++i) {
        const auto well = NORLEX_well::getID(at.db(), by.well(at.db()));
        names.push_back({well, by.newProperty()});
    }
    const auto type = static_cast<NORLEX_dataType>(1 + by.below(4));
    std::vector<NORLEX_bulkRow> rows;
    for (std::size_t count = by.below(4); rows.size() < count;) {
        rows.push_back(newRow(by, by.below(4) == 0 ? 1 : 2));
        rows.back().target = by.below(16) == 0 ? 2 : by.below(2);
    }
    return of(NORLEX_wellProperty::createDataBulk(at.db(), names, rows, type));
}

outcome updateValue(world& at, choices& by) {
    return onRows(at, by, [&](NORLEX_well& well, NORLEX_wellProperty& property) {
        const std::size_t field = by.below(property.getFields().size() + 1);
        const std::size_t record = by.below(property.getRecords().size() + 1);
        const auto text = by.text();
        const bool done = property.updateValue(field, record, text);
        const auto again = well.openProperty({property.getName(), property.getGroup()});
        require(!done || (again && again->getValue(field, record) == sqlText::plainName(text)),
                "a value reads otherwise");
        return done;
    });
}

// The key of a record, or of none.
std::int64_t keyOf(NORLEX_wellProperty& property, choices& by) {
    const std::size_t record = by.below(property.getRecords().size() + 1);
    return record < property.getRecords().size() ? property.getRecords()[record].obj_id : 1;
}

outcome updateDepth(world& at, choices& by) {
    return onRows(at, by, [&](NORLEX_well&, NORLEX_wellProperty& property) {
        const auto key = keyOf(property, by);
        const double first = by.number(), second = by.number();
        return property.updateDepth(key, first, second);
    });
}

outcome setBorderType(world& at, choices& by) {
    return onRows(at, by, [&](NORLEX_well&, NORLEX_wellProperty& property) {
        const std::size_t record = by.below(property.getRecords().size() + 1);
        return property.setBorderType(record, static_cast<int>(by.below(260)) - 2);
    });
}

outcome remove(world& at, choices& by) {
    return onRows(at, by, [&](NORLEX_well& well, NORLEX_wellProperty& property) {
        const auto key = keyOf(property, by);
        const auto before = property.getRecordCount();
        const bool done =
            by.flag() ? property.removeGeometry(key) : property.removeGeometryByID({key, key});
        const auto again = well.openProperty({property.getName(), property.getGroup()});
        require(again && again->getRecordCount() == property.getRecordCount()
                    && property.getRecordCount() + (done ? 1 : 0) == before,
                "records do not count down");
        return done;
    });
}

outcome link(world& at, choices& by) {
    return onRows(at, by, [&](NORLEX_well&, NORLEX_wellProperty& property) {
        const std::size_t field = by.below(property.getFields().size() + 1);
        const auto key = keyOf(property, by);
        const auto file = by.name();
        switch (by.below(3)) {
        case 0:
            return property.setLink(field, key, file, by.text());
        case 1:
            return property.setCommentLink(field, key, file, by.text());
        default:
            return property.delLink(field, key, file);
        }
    });
}

outcome convert(world& at, choices& by) {
    return onRows(at, by, [&](NORLEX_well&, NORLEX_wellProperty& property) {
        const auto result = by.newProperty();
        return by.flag() ? property.markerToColumn(result, by.number())
                         : property.makeIntervalsFromBorders(result);
    });
}

outcome recalcDepth(world& at, choices& by) {
    return onRows(at, by, [&](NORLEX_well&, NORLEX_wellProperty& property) {
        return property.recalcDepth(at.announced(by.flag()));
    });
}

constexpr step steps[] = {{L"rows.add", add},
                          {L"rows.addOne", addOne},
                          {L"rows.addInMemory", addInMemory},
                          {L"rows.addPoints", addPoints},
                          {L"rows.addLayers", addLayers},
                          {L"rows.addToMany", addToMany},
                          {L"rows.updateValue", updateValue},
                          {L"rows.updateDepth", updateDepth},
                          {L"rows.setBorderType", setBorderType},
                          {L"rows.remove", remove},
                          {L"rows.link", link},
                          {L"rows.convert", convert},
                          {L"rows.recalcDepth", recalcDepth}};

} // namespace

std::span<const step> rowSteps() {
    return steps;
}

} // namespace fuzzContainer
