// A container with helpers to write LAS files into it and to read logs back.
#pragma once

#include "NORLEX_lasImport.h"
#include "NORLEX_well.h"
#include "tests/support/container_fixture.h"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

class LasTest : public ContainerTest {
protected:
    // A version 2.0 file: further ~W lines, ~C lines, and rows.
    std::wstring las(const std::wstring& name,
                     const std::string& wellLines,
                     const std::string& curveLines,
                     const std::string& rows) {
        return folder.write(name,
                            "~Version\nVERS. 2.0 : v\nWRAP. NO : w\n~Well\nNULL. -999.25 : null\n"
                                + wellLines + "~Curve\n" + curveLines + "~ASCII\n" + rows);
    }

    NORLEX_lasImportResult import(const std::wstring& path, NORLEX_lasImportOptions options = {}) {
        return NORLEX_lasImport(db(), std::move(options)).importFile(path);
    }

    std::unique_ptr<NORLEX_wellProperty> log(const NORLEX_wellDescription& well,
                                             const NORLEX_propDescription& prop) {
        m_well = std::make_unique<NORLEX_well>(db(), well);
        return m_well->openProperty(prop);
    }

    std::vector<NORLEX_logSample> samples(const NORLEX_wellDescription& well,
                                          const NORLEX_propDescription& prop) {
        std::vector<NORLEX_logSample> out;
        const auto opened = log(well, prop);
        EXPECT_TRUE(opened && opened->getSamples(out)) << lastError();
        return out;
    }

    // Files below the container's file directory that a new container does not have.
    std::size_t storedFiles() const { return filesBelow() - m_filesOfNew; }

    void SetUp() override {
        ContainerTest::SetUp();
        if (IsSkipped())
            return;
        m_filesOfNew = filesBelow();
    }

private:
    std::size_t filesBelow() const {
        const auto all = files::listTree(container->getFileContainerPath());
        return static_cast<std::size_t>(
            std::count_if(all.begin(), all.end(), [](const std::wstring& path) {
                // a living connection keeps a journal of its file changes
                return !files::nameOf(path).starts_with(L"journal.db")
                       && !path.ends_with(L".changes");
            }));
    }

    std::unique_ptr<NORLEX_well> m_well;
    std::size_t m_filesOfNew = 0;
};
