// The depths at which the data of wells meet a tree of conditions.
#pragma once

#include "NORLEX_export.h"
#include "NORLEX_filterCondition.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

class NORLEX_selection;
class NORLEX_wellContainer;

// The hits of one well, absolute depths in metres, the shallowest first: (depth, depth) of a
// point, (bottom, top) of an interval. Of points and intervals together the points come first.
struct NORLEX_wellFilterDepths {
    std::wstring wellId;
    std::vector<std::pair<double, double>> depths;
};

// A field of a property.
using NORLEX_filterColumn = std::pair<NORLEX_propDescription, std::wstring>;

// All conditions are tested on one value of one field at a time: conditions on different fields
// find something only when they are joined by "or". Copies share container, selection and tree;
// the tree stays the caller's. Without a selection all wells are filtered.
class NORLEX_API NORLEX_dataFilter {
public:
    NORLEX_dataFilter(std::shared_ptr<NORLEX_wellContainer> container,
                      std::shared_ptr<NORLEX_selection> selection,
                      TreeNode<filterCondition>* tree);

    void reloadTree(TreeNode<filterCondition>* tree);

    // The wells with hits, in the order of the selection. False, without wells, when container or
    // tree is missing, and when the tree cannot be evaluated: it has no conditions, is nested
    // deeper than the engine can take, or compares a numeric field with what is no number.
    bool getInfoForFilterConditions(std::vector<NORLEX_wellFilterDepths>& wells);
    // The same for the intervals of the listed columns alone.
    bool getInfoForFilterConditionsWithColumns(std::vector<NORLEX_wellFilterDepths>& wells,
                                               const std::vector<NORLEX_filterColumn>& columns);
    // A row for each hit: the well's key, the two depths of the hit, and the number that each
    // column has there, NORLEX_missingValue where it has none. Points have a value at their own
    // depth, and in an interval the shallowest point inside it; intervals have theirs from bottom
    // to top, and in an interval hit at its middle.
    bool getGeneralTableForColumns(const std::vector<NORLEX_filterColumn>& columns,
                                   std::vector<std::vector<double>>& table);
    // Hits of the last evaluation.
    [[nodiscard]] int getDepthsCount() const { return m_depths; }

    // The tree as XML, root "tree". Loading replaces the children of the tree; a file that is
    // refused leaves them as they were.
    [[nodiscard]] bool saveFilter(const std::wstring& path) const;
    [[nodiscard]] bool loadFilter(const std::wstring& path);

private:
    std::shared_ptr<NORLEX_wellContainer> m_container;
    std::shared_ptr<NORLEX_selection> m_selection;
    TreeNode<filterCondition>* m_tree = nullptr;
    int m_depths = 0;
};
