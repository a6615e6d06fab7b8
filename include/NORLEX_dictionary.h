// Dictionaries: named lists of codes and their values, and what is bound to them.
#pragma once

#include "NORLEX_export.h"
#include "NORLEX_propDescription.h"
#include "tableReader.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

struct NORLEX_columnRef;
struct NORLEX_tableReport;
struct eventMsgDescription;
class odbc_database;

// An entry of a dictionary.
struct NORLEX_dictionary_value {
    NORLEX_dictionary_value() = default;
    NORLEX_dictionary_value(std::uint32_t entryId, std::wstring entryCode, std::wstring entryValue)
        : id(entryId), code(std::move(entryCode)), value(std::move(entryValue)) {}

    std::uint32_t id = 0;
    std::wstring code;
    std::wstring value;
};

// A field of the property of a name and group, in every well, and the dictionary of its codes.
struct NORLEX_dict_link {
    NORLEX_propDescription property;
    std::wstring field;
    std::wstring dictionary; // empty: it was deleted
};

// A key of the well information, and the dictionary of its codes.
struct NORLEX_dict_infoLink {
    std::wstring dictionary; // empty: it was deleted
    std::wstring key;
};

struct NORLEX_dictTableOptions {
    tableRW::tableOptions format;
    bool hasHeader = false;    // the first row holds no data; an export has no header
    bool keepGoodRows = false; // false: one bad row leaves nothing written
};

// Codes are unique within a dictionary until they are swapped with values, of which several may be
// the same; the entry that was made first is then the one that is found. Texts are compared as they
// stand. The tables are made with the first dictionary: before that, every look-up is empty.
//
// Every change is one transaction, stamped, and announced once it is committed. An object follows
// what others announce: its entries are read again when they are next asked for. The database is
// not owned.
class NORLEX_API NORLEX_dictionary {
public:
    [[nodiscard]] static bool createDBTables(odbc_database* db);

    // An empty name, and one that is taken, are refused.
    [[nodiscard]] static bool create(odbc_database* db, const std::wstring& name);
    [[nodiscard]] static bool isExist(odbc_database* db, const std::wstring& name);
    [[nodiscard]] static bool
    rename(odbc_database* db, const std::wstring& oldName, const std::wstring& newName);
    // With its entries. What is bound to it stays bound, to a dictionary that is not there.
    [[nodiscard]] static bool deleteDict(odbc_database* db, const std::wstring& name);
    static void getList(odbc_database* db, std::vector<std::wstring>& names); // in order of making

    // Keys; 0 when there is none.
    [[nodiscard]] static std::uint32_t getDictID(odbc_database* db, const std::wstring& name);
    [[nodiscard]] static std::uint32_t getDictID(odbc_database* db,
                                                 const std::wstring& group,
                                                 const std::wstring& prop,
                                                 const std::wstring& field);
    [[nodiscard]] static std::uint32_t getLinkID(odbc_database* db,
                                                 const std::wstring& group,
                                                 const std::wstring& prop,
                                                 const std::wstring& field);

    // Binds a field to a dictionary. A field that is bound to it already stays so; one that is
    // bound to another is refused.
    [[nodiscard]] static bool createLink(odbc_database* db,
                                         const NORLEX_propDescription& prop,
                                         const std::wstring& field,
                                         const std::wstring& dictionary);
    [[nodiscard]] static bool deleteLink(odbc_database* db, // also of what is not bound
                                         const NORLEX_propDescription& prop,
                                         const std::wstring& field);
    // Makes the binding of the key one of another field, or to another dictionary.
    [[nodiscard]] static bool updateLink(odbc_database* db,
                                         std::uint32_t linkId,
                                         const std::wstring& dictionary,
                                         const std::wstring& group,
                                         const std::wstring& prop,
                                         const std::wstring& field);
    [[nodiscard]] static bool
    isLinkExist(odbc_database* db, const NORLEX_propDescription& prop, const std::wstring& field);
    // The name; empty when nothing is bound, or the dictionary was deleted.
    [[nodiscard]] static std::wstring getDictFromLink(odbc_database* db,
                                                      const NORLEX_propDescription& prop,
                                                      const std::wstring& field);
    static void getLinkList(odbc_database* db, std::vector<NORLEX_dict_link>& links);

    // The same for keys of the well information.
    [[nodiscard]] static bool
    createInfoLink(odbc_database* db, const std::wstring& key, const std::wstring& dictionary);
    [[nodiscard]] static bool deleteInfoLink(odbc_database* db, const std::wstring& key);
    [[nodiscard]] static bool
    updateInfoLink(odbc_database* db, const std::wstring& key, const std::wstring& dictionary);
    [[nodiscard]] static bool isInfoLinkExist(odbc_database* db, const std::wstring& key);
    [[nodiscard]] static std::uint32_t getInfoLinkID(odbc_database* db, const std::wstring& key);
    [[nodiscard]] static std::uint32_t getDictIDFromInfoKey(odbc_database* db,
                                                            const std::wstring& key);
    [[nodiscard]] static std::wstring getDictFromLink(odbc_database* db, const std::wstring& key);
    static void getLinkList(odbc_database* db, std::vector<NORLEX_dict_infoLink>& links);

    // One entry, without loading the others. Empty when there is none.
    [[nodiscard]] static std::wstring
    getValue(odbc_database* db, std::uint32_t dictId, const std::wstring& code);
    [[nodiscard]] static std::wstring
    getCode(odbc_database* db, std::uint32_t dictId, const std::wstring& value);
    [[nodiscard]] static std::wstring
    getCodeByValue(odbc_database* db, const std::wstring& dictionary, const std::wstring& value);

    // Makes every code a value and every value a code. Twice is as before.
    [[nodiscard]] static bool swapData(odbc_database* db, const std::wstring& name);

    // Stamps as edited now.
    [[nodiscard]] static bool updateEditTimeDict(odbc_database* db, const std::wstring& name);
    [[nodiscard]] static bool updateEditTimeLink(odbc_database* db, std::uint32_t linkId);

    // Opens the dictionary; isOK() tells whether it is there. One that is renamed or deleted
    // elsewhere is not OK any more.
    NORLEX_dictionary(odbc_database* db, const std::wstring& name);
    virtual ~NORLEX_dictionary();
    NORLEX_dictionary(const NORLEX_dictionary&) = delete;
    NORLEX_dictionary& operator=(const NORLEX_dictionary&) = delete;

    [[nodiscard]] bool isOK() const;
    [[nodiscard]] const std::wstring& getName() const;
    [[nodiscard]] std::uint32_t getID() const;

    // The entries in order of making. Good until the next call that changes or reloads them.
    [[nodiscard]] std::size_t getValueCount() const;
    [[nodiscard]] const std::vector<NORLEX_dictionary_value>& getValueList() const;
    // Of the first entry that matches; empty for an empty text and without a match.
    [[nodiscard]] std::wstring getValueByCode(const std::wstring& code) const;
    [[nodiscard]] std::wstring getCodeByValue(const std::wstring& value) const;
    [[nodiscard]] std::vector<std::wstring> getCodeListByValue(const std::wstring& value) const;
    // For people: the value of the code, or the code itself where it has none.
    [[nodiscard]] std::wstring getShownValue(const std::wstring& code) const;

    // Adds an entry; apostrophes are dropped from both texts. With a code that is there nothing is
    // added, and that is no failure.
    [[nodiscard]] bool addValue(const std::wstring& code, const std::wstring& value);
    // A text that an entry has already is refused, and so is a key of no entry.
    [[nodiscard]] bool renameValue(std::uint32_t entryId, const std::wstring& text);
    [[nodiscard]] bool renameCode(std::uint32_t entryId, const std::wstring& text);
    [[nodiscard]] bool deleteValue(std::uint32_t entryId);
    [[nodiscard]] bool swapData();

    // Add many entries as addValue does, in one transaction. A pair is a code and its value; the
    // keys of entries are not looked at.
    [[nodiscard]] bool
    importFromList(const std::vector<std::pair<std::wstring, std::wstring>>& pairs);
    [[nodiscard]] bool importFromList(const std::vector<NORLEX_dictionary_value>& entries);
    // The rows of a table; columns by number, from 1, or by header. The report counts the entries
    // added as taken, rows whose code was there as passed over, and holds those that have no cell
    // in one of the columns, or nothing in both.
    [[nodiscard]] bool importFromText(const std::wstring& path,
                                      const NORLEX_dictTableOptions& options,
                                      const NORLEX_columnRef& code,
                                      const NORLEX_columnRef& value,
                                      NORLEX_tableReport& report);
    [[nodiscard]] bool importFromText(const std::wstring& path,
                                      const NORLEX_dictTableOptions& options,
                                      int codeColumn,
                                      int valueColumn,
                                      NORLEX_tableReport& report);
    // A line "code;value" for each entry, ended by LF; a text that would read back as something
    // else (";", quotes, line ends, blanks at its ends) stands in quotes, as tableReader takes
    // them. Without entries the file is empty. A text with characters that the encoding lacks is
    // refused. `path` is replaced once everything is written.
    [[nodiscard]] bool exportToText(const std::wstring& path,
                                    ts::strconv::encodings encoding = ts::strconv::utf8) const;

    // What a change elsewhere means to this object; called by the observer.
    virtual void onGlobalUpdate(const eventMsgDescription& message);

private:
    enum class outcome { failed, unchanged, changed };

    void loadData() const;
    // Reads again what an announcement has made out of date.
    void refresh() const;
    [[nodiscard]] bool isOpen() const; // or refused
    // The change with its stamps and, after the commit, its news.
    [[nodiscard]] bool edit(const std::function<outcome()>& change);
    [[nodiscard]] outcome addValueBase(const std::wstring& code, const std::wstring& value);
    [[nodiscard]] bool renameText(std::uint32_t entryId, const std::wstring& text, bool isCode);
    [[nodiscard]] outcome changeEntry(
        std::uint32_t entryId,
        const std::wstring& statement,
        const std::function<void(std::vector<NORLEX_dictionary_value>::iterator)>& inMemory);
    [[nodiscard]] bool addAll(const std::vector<std::pair<std::wstring, std::wstring>>& pairs,
                              std::uint64_t& added);

    struct state;
    odbc_database* m_db = nullptr;
    std::shared_ptr<state> m_state;
};
