// Large logs into a LAS file, beside a bare loop that writes the same numbers.
#include "bench/child.h"
#include "bench/database.h"
#include "bench/las_files.h"
#include "bench/measures.h"

#include "NORLEX_lasImport.h"
#include "NORLEX_well.h"
#include "platform/strconv.h"

#include <charconv>
#include <cstdio>
#include <filesystem>
#include <system_error>

namespace bench {

namespace {

// The described form has fixed decimals, the exact one as many as read back the same number.
enum class form { described, exact };

struct wellLogs {
    std::unique_ptr<NORLEX_wellContainer> container;
    std::unique_ptr<NORLEX_well> well;
    std::vector<std::unique_ptr<NORLEX_wellProperty>> logs;
};

wellLogs openLogs(const std::string& base) {
    wellLogs out;
    out.container = openContainer(base);
    if (!out.container)
        return out;
    std::vector<NORLEX_wellDescription> wells;
    NORLEX_well::getWellList(out.container->getBaseLink(), wells);
    if (wells.empty())
        return out;
    out.well = std::make_unique<NORLEX_well>(out.container->getBaseLink(), wells.front());
    std::vector<NORLEX_propDescription> properties;
    out.well->getPropertyList(properties);
    for (const auto& property : properties)
        out.logs.push_back(out.well->openProperty(property));
    return out;
}

std::vector<double> exportSeconds(const std::string& base, const std::string& path, form how) {
    const wellLogs from = openLogs(base);
    std::vector<NORLEX_wellProperty*> logs;
    for (const auto& log : from.logs)
        logs.push_back(log.get());
    const std::wstring target = ts::strconv::fromUtf8(path);
    bool good = logs.size() == curvesOfLarge;
    const double time = timed([&] {
        if (good && how == form::exact)
            good = from.well->exportLASExact(target, logs);
        else if (good)
            from.well->exportLAS(target, logs);
    });
    return good && sizeOf(path) > 0.0 ? std::vector{time} : std::vector<double>{};
}

char* put(char* out, double value, form how, int decimals) {
    constexpr std::ptrdiff_t room = 32;
    *out++ = ' ';
    return how == form::exact
               ? std::to_chars(out, out + room, value).ptr
               : std::to_chars(out, out + room, value, std::chars_format::fixed, decimals).ptr;
}

// Missing values take part as the number that the file would show.
bool bareLoop(const std::vector<std::vector<NORLEX_logSample>>& logs, std::FILE* file, form how) {
    constexpr std::size_t flushAt = std::size_t{1} << 16;
    std::vector<char> buffer(flushAt + 4096);
    char* out = buffer.data();
    bool good = true;
    for (std::size_t row = 0; good && row < logs[0].size(); ++row) {
        out = put(out, logs[0][row].depth, how, 1);
        for (const auto& log : logs) {
            const double value = log[row].value;
            out = put(out, value == NORLEX_missingValue ? -99999.0 : value, how, 3);
        }
        *out++ = '\n';
        const auto length = static_cast<std::size_t>(out - buffer.data());
        if (length < flushAt)
            continue;
        good = std::fwrite(buffer.data(), 1, length, file) == length;
        out = buffer.data();
    }
    const auto length = static_cast<std::size_t>(out - buffer.data());
    return good && std::fwrite(buffer.data(), 1, length, file) == length;
}

std::vector<double> bareSeconds(const std::string& base, const std::string& path, form how) {
    const wellLogs from = openLogs(base);
    std::vector<std::vector<NORLEX_logSample>> logs(from.logs.size());
    for (std::size_t i = 0; i < logs.size(); ++i)
        if (!from.logs[i]->getSamples(logs[i]) || logs[i].size() != logs[0].size())
            return {};
    bool good = !logs.empty();
    const double time = timed([&] {
        std::FILE* file = good ? std::fopen(path.c_str(), "wb") : nullptr;
        good = file != nullptr && bareLoop(logs, file, how);
        good = file != nullptr && std::fclose(file) == 0 && good;
    });
    return good ? std::vector{time} : std::vector<double>{};
}

bool compare(const settings& with,
             const std::string& base,
             form how,
             std::vector<figure>& figures) {
    const std::string path = with.folder + "/export/out.las";
    const double numbers = static_cast<double>(with.rows * (curvesOfLarge + 1)) / 1e6;
    std::vector<double> rates, limits;
    for (std::size_t round = 0; round < with.rounds; ++round) {
        const auto limit = inChild([&] { return bareSeconds(base, path + ".bare", how); });
        const auto written = inChild([&] { return exportSeconds(base, path, how); });
        std::remove((path + ".bare").c_str());
        std::remove(path.c_str());
        if (!limit || !written)
            return failed("exporting to " + path);
        limits.push_back(numbers / limit->values[0]);
        rates.push_back(numbers / written->values[0]);
    }
    const char* name = how == form::exact ? "LAS export, exact" : "LAS export";
    add(figures, against(name, "M numbers/s", rates, "bare to_chars loop", limits, 0.5));
    return true;
}

} // namespace

bool lasExport(const settings& with, std::vector<figure>& figures) {
    const std::string source = with.folder + "/large.las";
    const std::string base = with.subfolder("export") + "/base.well2";
    if (!makeLas(source, "BIG-1", with.rows, curvesOfLarge))
        return failed("making " + source);
    const auto filled = inChild([&] {
        const auto container = newContainer(base);
        const bool good = container
                          && NORLEX_lasImport(container->getBaseLink(), {})
                                 .importFile(ts::strconv::fromUtf8(source))
                                 .ok;
        return good ? std::vector{1.0} : std::vector<double>{};
    });
    const bool good = filled ? compare(with, base, form::described, figures)
                                   && compare(with, base, form::exact, figures)
                             : failed("importing " + source);
    std::error_code ignored;
    std::filesystem::remove_all(with.folder + "/export", ignored);
    return good;
}

} // namespace bench
