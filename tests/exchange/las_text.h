// LAS files of a few lines, written by the tests themselves.
#pragma once

#include "NORLEX_lasfileExt.h"
#include "NORLEX_lastError.h"
#include "platform/numbers.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

class LasTextTest : public testing::Test {
protected:
    NORLEX_lasfileExt read(std::string_view text,
                           bool headerOnly = false,
                           ts::strconv::encodings encoding = ts::strconv::detect) {
        return {m_folder.write(L"file.las", text), headerOnly, encoding};
    }

    // Depth in metres, two curves A and B, null -999.25; `data` are the lines behind "~A".
    static std::string twoCurves(std::string_view data, std::string_view wrap = "NO") {
        return "~V\nVERS. 2.0 :\nWRAP. " + std::string(wrap)
               + " :\n~W\nNULL. -999.25 :\nSTEP.M 0.5 :\n~C\nDEPT.M :\nA.:\nB.:\n~A\n"
               + std::string(data);
    }

    // "depth:value,value;…" of all rows, so that a failure shows them.
    static std::string rows(const NORLEX_lasfileExt& file) {
        std::string out;
        for (std::size_t row = 0; row < file.getRowCount(); ++row) {
            out += row > 0 ? ";" : "";
            for (std::size_t i = 0; i < file.getNumCurves(); ++i) {
                const auto [value, depth] = file.getCurveByIndex(i)->getPointByIndex(row);
                out += i > 0 ? "," : number(depth) + ":";
                out += number(value);
            }
        }
        return out;
    }

    // "line reason" of each skipped line.
    static std::vector<std::wstring> skipped(const NORLEX_lasfileExt& file) {
        std::vector<std::wstring> out;
        for (const auto& [line, reason] : file.getSkippedLines())
            out.push_back(std::to_wstring(line) + L" " + reason);
        return out;
    }

    static std::vector<std::wstring> names(const NORLEX_lasfileExt& file) {
        std::vector<std::wstring> out;
        file.getCurveNames(out);
        return out;
    }

    temp_folder m_folder;

private:
    static std::string number(double value) { return numbers::shortest(value); }
};
