#include "platform/archive.h"

#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/strconv.h"

#include <zip.h>

#include <utility>

namespace {

constexpr zip_uint32_t fastest = 1; // samples hardly get smaller by more

std::wstring words(const char* text) {
    return ts::strconv::fromUtf8(text == nullptr ? "" : text);
}

std::wstring openError(int code) {
    zip_error_t error;
    zip_error_init_with_code(&error, code);
    std::wstring out = words(zip_error_strerror(&error));
    zip_error_fini(&error);
    return out;
}

// Below the folder it is extracted into, whatever an archive of somebody else's says.
bool isSafe(const std::filesystem::path& name) {
    if (name.empty() || name.is_absolute() || !name.has_filename())
        return false;
    for (const auto& part : name)
        if (part == ".." || part == ".")
            return false;
    return true;
}

struct closer {
    void operator()(zip_file_t* file) const { zip_fclose(file); }
};

} // namespace

archive_writer::archive_writer(std::wstring path) : m_path(std::move(path)) {
    int code = 0;
    m_zip = zip_open(files::native(m_path).c_str(), ZIP_CREATE | ZIP_TRUNCATE, &code);
    if (m_zip == nullptr)
        refuse(L"cannot write " + m_path + L": " + openError(code));
}

archive_writer::~archive_writer() {
    if (m_zip != nullptr)
        zip_discard(m_zip);
}

bool archive_writer::fail() {
    return refuse(L"cannot write " + m_path + L": " + words(zip_strerror(m_zip)));
}

bool archive_writer::add(const std::wstring& file, const std::wstring& name) {
    if (m_zip == nullptr)
        return false;
    zip_source_t* const source = zip_source_file(m_zip, files::native(file).c_str(), 0, -1);
    if (source == nullptr)
        return fail();
    const std::string entry = files::native(name).native();
    const zip_int64_t index = zip_file_add(m_zip, entry.c_str(), source, ZIP_FL_ENC_UTF_8);
    if (index < 0) {
        zip_source_free(source);
        return fail();
    }
    return zip_set_file_compression(
               m_zip, static_cast<zip_uint64_t>(index), ZIP_CM_DEFLATE, fastest)
               == 0
           || fail();
}

bool archive_writer::close() {
    if (m_zip == nullptr)
        return false;
    if (zip_close(m_zip) != 0)
        return fail();
    m_zip = nullptr;
    return true;
}

archive_reader::~archive_reader() {
    if (m_zip != nullptr)
        zip_discard(m_zip);
}

bool archive_reader::open(const std::wstring& path) {
    int code = 0;
    m_path = path;
    m_zip = zip_open(files::native(path).c_str(), ZIP_RDONLY | ZIP_CHECKCONS, &code);
    if (m_zip == nullptr)
        return refuse(L"cannot read the archive " + path + L": " + openError(code));
    const zip_int64_t count = zip_get_num_entries(m_zip, 0);
    for (zip_int64_t i = 0; i < count; ++i) {
        const char* const name = zip_get_name(m_zip, static_cast<zip_uint64_t>(i), ZIP_FL_ENC_RAW);
        if (name == nullptr || !isSafe(std::filesystem::path(name)))
            return refuse(L"cannot read the archive " + path + L": \"" + words(name)
                          + L"\" is not the name of a file below a folder");
        m_names.push_back(files::wide(std::filesystem::path(name)));
    }
    return true;
}

bool archive_reader::extract(const std::wstring& name, const std::wstring& folder) const {
    const std::wstring target = folder + name;
    const std::string entry = files::native(name).native();
    const zip_int64_t index = zip_name_locate(m_zip, entry.c_str(), ZIP_FL_ENC_RAW);
    const std::unique_ptr<zip_file_t, closer> from(
        index < 0 ? nullptr : zip_fopen_index(m_zip, static_cast<zip_uint64_t>(index), 0));
    if (!from)
        return refuse(L"cannot read " + name + L" in " + m_path + L": "
                      + words(zip_strerror(m_zip)));
    const auto to = files::makeFolder(files::folderOf(target)) ? files::openWrite(target) : nullptr;
    if (!to)
        return false;
    std::vector<char> block(std::size_t{1} << 16);
    zip_int64_t got = 0;
    while ((got = zip_fread(from.get(), block.data(), block.size())) > 0)
        if (!files::put(to.get(), {block.data(), static_cast<std::size_t>(got)}))
            return refuse(L"cannot write " + target + L": " + files::reason(errno));
    if (got < 0)
        return refuse(L"the archive " + m_path + L" is damaged: " + name + L": "
                      + words(zip_file_strerror(from.get())));
    return std::fflush(to.get()) == 0
           || refuse(L"cannot write " + target + L": " + files::reason(errno));
}
