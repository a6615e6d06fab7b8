// Measures the library beside limits taken in the same run. Prints a table, writes JSON.
#include "NORLEX_lastError.h"
#include "bench/measures.h"
#include "platform/strconv.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace bench {

std::string settings::subfolder(const std::string& name) const {
    std::string path = folder + "/" + name;
    std::error_code ignored;
    std::filesystem::create_directories(path, ignored);
    return path;
}

bool failed(const std::string& what) {
    std::printf("%s failed: %s\n", what.c_str(), ts::strconv::toUtf8(NORLEX_lastError()).c_str());
    return false;
}

void add(std::vector<figure>& figures, const figure& line) {
    print(line);
    figures.push_back(line);
}

} // namespace bench

namespace {

struct group {
    std::string_view name;
    std::string_view what;
    bench::measure run;
};

constexpr std::array groups{
    group{"las-read", "reading a large LAS file, its memory, its header alone", bench::lasRead},
    group{"las-import", "a large LAS file into a container", bench::lasImport},
    group{"las-export", "20 large logs into a LAS file", bench::lasExport},
    group{"sample-file", "writing and reading the samples of a log", bench::sampleFiles},
    group{"survey", "depth conversions on 10,000 stations", bench::survey},
    group{"vdm", "depth and time on a velocity model of 10,000 points", bench::vdm},
    group{"many-files", "many small LAS files into one container", bench::manyFiles},
    group{"containers", "making, opening, bulk loading and copying containers", bench::containers},
    group{"records", "records loaded from a table, read, removed; filters", bench::recordMeasures},
    group{"selection", "selections over all wells of a large container", bench::selectionMeasures},
    group{"filter", "data filters over all wells of a large container", bench::filterMeasures},
    group{"correlation", "picks and intervals of a large container", bench::correlationMeasures},
};

struct request {
    bench::settings with;
    std::vector<std::string_view> names;
    std::string json;
    bool good = true;
};

void usage(std::FILE* out) {
    std::fprintf(
        out,
        "usage: welldb_bench [--quick] [--rows N] [--files N] [--wells N] [--repeat N] [--json FILE] "
        "[NAME...]\n\n--quick is --rows 100000 --files 200 --wells 1000 --repeat 3. Names, all of them "
        "by default:\n");
    for (const auto& one : groups)
        std::fprintf(out, "  %-12s %s\n", one.name.data(), one.what.data());
}

bool number(std::string_view text, std::size_t& out) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), out);
    return error == std::errc{} && end == text.data() + text.size() && out > 0;
}

request parse(const std::vector<std::string_view>& arguments) {
    request out;
    const struct {
        std::string_view option;
        std::size_t& value;
    } numbers[] = {{"--rows", out.with.rows},
                   {"--files", out.with.files},
                   {"--wells", out.with.wells},
                   {"--repeat", out.with.rounds}};
    for (std::size_t i = 0; i < arguments.size() && out.good; ++i) {
        const auto option = arguments[i];
        const auto isOption = [&](const auto& n) { return n.option == option; };
        const auto isGroup = [&](const auto& g) { return g.name == option; };
        const auto* found = std::find_if(std::begin(numbers), std::end(numbers), isOption);
        if (option == "--quick") {
            out.with.rows = 100'000;
            out.with.files = 200;
            out.with.rounds = 3;
            out.with.wells = 1000;
        } else if (found != std::end(numbers))
            out.good = ++i < arguments.size() && number(arguments[i], found->value);
        else if (option == "--json" && ++i < arguments.size())
            out.json = arguments[i];
        else if (std::any_of(groups.begin(), groups.end(), isGroup))
            out.names.push_back(option);
        else
            out.good = false;
    }
    return out;
}

bool runAll(const request& wanted, std::vector<bench::figure>& figures) {
    bool good = true;
    bench::printHead();
    for (const auto& one : groups) {
        const auto& names = wanted.names;
        if (names.empty() || std::find(names.begin(), names.end(), one.name) != names.end())
            good = one.run(wanted.with, figures) && good;
    }
    return good;
}

} // namespace

int main(int count, char** arguments) {
    const std::vector<std::string_view> words(arguments + 1, arguments + count);
    if (std::find(words.begin(), words.end(), "--help") != words.end()) {
        usage(stdout);
        return 0;
    }
    request wanted = parse(words);
    if (!wanted.good) {
        usage(stderr);
        return 2;
    }
    // Beside the program, on the disk of the build tree: the system's temporary folder may be
    // memory.
    std::error_code error;
    auto folder = std::filesystem::path(arguments[0]).parent_path() / "data";
    std::filesystem::remove_all(folder, error);
    std::filesystem::create_directories(folder, error);
    wanted.with.folder = folder.string();

    std::vector<bench::figure> figures;
    bool good = runAll(wanted, figures);
    std::filesystem::remove_all(folder, error);
    if (!wanted.json.empty()) {
        good = bench::writeJson(wanted.json, figures) && good;
        std::printf("\nwritten to %s\n", wanted.json.c_str());
    }
    return good ? 0 : 1;
}
