#ifndef KDRDUMP_PAGE_TREE_H
#define KDRDUMP_PAGE_TREE_H

#include <ostream>
#include <string>
#include <vector>

#include <kdrdata/kdrdata.h>

// A value as a tree. A list of variants may be a recipe: names and values by turns, of which the
// tree shows one line for both.

namespace page {

/// One value in a tree.
struct Entry
{
    int depth;
    std::string path;  ///< where it is in the whole, such as `[3][1]`
    std::string place; ///< where it is in its list, such as `[1]`; empty for the whole
    std::string name;  ///< what a recipe calls it; elsewhere its place
    KDRVariant value;
    /// Where the same list stood before, with all that is in it; empty if it did not.
    std::string before;
};

/// Whether a list names its values.
bool isRecipe(KDRVariantArray const& list);

/// The values in @p value, each list followed by what it holds; a list that is shared, once. Where
/// @p value is no list, itself. @p path is its own.
std::vector<Entry> entriesOf(KDRVariant const& value, std::string const& path = "");

/// Text for one line: as it is, or quoted and escaped where it would not show or is long.
std::string printable(KDRString const& text);

/// What a variant holds, in a few words; nothing for a list.
std::string inBrief(KDRVariant value);

/// A line for each value: kind, name and the value in brief. What a list holds is indented under
/// its name. With @p withPlaces, the place in its list stands before a name.
void printTree(std::ostream& out, KDRVariant const& value, bool withPlaces,
               std::string const& path = "");

/// The same for a page, as a tree that unfolds. Arrays of figures unfold, too.
std::string treeOf(KDRVariant const& value, bool withPlaces = false, std::string const& path = "");

} // namespace page

#endif
