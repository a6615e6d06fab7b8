#include "derived/options.h"

#include "platform/last_error.h"
#include "platform/numbers.h"

#include <cmath>

namespace options {

namespace {

std::wstring wide(const std::string& digits) {
    return {digits.begin(), digits.end()};
}

bool refuseNumber(const wchar_t* what, double number, const wchar_t* expected) {
    return refuse(what + (L" is " + shown(number)) + L"; " + expected + L" is expected");
}

} // namespace

std::wstring shown(double number) {
    return wide(numbers::shortest(number));
}

std::wstring shown(double number, int decimals) {
    return wide(numbers::fixed(number, decimals));
}

bool isNumber(const wchar_t* what, double number) {
    return std::isfinite(number) || refuseNumber(what, number, L"a finite number");
}

bool isPositive(const wchar_t* what, double number) {
    return (std::isfinite(number) && number > 0.0)
           || refuseNumber(what, number, L"a finite number greater than 0");
}

bool isNotNegative(const wchar_t* what, double number) {
    return (std::isfinite(number) && number >= 0.0)
           || refuseNumber(what, number, L"a finite number of 0 or more");
}

bool isChoice(const wchar_t* what, int choice, int last) {
    return (choice >= 0 && choice <= last)
           || refuse(what + (L" is " + std::to_wstring(choice)) + L"; 0 to " + std::to_wstring(last)
                     + L" is expected");
}

} // namespace options
