// The bytes of an input as steps, and the parameters that a step takes of its bytes.
#pragma once

#include "NORLEX_propDescription.h"
#include "NORLEX_wellDescription.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <vector>

class NORLEX_well;
class odbc_database;

namespace fuzzContainer {

// A step is so many bytes: the first one names it, the others are its parameters.
inline constexpr std::size_t stepSize = 8;

// What properties a step is for.
enum class kind { any, log, rows };

// Hands out parameters, and tells them as text. One that takes more than its bytes goes on with
// numbers that these decide.
class choices {
public:
    explicit choices(std::span<const std::uint8_t> parameters);

    [[nodiscard]] std::uint8_t byte();
    [[nodiscard]] std::size_t below(std::size_t count); // 0 where the count is 0
    [[nodiscard]] bool flag() { return below(2) == 1; }

    // Mostly one of few, so that steps meet; else one that breaks what is not made for it.
    [[nodiscard]] std::wstring name();
    [[nodiscard]] std::wstring text(); // a value: a number, a code, anything
    [[nodiscard]] double number();     // mostly a small depth; else of any kind
    [[nodiscard]] double depth();      // 0 to 63.75

    // Mostly what is there, else names of the pool.
    [[nodiscard]] NORLEX_wellDescription well(odbc_database* db);
    [[nodiscard]] NORLEX_propDescription property(const NORLEX_well& well, kind of = kind::any);
    [[nodiscard]] std::wstring field(NORLEX_well& well, const NORLEX_propDescription& prop);
    [[nodiscard]] std::wstring oneOf(const std::vector<std::wstring>& there);
    [[nodiscard]] NORLEX_wellDescription newWell();
    [[nodiscard]] NORLEX_propDescription newProperty();

    [[nodiscard]] const std::wstring& told() const { return m_told; }

private:
    void tell(const std::wstring& value);

    std::span<const std::uint8_t> m_bytes;
    std::uint64_t m_state; // of the numbers behind the bytes
    std::wstring m_told;
};

} // namespace fuzzContainer
