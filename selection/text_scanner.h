// Reads the words, names, signs and operands of a typed query.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

class textScanner {
public:
    explicit textScanner(std::wstring_view text) : m_text(text) {}

    [[nodiscard]] bool isAtEnd();
    // Takes what comes next if it is this keyword, in any case; a name in quotes is none.
    [[nodiscard]] bool take(std::wstring_view keyword);
    [[nodiscard]] bool isNext(std::wstring_view keyword);
    [[nodiscard]] bool takeSign(std::wstring_view sign);

    // Letters, digits, "_" and "-", or any text in double quotes, a quote inside written twice.
    // Nothing, having refused, where there is none.
    [[nodiscard]] std::optional<std::wstring> name(std::wstring_view what);
    // Anything up to a blank, a parenthesis or a quote, or a text in quotes.
    [[nodiscard]] std::optional<std::wstring> operand();
    [[nodiscard]] bool isQuoteNext();

    // Refuses with the column where the part that was last asked for begins.
    bool fail(std::wstring_view message) const;

private:
    void skipBlanks();
    [[nodiscard]] std::wstring_view wordAhead();
    [[nodiscard]] std::optional<std::wstring> quotedText();

    std::wstring_view m_text;
    std::size_t m_at = 0;
};
