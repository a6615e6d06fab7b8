#include "cli/data_writer.h"

#include "cli/json_out.h"
#include "cli/number_text.h"
#include "cli/output.h"
#include "cli/text.h"

#include <algorithm>

namespace {

// RFC 4180.
std::string csvCell(const std::string& text) {
    if (text.find_first_of("\",\r\n") == std::string::npos)
        return text;
    std::string out = "\"";
    for (const char c : text)
        out.append(c == '"' ? 2 : 1, c);
    return out + '"';
}

std::string jsonCell(const std::wstring& cell, bool isNumber) {
    const std::string text = text::utf8(cell);
    if (!isNumber)
        return jsonOut::string(cell).dump();
    if (text.empty())
        return "null";
    const auto number = numberText::parse(text);
    return number ? numberText::shortest(*number) : jsonOut::string(cell).dump();
}

} // namespace

dataWriter::dataWriter(resultForm form, std::string_view type, std::vector<column> columns)
    : m_form(form), m_columns(std::move(columns)) {
    if (form == resultForm::json) {
        json names = json::array();
        for (const auto& c : m_columns)
            names.push_back(c.name);
        output::write(R"({"type":")" + std::string(type) + R"(","columns":)" + names.dump()
                      + R"(,"rows":[)");
        return;
    }
    std::vector<std::string> heads;
    for (const auto& c : m_columns)
        heads.push_back(form == resultForm::csv ? c.name : c.title);
    if (form == resultForm::csv) {
        addCsv(heads);
        return;
    }
    if (std::ranges::all_of(m_columns, &column::isNumber)) {
        writeAligned(heads);
        return;
    }
    std::vector<table::column> shown;
    for (const auto& c : m_columns)
        shown.push_back({c.title, c.isNumber ? table::align::right : table::align::left});
    m_table.emplace(std::move(shown));
}

void dataWriter::addJson(const std::vector<std::wstring>& cells) {
    std::string row = m_first ? "\n[" : ",\n[";
    for (std::size_t i = 0; i < cells.size(); ++i)
        row += (i == 0 ? "" : ",") + jsonCell(cells[i], m_columns[i].isNumber);
    output::write(row + "]");
    m_first = false;
}

void dataWriter::addCsv(const std::vector<std::string>& cells) const {
    std::string row;
    for (std::size_t i = 0; i < cells.size(); ++i)
        row += (i == 0 ? "" : ",") + csvCell(cells[i]);
    output::write(row + "\r\n"); // RFC 4180 ends lines with CR LF
}

void dataWriter::writeAligned(const std::vector<std::string>& cells) const {
    constexpr std::size_t width = 18;
    std::string line;
    for (const auto& cell : cells)
        line += (line.empty() ? "" : "  ") + padded(cell, width, table::align::right);
    line.erase(line.find_last_not_of(' ') + 1);
    output::line(line);
}

void dataWriter::add(const std::vector<std::wstring>& cells) {
    if (m_form == resultForm::json) {
        addJson(cells);
        return;
    }
    std::vector<std::string> texts;
    texts.reserve(cells.size());
    for (const auto& cell : cells)
        texts.push_back(m_form == resultForm::csv ? text::utf8(cell) : text::shown(cell));
    if (m_form == resultForm::csv)
        addCsv(texts);
    else if (m_table)
        m_table->add(std::move(texts));
    else
        writeAligned(texts);
}

void dataWriter::end() {
    if (m_form == resultForm::json)
        output::line("\n]}");
    if (m_table)
        m_table->print();
}
