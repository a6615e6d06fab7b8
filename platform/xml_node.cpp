#include "platform/xml_node.h"

#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/strconv.h"

#include <pugixml.hpp>

#include <cstdio>
#include <optional>
#include <utility>

using ts::strconv::fromUtf8;
using ts::strconv::toUtf8;

struct Tts_xml_node::document {
    pugi::xml_document xml;
};

namespace {

// A text of blanks alone is a value like any other. Line ends stay as they are: values of several
// lines come back as they were saved.
constexpr unsigned int parseOptions = (pugi::parse_default | pugi::parse_ws_pcdata_single)
                                      & ~static_cast<unsigned int>(pugi::parse_eol);

std::string allowed(std::wstring_view text) {
    std::wstring result(text);
    for (wchar_t& c : result) {
        if (c >= 0 && c < L' ' && c != L'\t' && c != L'\n' && c != L'\r')
            c = L'\uFFFD';
    }
    return toUtf8(result);
}

std::optional<std::string> contents(const std::wstring& path) {
    const files::handle file = files::openRead(path);
    if (!file)
        return std::nullopt;
    std::string bytes;
    std::string chunk(std::size_t{1} << 16, '\0');
    while (const std::size_t count = std::fread(chunk.data(), 1, chunk.size(), file.get()))
        bytes.append(chunk, 0, count);
    if (std::ferror(file.get()) == 0)
        return bytes;
    refuse(L"\"" + path + L"\" cannot be read; an XML file is needed");
    return std::nullopt;
}

// The encoding that an ASCII-compatible document declares in its first line.
std::optional<ts::strconv::encodings> declaredEncoding(std::string_view bytes) {
    constexpr std::string_view key = "encoding=";
    const std::string_view line = bytes.substr(0, bytes.find('>'));
    const std::size_t at = line.find(key);
    if (line.substr(0, 5) != "<?xml" || at == std::string_view::npos
        || at + key.size() >= line.size())
        return std::nullopt;
    const std::string_view value = line.substr(at + key.size() + 1);
    return ts::strconv::byName(value.substr(0, value.find(line[at + key.size()])));
}

// Bytes that the parser understands: it knows the Unicode encodings by itself.
void toParserEncoding(std::string& bytes) {
    const auto declared = declaredEncoding(bytes);
    if (declared && *declared >= ts::strconv::cp866)
        bytes = toUtf8(ts::strconv::decode(bytes, *declared));
}

bool isText(pugi::xml_node node) {
    return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

// Whether elements stand inside each other so deeply that indenting them would make a file of a
// size that grows with the square of it.
bool isDeep(const pugi::xml_document& xml) {
    constexpr int deepest = 200;
    int depth = 0;
    for (pugi::xml_node at = xml.first_child(); !at.empty() && depth <= deepest;) {
        if (const pugi::xml_node below = at.first_child(); !below.empty()) {
            at = below;
            ++depth;
            continue;
        }
        while (!at.empty() && at.next_sibling().empty()) {
            at = at.parent();
            --depth;
        }
        at = at.next_sibling();
    }
    return depth > deepest;
}

struct fileWriter : pugi::xml_writer {
    explicit fileWriter(std::FILE* to) : file(to) {}
    void write(const void* data, std::size_t size) override {
        ok = ok && files::put(file, {static_cast<const char*>(data), size});
    }
    std::FILE* file;
    bool ok = true;
};

} // namespace

Tts_xml_node::Tts_xml_node(std::shared_ptr<document> owner, pugi::xml_node_struct* node)
    : m_document(node == nullptr ? nullptr : std::move(owner)), m_node(node) {}

Tts_xml_node Tts_xml_node::create(std::wstring_view rootName) {
    auto made = std::make_shared<document>();
    pugi::xml_node_struct* const root =
        made->xml.append_child(toUtf8(rootName).c_str()).internal_object();
    return {std::move(made), root};
}

Tts_xml_node Tts_xml_node::load(const std::wstring& path, std::wstring_view rootName) {
    std::optional<std::string> bytes = contents(path);
    if (!bytes)
        return {};
    toParserEncoding(*bytes);
    auto loaded = std::make_shared<document>();
    const pugi::xml_parse_result result =
        loaded->xml.load_buffer(bytes->data(), bytes->size(), parseOptions);
    if (!result) {
        refuse(L"\"" + path + L"\" is no XML document: " + fromUtf8(result.description())
               + L" at byte " + std::to_wstring(result.offset));
        return {};
    }
    const pugi::xml_node root = loaded->xml.document_element();
    if (!rootName.empty() && fromUtf8(root.name()) != rootName) {
        refuse(L"\"" + path + L"\" holds \"" + fromUtf8(root.name()) + L"\"; a document of \""
               + std::wstring(rootName) + L"\" is needed");
        return {};
    }
    return {std::move(loaded), root.internal_object()};
}

bool Tts_xml_node::save(const std::wstring& path) const {
    if (isEmpty())
        return refuse(L"\"" + path + L"\" is not written: there is no document to save");
    return files::replace(path, [this](std::FILE* file) {
        constexpr std::string_view declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
        const unsigned int form =
            pugi::format_no_declaration
            | (isDeep(m_document->xml) ? pugi::format_raw : pugi::format_indent);
        fileWriter writer(file);
        writer.write(declaration.data(), declaration.size());
        m_document->xml.save(writer, "\t", form, pugi::encoding_utf8);
        return writer.ok;
    });
}

std::wstring Tts_xml_node::name() const {
    return fromUtf8(pugi::xml_node(m_node).name());
}

std::wstring Tts_xml_node::text() const {
    std::string text;
    for (const pugi::xml_node node : pugi::xml_node(m_node).children()) {
        if (isText(node))
            text += node.value();
    }
    return fromUtf8(text);
}

void Tts_xml_node::setText(std::wstring_view text) {
    pugi::xml_node node(m_node);
    for (pugi::xml_node part = node.first_child(); !part.empty();) {
        const pugi::xml_node next = part.next_sibling();
        if (isText(part))
            node.remove_child(part);
        part = next;
    }
    if (!text.empty())
        node.append_child(pugi::node_pcdata).set_value(allowed(text).c_str());
}

std::vector<Tts_xml_node> Tts_xml_node::children() const {
    return children({});
}

std::vector<Tts_xml_node> Tts_xml_node::children(std::wstring_view name) const {
    const std::string wanted = toUtf8(name);
    std::vector<Tts_xml_node> found;
    for (const pugi::xml_node node : pugi::xml_node(m_node).children()) {
        if (node.type() == pugi::node_element && (wanted.empty() || wanted == node.name()))
            found.push_back(Tts_xml_node(m_document, node.internal_object()));
    }
    return found;
}

Tts_xml_node Tts_xml_node::child(std::wstring_view name) const {
    return {m_document, pugi::xml_node(m_node).child(toUtf8(name).c_str()).internal_object()};
}

std::wstring Tts_xml_node::childText(std::wstring_view name) const {
    return child(name).text();
}

Tts_xml_node Tts_xml_node::addChild(std::wstring_view name) {
    return {m_document,
            pugi::xml_node(m_node).append_child(toUtf8(name).c_str()).internal_object()};
}

Tts_xml_node Tts_xml_node::addChild(std::wstring_view name, std::wstring_view text) {
    Tts_xml_node added = addChild(name);
    added.setText(text);
    return added;
}

bool Tts_xml_node::hasAttribute(std::wstring_view name) const {
    return !pugi::xml_node(m_node).attribute(toUtf8(name).c_str()).empty();
}

std::wstring Tts_xml_node::attribute(std::wstring_view name) const {
    return fromUtf8(pugi::xml_node(m_node).attribute(toUtf8(name).c_str()).value());
}

void Tts_xml_node::setAttribute(std::wstring_view name, std::wstring_view value) {
    pugi::xml_node node(m_node);
    const std::string key = toUtf8(name);
    pugi::xml_attribute attribute = node.attribute(key.c_str());
    if (attribute.empty())
        attribute = node.append_attribute(key.c_str());
    attribute.set_value(allowed(value).c_str());
}
