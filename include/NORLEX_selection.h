// A named, saved description of a subset of the wells of a container.
#pragma once

#include "NORLEX_contDescription.h"
#include "NORLEX_export.h"
#include "NORLEX_propDescription.h"
#include "NORLEX_query.h"
#include "NORLEX_wellDescription.h"

#include <cstddef>
#include <string>
#include <vector>

class NORLEX_wellContainer;
class Tts_xml_node;

// A named list of queries.
struct NORLEX_selectionFilter {
    std::wstring name;
    std::vector<NORLEX_query> queries;
};

// The wells are those that the queries of the active filter find, or all where it has none, plus
// the wells added by hand, less those removed by hand. Queries are joined strictly from left to
// right, without precedence. The list is computed when it is asked for after a change.
//
// A rebuilding opens the container of the description. Where that fails, the list is empty and
// NORLEX_lastError() says why.
class NORLEX_API NORLEX_selection {
public:
    NORLEX_selection(std::wstring name, NORLEX_contDescription container);
    // A custom selection has no wells but those added by hand.
    NORLEX_selection(std::wstring name, NORLEX_contDescription container, bool custom);

    [[nodiscard]] const std::wstring& name() const { return m_name; }
    void name(const std::wstring& newName) { m_name = newName; }
    [[nodiscard]] const NORLEX_contDescription& descr() const { return m_container; }
    void descr(const NORLEX_contDescription& container);
    void reloadContainer(const NORLEX_contDescription& container) { descr(container); }

    // The wells that the first query found, then those of later ones, then the added ones. What a
    // query finds is in order of making, what it leaves and all wells by work object, field, name.
    void getWellList(std::vector<NORLEX_wellDescription>& wells);
    [[nodiscard]] std::size_t getWellCount();
    [[nodiscard]] std::vector<std::wstring> getWellIDList();
    [[nodiscard]] std::wstring getWellIDString(); // keys with commas between them
    // False when the container cannot be read.
    bool rebuildList();
    // The same through the container where it is open already, as its open transaction sees it.
    // Another container is refused.
    bool rebuildList(const NORLEX_wellContainer& container);

    // The queries of the active filter, by index from 0. An index outside them changes nothing and
    // yields an empty query.
    void addFilter(const NORLEX_query& query);
    void delFilter(std::size_t index);
    void updateFilter(std::size_t index, const NORLEX_query& query);
    [[nodiscard]] NORLEX_query getFilter(std::size_t index) const;
    [[nodiscard]] std::size_t getFilterCount() const;
    void resetFilters(); // no queries
    void clear();        // nor wells by hand, nor inversion

    // All filters. The first one is active in a new selection and after loading; a saved file has
    // the active one first.
    [[nodiscard]] const std::vector<NORLEX_selectionFilter>& getFilterList() const;
    // Adds a filter, or replaces the one of its name.
    void setFilter(const NORLEX_selectionFilter& filter);
    void removeFilter(const std::wstring& filterName);
    [[nodiscard]] bool setActiveFilter(const std::wstring& filterName); // false when there is none

    // Wells by hand; the container need not have them now. Adding a well that was removed by hand
    // takes the removal back, and the other way round.
    void addWell(const NORLEX_wellDescription& well);
    void addWells(const std::vector<NORLEX_wellDescription>& wells);
    void delWell(const NORLEX_wellDescription& well);
    // Replaces the wells picked on a map, which NORLEX_filterTypeGeometry finds.
    void addGeomWells(const std::vector<NORLEX_wellDescription>& wells);
    [[nodiscard]] const std::vector<NORLEX_wellDescription>& getAddedWells() const;
    [[nodiscard]] const std::vector<NORLEX_wellDescription>& getDeletedWells() const;
    [[nodiscard]] const std::vector<NORLEX_wellDescription>& getGeomWells() const;

    // Takes the wells that the queries do not find.
    void setInvertResult(bool invert);
    [[nodiscard]] bool getInvertResult() const { return m_isInverted; }
    void setCustom(bool custom);
    [[nodiscard]] bool getCustom() const { return m_isCustom; }

    // For people, a line each: the queries; the first wells and how many more; all wells; both.
    [[nodiscard]] std::wstring getFilterInfo() const;
    [[nodiscard]] std::wstring getWellInfo();
    [[nodiscard]] std::wstring getWellInfoFull();
    [[nodiscard]] std::wstring getDescription();

    // Keep the selection in step with the database.
    void renameWell(const NORLEX_wellDescription& oldWell, const NORLEX_wellDescription& newWell);
    void renameProperty(const NORLEX_propDescription& oldProp,
                        const NORLEX_propDescription& newProp);
    void updateWell(const NORLEX_wellDescription& well);
    void updateAll();
    void updateProperty(const NORLEX_propDescription& prop);
    void deleteWell(const NORLEX_wellDescription& well);

    // XML, the root "wellDB_selection_parans" or one element "wellDB_selection" below the node.
    // Wells are kept by their names; the container is not part of it. Unknown elements are passed
    // over. A file that is refused leaves the selection as it was.
    [[nodiscard]] bool save(const std::wstring& path) const;
    [[nodiscard]] bool load(const std::wstring& path);
    [[nodiscard]] bool save(Tts_xml_node* node) const;
    [[nodiscard]] bool load(Tts_xml_node* node);

private:
    using wellList = std::vector<NORLEX_wellDescription>;

    [[nodiscard]] std::vector<NORLEX_query>& queries(); // of the active filter
    [[nodiscard]] const std::vector<NORLEX_query>& queries() const;
    bool refresh(); // rebuilds an outdated list
    void outdate() { m_isCurrent = false; }
    void updateWellID();

    std::wstring m_name;
    NORLEX_contDescription m_container;
    bool m_isCustom = false;
    bool m_isInverted = false;
    std::vector<NORLEX_selectionFilter> m_filters = {{}};
    std::size_t m_active = 0; // always one of m_filters
    wellList m_added;
    wellList m_deleted;
    wellList m_geometry;
    wellList m_wells;
    std::wstring m_wellIds;
    bool m_isCurrent = false;
};
