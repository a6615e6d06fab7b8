#include "wells/record_depths.h"

#include "NORLEX_inclinometry.h"
#include "platform/numbers.h"

#include <cmath>
#include <utility>

namespace recordDepths {

namespace {

bool isKnown(double depth) {
    return depth != NORLEX_unknownDepth;
}

bool isDepth(double depth) {
    return std::isfinite(depth) && std::abs(depth) <= deepest;
}

std::wstring shown(double depth) {
    if (std::isnan(depth))
        return L"NaN";
    if (std::isinf(depth))
        return depth > 0 ? L"infinite" : L"-infinite";
    const std::string text = numbers::shortest(depth);
    return {text.begin(), text.end()};
}

std::wstring notADepth(const wchar_t* what, double depth) {
    return std::wstring(L"the ") + what + L" " + shown(depth)
           + L" is no depth; a number between -2000000 and 2000000 is expected";
}

// One end of a record, measured and absolute.
std::wstring
complete(double& measured, double& absolute, const wchar_t* what, NORLEX_inclinometry* incl) {
    for (const double given : {measured, absolute})
        if (isKnown(given) && !isDepth(given))
            return notADepth(what, given);
    if (isKnown(measured) && isKnown(absolute))
        return {};
    if (!isKnown(measured) && !isKnown(absolute))
        return std::wstring(L"the ") + what
               + L" is unknown in both depth systems; one of them is expected";
    if (incl == nullptr)
        return std::wstring(L"the ") + what
               + L" is known in one depth system only, and there is no survey to convert it with";
    if (!isKnown(measured))
        measured = incl->getReal(absolute);
    else
        absolute = incl->getAbs(measured);
    for (const double computed : {measured, absolute})
        if (!isDepth(computed))
            return notADepth(what, computed) + L" (computed with the survey)";
    return {};
}

void order(NORLEX_geometryRecord& r) {
    if (isKnown(r.top) && isKnown(r.bot) && r.top > r.bot)
        std::swap(r.top, r.bot);
    if (isKnown(r.topAbs) && isKnown(r.botAbs) && r.topAbs < r.botAbs)
        std::swap(r.topAbs, r.botAbs);
}

} // namespace

std::wstring completePoint(NORLEX_geometryRecord& r, NORLEX_inclinometry* incl) {
    auto reason = complete(r.top, r.topAbs, L"depth", incl);
    r.bot = r.top;
    r.botAbs = r.topAbs;
    return reason;
}

// Ordered before, so that an unknown end is completed from its own counterpart, and after, since
// in a hole that rises the deeper end is the higher one.
std::wstring completeInterval(NORLEX_geometryRecord& r, NORLEX_inclinometry* incl) {
    order(r);
    auto reason = complete(r.top, r.topAbs, L"top", incl);
    if (reason.empty())
        reason = complete(r.bot, r.botAbs, L"bottom", incl);
    order(r);
    return reason;
}

} // namespace recordDepths
