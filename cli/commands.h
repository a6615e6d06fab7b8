// What each command is asked for, and the commands. Each answers its exit code: 0, or 1 after
// one line on standard error that says what was refused and why.
#pragma once

#include "NORLEX_lasImport.h"
#include "ts_strconv.h"

#include <optional>
#include <string>
#include <vector>

enum class resultForm { table, json, csv };

struct createRequest {
    std::wstring file;
    bool force = false;
};

struct fileRequest {
    std::wstring file;
    resultForm form = resultForm::table;
};

struct upgradeRequest {
    std::wstring file;
    bool yes = false;
    resultForm form = resultForm::table;
};

struct checkRequest {
    std::wstring file;
    bool repair = false;
    resultForm form = resultForm::table;
};

struct archiveRequest {
    std::wstring file;
    std::wstring archive;
    bool force = false;
};

struct optimizeRequest {
    std::wstring file;
    bool indexes = false;
    bool noIndexes = false;
};

struct copyRequest {
    std::wstring from;
    std::wstring to;
};

struct wellRequest {
    std::wstring file;
    std::wstring well;
    resultForm form = resultForm::table;
};

struct lasRequest {
    std::wstring file;
    ts::strconv::encodings encoding = ts::strconv::detect;
    bool headerOnly = false;
    resultForm form = resultForm::table;
};

struct importLasRequest {
    std::wstring file;
    std::vector<std::wstring> paths;
    NORLEX_lasImportOptions options;
    resultForm form = resultForm::table;
};

struct exportLasRequest {
    std::wstring file;
    std::wstring well;
    std::vector<std::wstring> properties; // empty: every log
    bool exact = false;
    std::wstring out;
};

struct wellSetRequest {
    std::wstring file;
    std::wstring well;
    std::optional<double> altitude;
    std::optional<double> x; // with y
    std::optional<double> y;
    std::optional<double> bottom;
};

struct renameRequest {
    std::wstring file;
    std::wstring well;
    std::wstring to;
};

struct dataRequest {
    std::wstring file;
    std::wstring well;
    std::wstring property;
    std::optional<double> from; // measured depths, both taken in
    std::optional<double> to;
    bool codes = false; // of fields bound to dictionaries, or their values
    resultForm form = resultForm::table;
};

struct depthRequest {
    std::wstring file;
    std::wstring well;
    std::vector<double> measured; // depths of one of the two systems
    std::vector<double> absolute;
    resultForm form = resultForm::table;
};

namespace commands {

[[nodiscard]] int create(const createRequest& request);
[[nodiscard]] int info(const fileRequest& request);

[[nodiscard]] int upgrade(const upgradeRequest& request);
[[nodiscard]] int check(const checkRequest& request);
[[nodiscard]] int backup(const archiveRequest& request);
[[nodiscard]] int restore(const archiveRequest& request);
[[nodiscard]] int optimize(const optimizeRequest& request);
[[nodiscard]] int copy(const copyRequest& request);

[[nodiscard]] int las(const lasRequest& request);
[[nodiscard]] int importLas(const importLasRequest& request);
[[nodiscard]] int exportLas(const exportLasRequest& request);

[[nodiscard]] int wells(const fileRequest& request);
[[nodiscard]] int addWell(const wellSetRequest& request);
[[nodiscard]] int setWell(const wellSetRequest& request);
[[nodiscard]] int renameWell(const renameRequest& request);
[[nodiscard]] int removeWell(const wellRequest& request);

[[nodiscard]] int props(const wellRequest& request);
[[nodiscard]] int data(const dataRequest& request);

[[nodiscard]] int depth(const depthRequest& request);

} // namespace commands
