#include "cli/commands.h"
#include "cli/json_out.h"
#include "cli/open_container.h"
#include "cli/output.h"
#include "cli/table.h"
#include "cli/text.h"

#include <filesystem>
#include <system_error>

namespace {

constexpr std::wstring_view extension = L".well2";

std::string_view typeName(std::int32_t type) {
    return type == 2 ? "server" : "local";
}

std::string_view statusName(NORLEX_versionStatus status) {
    switch (status) {
    case NORLEX_versionStatus::current:
        return "current";
    case NORLEX_versionStatus::needsUpgrade:
        return "needs upgrade";
    case NORLEX_versionStatus::unreadable:
        break;
    }
    return "unreadable";
}

json infoOf(const NORLEX_wellContainer& container) {
    const NORLEX_contDescription& description = container.getContDescription();
    return {
        {"path", jsonOut::string(description.path)},
        {"type", typeName(description.type)},
        {"version", container.getVersionNumber()},
        {"status", statusName(container.getVersionStatus())},
        {"wells", container.getWellCount()},
        {"properties", container.getPropertyCount()},
        {"templates", container.getTemplateCount()},
        {"created", jsonOut::string(container.getCreateDate())},
        {"created_by", jsonOut::string(container.getCreateUser())},
        {"updated", jsonOut::string(container.getUpdateDate())},
        {"updated_by", jsonOut::string(container.getUpdateUser())},
        {"file_directory", jsonOut::string(container.getFileContainerPath())},
    };
}

} // namespace

namespace commands {

int create(const createRequest& request) {
    if (!request.file.ends_with(extension))
        return output::refused(L"the container was not created: the name " + request.file
                               + L" does not end in .well2, by which a container is known");
    const auto found = describeContainer(request.file);
    if (!found)
        return output::failure;
    const NORLEX_contDescription& description = *found;
    std::error_code error;
    const auto status = std::filesystem::symlink_status(text::path(request.file), error);
    // A server description stays where it is: the database that it names is what is made.
    if (description.type != 2 && std::filesystem::exists(status)) {
        if (std::filesystem::is_directory(status))
            return output::refused(L"the container was not created: " + request.file
                                   + L" is a folder");
        if (!request.force)
            return output::refused(L"the container was not created: " + request.file
                                   + L" exists already; --force replaces it");
    }
    if (!NORLEX_wellContainer::create(description))
        return output::refused();
    output::line(L"created " + request.file + L", attached files in "
                 + description.fileContainerPath);
    return 0;
}

int info(const fileRequest& request) {
    const auto container = openContainer(request.file);
    if (!container)
        return output::failure;
    const json info = infoOf(*container);
    if (request.form == resultForm::json) {
        jsonOut::print(info);
        return 0;
    }
    std::vector<std::pair<std::string_view, std::string>> pairs;
    for (const auto& [key, value] : info.items())
        pairs.emplace_back(key, value.is_string() ? value.get<std::string>() : value.dump());
    printPairs(pairs);
    return 0;
}

} // namespace commands
