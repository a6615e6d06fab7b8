#include "platform/server_refusals.h"

#include <array>
#include <string_view>

namespace serverRefusals {

namespace {

struct meaning {
    std::string_view sign; // a code or its first two signs; for connections a part of the text
    std::string_view words;
};

// The longer codes first: they are the more exact ones.
constexpr std::array statements = {
    meaning{"25P02", "an earlier statement failed, and the transaction is to be rolled back"},
    meaning{"55P03", "another program held the rows or the table for more than 10 seconds"},
    meaning{"40P01", "two programs waited for each other; try again"},
    meaning{"42501", "the user has no right to do this"},
    meaning{"42601", "cannot understand the statement"},
    meaning{"42P01", "there is no such table"},
    meaning{"42703", "there is no such column"},
    meaning{"23505", "a row with this key is there already"},
    meaning{"23502", "a value is required"},
    meaning{"25006", "the database can only be read"},
    meaning{"57014", "the statement was stopped"},
    meaning{"22", "a value does not fit its column"},
    meaning{"53", "the server has run out of space, memory or connections"},
};

// A driver reports every failed connection with one code, so the server's text has to tell.
constexpr std::array connections = {
    meaning{"password authentication failed", "wrong user or password"},
    meaning{"no password supplied", "a password is required"},
    meaning{"database \"", "the server has no such database"},
    meaning{"Connection refused", "no server answers at this address"},
    meaning{"could not translate host name", "there is no host of this name"},
    meaning{"timeout expired", "the server did not answer within 10 seconds"},
    meaning{"timed out", "the server did not answer within 10 seconds"},
    meaning{"no pg_hba.conf entry", "the server does not accept this user from here"},
    meaning{"permission denied for database", "the user may not connect to this database"},
    meaning{"Can't open lib", "the ODBC driver that the connection names is not installed"},
    meaning{"Data source name not found", "there is no ODBC data source of this name"},
};

std::string line(std::string_view words, const std::string& said) {
    return std::string(words) + " (" + said + ")";
}

} // namespace

std::string ofStatement(const odbc_failure& failure) {
    for (const auto& [sign, words] : statements)
        if (failure.state.starts_with(sign))
            return line(words, failure.text);
    return line("the server refused the statement", failure.text);
}

std::string ofConnection(const odbc_failure& failure) {
    for (const auto& [sign, words] : connections)
        if (failure.text.find(sign) != std::string::npos)
            return line(words, failure.text);
    return line("cannot connect to the server", failure.text);
}

} // namespace serverRefusals
