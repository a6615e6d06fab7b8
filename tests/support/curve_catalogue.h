// A catalogue of log curves of a few rows.
#pragma once

#include "odbc_database.h"
#include "platform/files.h"
#include "platform/sql_text.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace curveCatalogue {

struct row {
    int id;
    std::wstring mnemonic;
    std::wstring type;
    std::vector<std::wstring> synonyms;
};

// Units and comment are the mnemonic with "u", "r" and "c" behind it.
inline void make(const std::wstring& path, const std::vector<row>& rows) {
    using namespace sqlText;
    odbc_database db;
    ASSERT_TRUE(files::makeFolder(files::folderOf(path)));
    ASSERT_TRUE(db.connect(files::native(path).native()));
    ASSERT_TRUE(db.exec(L"CREATE TABLE LAS_methods(method_id INTEGER PRIMARY KEY, mnemonic TEXT "
                        L"NOT NULL, common_units TEXT, rus_units TEXT, comment TEXT, type TEXT)"));
    ASSERT_TRUE(db.exec(L"CREATE TABLE las_method_synonyms(Method_id INTEGER NOT NULL, Syn_name "
                        L"TEXT NOT NULL)"));
    for (const auto& [id, mnemonic, type, synonyms] : rows) {
        ASSERT_TRUE(db.exec(sql(L"INSERT INTO LAS_methods VALUES (",
                                key(id),
                                L", ",
                                quoted(mnemonic),
                                L", ",
                                quoted(mnemonic + L"u"),
                                L", ",
                                quoted(mnemonic + L"r"),
                                L", ",
                                quoted(mnemonic + L"c"),
                                L", ",
                                quoted(type),
                                L")")));
        for (const auto& synonym : synonyms)
            ASSERT_TRUE(db.exec(sql(L"INSERT INTO las_method_synonyms VALUES (",
                                    key(id),
                                    L", ",
                                    quoted(synonym),
                                    L")")));
    }
}

} // namespace curveCatalogue
