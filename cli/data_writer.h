// The rows of a property as a table, CSV or JSON.
#pragma once

#include "cli/commands.h"
#include "cli/table.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Rows are written one by one as they are made: a log may hold millions. Only the table of a
// property with texts waits for all of them, to find its widths.
class dataWriter {
public:
    struct column {
        std::string name;  // for programs
        std::string title; // for people
        bool isNumber = true;
    };

    // `type` is what programs know the kind of the property by.
    dataWriter(resultForm form, std::string_view type, std::vector<column> columns);

    // One cell a column. A number is told as its digits, empty when it is missing; in a column of
    // numbers what is none goes as text.
    void add(const std::vector<std::wstring>& cells);
    void end();

private:
    void writeAligned(const std::vector<std::string>& cells) const;
    void addJson(const std::vector<std::wstring>& cells);
    void addCsv(const std::vector<std::string>& cells) const;

    resultForm m_form;
    std::vector<column> m_columns;
    std::optional<table> m_table;
    bool m_first = true;
};
