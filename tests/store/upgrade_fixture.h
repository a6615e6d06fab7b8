// Containers of older versions, made from tests/store/upgrade/containers.sql.
#pragma once

#include "NORLEX_host.h"
#include "NORLEX_lastError.h"
#include "NORLEX_wellContainer.h"
#include "odbc_database.h"
#include "platform/numbers.h"
#include "platform/sql_text.h"
#include "platform/strconv.h"
#include "tests/support/disk.h"
#include "tests/support/temp_folder.h"
#include "tests/support/test_engine.h"

#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <string>
#include <vector>

class UpgradeTest : public testing::Test {
protected:
    void SetUp() override {
        NORLEX_setYesNoBox([this](const std::wstring& question) {
            questions.push_back(question);
            return answer;
        });
        NORLEX_setErrorBox([this](const std::wstring& line) { errors.push_back(line); });
    }
    void TearDown() override {
        NORLEX_setYesNoBox({});
        NORLEX_setErrorBox({});
    }

    static std::wstring replaced(std::wstring text, const wchar_t* what, const std::wstring& by) {
        const std::wstring sought = what;
        for (std::size_t at = 0; (at = text.find(sought, at)) != std::wstring::npos;
             at += by.size())
            text.replace(at, sought.size(), by);
        return text;
    }

    [[nodiscard]] static int number(const std::string& text) {
        return static_cast<int>(numbers::toDouble(std::string_view(text)).value_or(0));
    }

    // The statements of a version, in their order.
    [[nodiscard]] std::vector<std::wstring>
    statements(int version, const std::wstring& primaryKey, const std::wstring& root) const {
        std::vector<std::wstring> found;
        std::ifstream file(WELLDB_SOURCE_DIR "/tests/store/upgrade/containers.sql");
        for (std::string line; std::getline(file, line);) {
            const auto dash = line.find('-');
            const auto blank = line.find(' ');
            if (line.empty() || dash == 0 || blank == std::string::npos)
                continue;
            if (number(line.substr(0, dash)) > version
                || number(line.substr(dash + 1, blank - dash - 1)) < version)
                continue;
            std::wstring text = ts::strconv::fromUtf8(line.substr(blank + 1));
            text = replaced(text, L"{KEY}", primaryKey);
            text = replaced(text, L"{ROOT}", root);
            found.push_back(replaced(text, L"{OUT}", folder / L"outside/"));
        }
        return found;
    }

    void makeFiles() const {
        folder.write(L"outside/scan.tif", "scan");
        folder.write(L"outside/more/scan.tif", "another");
        folder.write(L"wells/docs/a.pdf", "a");
        folder.write(L"wells/docs/map.pdf", "map");
        folder.write(L"wells/planshet/standard.pt", "<plot/>");
        folder.write(L"wells/planshetTmpl/own.pt", "<own/>");
        folder.write(L"wells/planshetTmpl/notes.txt", "no template");
    }

    // A container of an older version as "wells.well2", with its files.
    void make(int version) {
        odbc_database db;
        makeFiles();
        ASSERT_TRUE(db.connect(files::native(path).string()));
        fill(db, version, folder / L"wells\\");
        made = disk::read(path);
    }

    void fill(odbc_database& db, int version, const std::wstring& root) {
        ASSERT_TRUE(db.begin_transaction());
        for (const auto& statement : statements(version, db.primary_key(), root))
            ASSERT_TRUE(db.exec(statement)) << ts::strconv::toUtf8(statement + db.last_error());
        ASSERT_TRUE(db.exec(sqlText::sql(
            L"INSERT INTO base_version (id, version) VALUES (1,", sqlText::key(version), L")")));
        ASSERT_TRUE(db.end_transaction());
    }

    bool open() {
        container.reset();
        container =
            std::make_unique<NORLEX_wellContainer>(NORLEX_wellContainer::makeDescription(path));
        return container->isOK();
    }

    [[nodiscard]] static std::wstring cell(odbc_database& db, const std::wstring& query) {
        const auto rows = db.query(query);
        if (!rows)
            return L"no rows: " + db.last_error();
        return rows->next() ? rows->get_text(0) : std::wstring();
    }

    [[nodiscard]] static std::string lastError() { return ts::strconv::toUtf8(NORLEX_lastError()); }

    temp_folder folder;
    std::wstring path = folder / L"wells.well2";
    std::string made; // the bytes of the file
    bool answer = true;
    std::vector<std::wstring> questions;
    std::vector<std::wstring> errors;
    std::unique_ptr<NORLEX_wellContainer> container;
};
