// The stratigraphic column of a well: NORLEX_well::makeDefaultStratoLayer.
#include "NORLEX_propTemplate.h"
#include "NORLEX_strategraphy.h"
#include "NORLEX_well.h"
#include "platform/last_error.h"
#include "platform/numbers.h"
#include "platform/sql_text.h"
#include "platform/string_table.h"
#include "platform/transaction.h"
#include "wells/names.h"
#include "wells/property_records.h"
#include "wells/query.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>

namespace {

using options = NORLEX_def_strato_options;
using strategraphy::statoTable;

struct levelField {
    const wchar_t* name;
    NORLEX_taxonType level;
    bool options::*isWanted;
};
constexpr std::array levelFields{
    levelField{L"akro", NORLEX_taxonAkrotema, &options::akro},
    levelField{L"system", NORLEX_taxonSystem, &options::system},
    levelField{L"otdel", NORLEX_taxonSeries, &options::otdel},
    levelField{L"subotdel", NORLEX_taxonSubSeries, &options::subotdel},
    levelField{L"yarus", NORLEX_taxonStage, &options::yarus},
};

using values = std::array<std::wstring, levelFields.size()>;

template <typename Fields>
std::optional<std::size_t> position(const Fields& fields, const std::wstring& name) {
    const auto found =
        std::find_if(fields.begin(), fields.end(), [&](const auto& f) { return f.name == name; });
    return found == fields.end() ? std::nullopt
                                 : std::optional(static_cast<std::size_t>(found - fields.begin()));
}

bool hasLevelFields(odbc_database* db, const std::wstring& name) {
    const auto fields = NORLEX_propTemplate::getFieldList(db, name);
    return NORLEX_propTemplate::getType(db, name) == NORLEX_dataTypeColumn
           && std::all_of(levelFields.begin(), levelFields.end(), [&](const levelField& f) {
                  const auto at = position(fields, f.name);
                  return at && fields[*at].type != NORLEX_fieldTypeNumeric
                         && fields[*at].type != NORLEX_fieldTypeBoolean;
              });
}

bool hasTemplate(odbc_database* db, const std::wstring& name) {
    if (NORLEX_propTemplate::isExist(db, name))
        return hasLevelFields(db, name)
               || refuse(L"the template \"" + name
                         + L"\" is no column with the text fields akro, system, otdel, subotdel "
                           L"and yarus; the name of one, or of a new template, is expected");
    std::vector<std::wstring> fields;
    fields.reserve(levelFields.size());
    for (const auto& field : levelFields)
        fields.emplace_back(field.name);
    return NORLEX_propTemplate::createFromType(
        db,
        NORLEX_dataTypeColumn,
        name,
        fields,
        std::vector<NORLEX_fieldType>(fields.size(), NORLEX_fieldTypeString),
        true);
}

// Units of one chart by the texts of a column, in which the same ones come again and again.
class unitTexts {
public:
    unitTexts(const statoTable& units, const options& given) : m_units(units), m_given(given) {}

    // Of the first of the texts that names anything.
    const values& of(const std::wstring& text, const std::wstring& otherwise) {
        const values nothing;
        const values& first = of(text);
        return first == nothing && otherwise != text ? of(otherwise) : first;
    }

private:
    const values& of(const std::wstring& text) {
        const auto [found, isNew] = m_known.try_emplace(text);
        for (std::size_t i = 0; isNew && i < levelFields.size(); ++i)
            if (m_given.*levelFields[i].isWanted)
                found->second[i] =
                    m_units.getContaining(text, levelFields[i].level, m_given.asNames);
        return found->second;
    }

    const statoTable& m_units;
    const options& m_given;
    std::map<std::wstring, values> m_known;
};

// The source's records with values for the fields of the result.
std::optional<std::vector<NORLEX_bulkRow>> readRows(NORLEX_well& well,
                                                    const options& given,
                                                    const statoTable& units,
                                                    const std::vector<NORLEX_propField>& fields) {
    const auto source = well.openProperty(given.source);
    if (!source)
        return std::nullopt;
    if (propertyRecords::geometryOf(source->getType()) != propertyRecords::geometry::intervals) {
        refuse(L"the property " + names::shown(given.source)
               + L" holds no intervals; intervals or a column are expected");
        return std::nullopt;
    }
    const auto field = position(source->getFields(), sqlText::plainName(given.field));
    if (!field) {
        refuse(L"the property " + names::shown(given.source) + L" has no field \"" + given.field
               + L"\" for index expressions");
        return std::nullopt;
    }
    std::array<std::size_t, levelFields.size()> at{};
    for (std::size_t i = 0; i < at.size(); ++i)
        at[i] = position(fields, levelFields[i].name).value_or(0);
    const bool hasName = std::find(at.begin(), at.end(), 0U) == at.end();
    unitTexts texts(units, given);
    std::vector<NORLEX_bulkRow> out;
    const auto& records = source->getRecords();
    for (std::size_t i = 0; i < records.size(); ++i) {
        const std::wstring text = source->getValue(*field, i);
        const values& levels = texts.of(text, source->getShownValue(*field, i));
        NORLEX_bulkRow row{records[i].top,
                           records[i].bot,
                           records[i].topAbs,
                           records[i].botAbs,
                           std::vector<std::wstring>(fields.size()),
                           0};
        if (hasName)
            row.values.front() = numbers::trimmed(std::wstring_view(text));
        for (std::size_t f = 0; f < at.size(); ++f)
            row.values[at[f]] = levels[f];
        out.push_back(std::move(row));
    }
    return out;
}

} // namespace

// The expression goes into the first field of the template, its name, unless that is a level's.
bool NORLEX_well::makeDefaultStratoLayer(const NORLEX_def_strato_options& given) {
    if (!query::isOpen(m_db))
        return false;
    const auto units = given.chart ? given.chart : std::make_shared<const statoTable>(nullptr);
    if (!units->isOK())
        return given.chart ? refuse(L"the given stratigraphic chart was not read") : false;
    const std::wstring name = given.templateName.empty()
                                  ? stringTable::text(stringTable::typeStratigraphy)
                                  : sqlText::plainName(given.templateName);
    transaction edit(m_db);
    if (!edit.isOpen() || !hasTemplate(m_db, name)
        || !createPropertyFromTemplate(name, given.result))
        return false;
    const auto result = openProperty(given.result);
    const auto rows = result ? readRows(*this, given, *units, result->getFields()) : std::nullopt;
    return rows && result->prepareBulk(*rows) && edit.commit();
}
