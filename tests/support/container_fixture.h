// A new container in a folder of its own, on the engine under test.
#pragma once

#include "NORLEX_lastError.h"
#include "NORLEX_wellContainer.h"
#include "odbc_database.h"
#include "platform/strconv.h"
#include "tests/support/temp_folder.h"
#include "tests/support/test_engine.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

class ContainerTest : public testing::Test {
protected:
    void SetUp() override {
        if (testEngine::isMissing())
            GTEST_SKIP() << "no server is named by WELLDB_TEST_SERVER";
        if (testEngine::isServer())
            folder.write(
                L"wells.well2",
                testEngine::databases::descriptionOf(m_databases.make(), folder / L"wells/"));
        const auto description = NORLEX_wellContainer::makeDescription(folder / L"wells.well2");
        ASSERT_TRUE(NORLEX_wellContainer::create(description)) << lastError();
        reopen();
    }

    // Closes the container and opens it again, as another run of the program would.
    void reopen() {
        container.reset();
        container = std::make_unique<NORLEX_wellContainer>(
            NORLEX_wellContainer::makeDescription(folder / L"wells.well2"));
        ASSERT_TRUE(container->isOK()) << lastError();
    }

    [[nodiscard]] odbc_database* db() const { return container->getBaseLink(); }

    // The first column of the first row; empty when there is none.
    [[nodiscard]] std::wstring cell(const std::wstring& query) const {
        const auto rows = db()->query(query);
        return rows && rows->next() ? rows->get_text(0) : std::wstring();
    }

    // Its columns with a blank between them, numbers in their shortest form.
    [[nodiscard]] std::wstring row(const std::wstring& query) const {
        std::wstring out;
        const auto rows = db()->query(query);
        if (rows && rows->next())
            for (int i = 0; i < rows->column_count(); ++i)
                out += (i == 0 ? L"" : L" ") + rows->get_text(i);
        return out;
    }

    // The first column of every row, a comma between them.
    [[nodiscard]] std::wstring all(const std::wstring& query) const {
        std::wstring out;
        const auto rows = db()->query(query);
        while (rows && rows->next())
            out += (out.empty() ? L"" : L",") + rows->get_text(0);
        return out;
    }

    [[nodiscard]] static std::string lastError() { return ts::strconv::toUtf8(NORLEX_lastError()); }

private:
    testEngine::databases m_databases; // goes after the container

protected:
    temp_folder folder;
    std::unique_ptr<NORLEX_wellContainer> container;
};
