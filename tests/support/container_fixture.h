// A new container in a folder of its own.
#pragma once

#include "NORLEX_lastError.h"
#include "NORLEX_wellContainer.h"
#include "odbc_database.h"
#include "platform/strconv.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

class ContainerTest : public testing::Test {
protected:
    void SetUp() override {
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

    [[nodiscard]] static std::string lastError() { return ts::strconv::toUtf8(NORLEX_lastError()); }

    temp_folder folder;
    std::unique_ptr<NORLEX_wellContainer> container;
};
