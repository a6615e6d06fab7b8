// Selections as people type them.
#include "NORLEX_dataType.h"
#include "NORLEX_queryText.h"
#include "platform/numbers.h"
#include "selection/query_words.h"
#include "selection/selection_words.h"

#include <cmath>
#include <utility>

using queryWords::fieldReference;

namespace {

class parser {
public:
    explicit parser(std::wstring_view text) : m_in(text) {}

    // Test { "and" | "or" test }, from left to right.
    bool chain(std::vector<NORLEX_query>& queries) {
        bool isLinkAnd = true;
        do {
            NORLEX_query query;
            query.isLinkAnd = isLinkAnd;
            if (!test(query))
                return false;
            queries.push_back(std::move(query));
            isLinkAnd = m_in.isNext(L"and");
        } while (m_in.take(L"and") || m_in.take(L"or"));
        return m_in.isAtEnd() || m_in.fail(L"\"and\" or \"or\" is expected here");
    }

private:
    bool test(NORLEX_query& query) {
        if (m_in.takeSign(L"("))
            return m_in.fail(L"a selection has no parentheses: it is read from left to right");
        const bool isNot = m_in.take(L"not");
        query.operation = isNot ? NORLEX_filterNotExists : NORLEX_filterExists;
        if (m_in.take(L"exists"))
            return existence(query);
        if (m_in.take(L"picked")) {
            query.operationType = NORLEX_filterTypeGeometry;
            return true;
        }
        if (isNot)
            return m_in.fail(L"\"not\" stands before \"exists\" and \"picked\"; elsewhere there "
                             L"are !=, <= and \"not contains\"");
        for (const auto& subject : selectionWords::subjects)
            if (m_in.take(subject.word))
                return named(query, subject.type);
        if (m_in.isNext(L"created") || m_in.isNext(L"changed"))
            return time(query);
        return value(query);
    }

    // After "exists".
    bool existence(NORLEX_query& query) {
        for (const auto& kind : selectionWords::wellData)
            if (kind.type != NORLEX_filterWellPassport && m_in.take(kind.word)) {
                query.operationType = NORLEX_filterTypeWellInfo;
                query.wellInfoType = kind.type;
                return true;
            }
        if (m_in.take(L"property"))
            return nameOf(query, NORLEX_filterTypeProperty);
        if (m_in.take(L"template"))
            return nameOf(query, NORLEX_filterTypeTemplate);
        if (m_in.take(L"meta"))
            return keyOf(query, NORLEX_filterTypeMeta);
        if (m_in.take(L"passport"))
            return passport(query);
        fieldReference reference;
        if (!queryWords::readReference(m_in, reference))
            return false;
        if (reference.hasField) {
            setField(query, reference);
            return true;
        }
        return window(query, reference.prop);
    }

    // The passport as a whole, or one entry.
    bool passport(NORLEX_query& query) {
        if (!m_in.isAtEnd() && !m_in.isNext(L"and") && !m_in.isNext(L"or"))
            return keyOf(query, NORLEX_filterTypePassport);
        query.operationType = NORLEX_filterTypeWellInfo;
        query.wellInfoType = NORLEX_filterWellPassport;
        return true;
    }

    bool window(NORLEX_query& query, const NORLEX_propDescription& prop) {
        query.operationType = NORLEX_filterTypeWindow;
        query.prop = prop;
        if (!m_in.take(L"from"))
            return m_in.fail(L"\"from\" and a depth are expected here; a property at any depth is "
                             L"\"exists property NAME\"");
        if (!depth(query.fromDepth))
            return false;
        if (!m_in.take(L"to"))
            return m_in.fail(L"\"to\" and a depth are expected here");
        return depth(query.toDepth);
    }

    bool depth(double& out) {
        const textScanner before = m_in;
        const auto text = m_in.operand();
        if (!text)
            return false;
        const auto number = numbers::toDouble(*text);
        if (!number || !std::isfinite(*number))
            return before.fail(L"an absolute depth in metres is expected here");
        out = *number;
        return true;
    }

    // property, group, template, type: "=" or "!=" and a name; meta, passport: a key and a
    // comparison.
    bool named(NORLEX_query& query, selectionWords::subjectKind kind) {
        using selectionWords::subjectKind;
        if (kind == subjectKind::meta)
            return keyOf(query, NORLEX_filterTypeMeta) && comparison(query);
        if (kind == subjectKind::passport)
            return keyOf(query, NORLEX_filterTypePassport) && comparison(query);
        if (m_in.takeSign(L"!=") || m_in.takeSign(L"<>"))
            query.operation = NORLEX_filterNotExists;
        else if (!m_in.takeSign(L"="))
            return m_in.fail(L"= or != is expected here");
        if (kind == subjectKind::type)
            return dataType(query);
        if (kind == subjectKind::group) {
            query.operationType = NORLEX_filterTypeProperty;
            return read(L"the name of a group", query.prop.group);
        }
        return nameOf(query,
                      kind == subjectKind::property ? NORLEX_filterTypeProperty
                                                    : NORLEX_filterTypeTemplate);
    }

    bool nameOf(NORLEX_query& query, NORLEX_filterType type) {
        query.operationType = type;
        return type == NORLEX_filterTypeProperty
                   ? read(L"the name of a property", query.prop.name)
                   : read(L"the name of a template", query.templateName);
    }

    bool keyOf(NORLEX_query& query, NORLEX_filterType type) {
        query.operationType = type;
        return read(L"a key", query.fldName);
    }

    bool dataType(NORLEX_query& query) {
        for (const auto& one : selectionWords::dataTypes)
            if (m_in.take(one.word)) {
                const bool isLog = one.type == NORLEX_dataTypeLog;
                query.operationType = isLog ? NORLEX_filterTypeWellInfo : NORLEX_filterTypeTemplate;
                if (isLog)
                    query.wellInfoType = NORLEX_filterWellLogs;
                else
                    query.propTemplateType = one.type;
                return true;
            }
        return m_in.fail(L"a type of data is expected here: " + selectionWords::dataTypeList());
    }

    bool value(NORLEX_query& query) {
        fieldReference reference;
        if (!queryWords::readReference(m_in, reference))
            return false;
        if (!reference.hasField)
            return m_in.fail(L"\".\" and the field of a property are expected here, or the query "
                             L"begins with a word that is not known");
        setField(query, reference);
        if (!comparison(query))
            return false;
        if (m_in.take(L"ignoring")) {
            if (!m_in.take(L"case"))
                return m_in.fail(L"\"case\" is expected here");
            query.caseSensetive = false;
        }
        return true;
    }

    static void setField(NORLEX_query& query, const fieldReference& reference) {
        query.operationType = NORLEX_filterTypeValue;
        query.prop = reference.prop;
        query.fldName = reference.field;
    }

    bool comparison(NORLEX_query& query) {
        return queryWords::readComparison(m_in, query.operation, query.value);
    }

    // "created" or "changed", "of" a property or "property", a comparison with a date.
    bool time(NORLEX_query& query) {
        query.operationType = NORLEX_filterTypeTime;
        query.datetimeType = m_in.take(L"created") ? 0 : 1;
        if (query.datetimeType == 1 && !m_in.take(L"changed"))
            return false;
        if (m_in.take(L"of")) {
            query.datetimeObject = 1;
            fieldReference reference;
            if (!m_in.take(L"property")) {
                if (!queryWords::readReference(m_in, reference))
                    return false;
                query.prop = reference.prop;
            }
        }
        const textScanner before = m_in;
        if (!comparison(query))
            return false;
        if (query.operation < NORLEX_filterEqual || query.operation > NORLEX_filterLessEqual)
            return before.fail(L"a time is compared by =, !=, >, >=, < or <=");
        if (query.value == L"today")
            query.value.clear();
        return true;
    }

    bool read(std::wstring_view what, std::wstring& out) {
        const auto name = m_in.name(what);
        if (!name)
            return false;
        out = *name;
        return true;
    }

    textScanner m_in;
};

} // namespace

bool NORLEX_parseSelectionText(std::wstring_view text, std::vector<NORLEX_query>& queries) {
    std::vector<NORLEX_query> read;
    if (!parser(text).chain(read))
        return false;
    queries = std::move(read);
    return true;
}
