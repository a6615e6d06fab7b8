// XML documents and their elements.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace pugi {
struct xml_node_struct;
}

// One element of a document, or nothing. A copy is the same element; the document lives as long
// as any of its elements is held. Asking nothing for its parts gives empty texts and nothing
// again, so that a path can be followed without looking at each step.
class Tts_xml_node {
public:
    Tts_xml_node() = default; // nothing

    // The root of a new document.
    [[nodiscard]] static Tts_xml_node create(std::wstring_view rootName);

    // The root of the document in a file, in UTF-8, UTF-16, UTF-32 or the encoding it declares.
    // Nothing, with the reason in the last error, when the file cannot be read, is no XML, or has
    // another root than `rootName` (empty: any).
    [[nodiscard]] static Tts_xml_node load(const std::wstring& path, std::wstring_view rootName);

    // Writes the whole document that this element belongs to, in UTF-8 with a declaration,
    // indented by tabs; in one line where elements stand more than 200 deep in each other. The old
    // file or the new one is there, never a part. Refused for nothing.
    [[nodiscard]] bool save(const std::wstring& path) const;

    [[nodiscard]] bool isEmpty() const { return m_node == nullptr; }

    [[nodiscard]] std::wstring name() const;
    [[nodiscard]] std::wstring text() const; // directly in the element, entities resolved
    // Replaces the text. Characters that XML cannot hold (below blank, other than tab and line
    // ends) become U+FFFD.
    void setText(std::wstring_view text);

    // Elements in document order; with a name, only those that bear it.
    [[nodiscard]] std::vector<Tts_xml_node> children() const;
    [[nodiscard]] std::vector<Tts_xml_node> children(std::wstring_view name) const;
    [[nodiscard]] Tts_xml_node child(std::wstring_view name) const; // the first, else nothing
    [[nodiscard]] std::wstring childText(std::wstring_view name) const;

    // Appends. A name must be an XML name; nothing is added to nothing.
    Tts_xml_node addChild(std::wstring_view name);
    Tts_xml_node addChild(std::wstring_view name, std::wstring_view text);

    [[nodiscard]] bool hasAttribute(std::wstring_view name) const;
    [[nodiscard]] std::wstring attribute(std::wstring_view name) const; // empty where it lacks
    void setAttribute(std::wstring_view name, std::wstring_view value);

private:
    struct document;
    Tts_xml_node(std::shared_ptr<document> owner, pugi::xml_node_struct* node);

    std::shared_ptr<document> m_document;
    pugi::xml_node_struct* m_node = nullptr; // in m_document
};
