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
    /// Which entry has the same store first: this one, or one before it. What a list holds follows
    /// its first entry alone.
    std::size_t first;
};

/// Whether a list names its values.
bool isRecipe(KDRVariantArray const& list);

/// The values in @p value, each list followed by what it holds where it stands first: lists that
/// hold one twice, which holds one twice in turn, make a short file and an endless tree. Where
/// @p value is no list, itself. @p path is its own.
std::vector<Entry> entriesOf(KDRVariant const& value, std::string const& path = "");

/// Text for one line: as it is, or quoted and escaped where it would not show or is long.
std::string printable(KDRString const& text);

/// What a variant holds, in a few words; nothing for a list.
std::string inBrief(KDRVariant value);

/// A line for each value: kind, name and the value in brief, after the place where it stood before
/// if it did. What a list holds is indented under its name. With @p withPlaces, the place in its
/// list stands before a name.
void printTree(std::ostream& out, std::vector<Entry> const& entries, bool withPlaces);

/// The same for a page, as a tree that unfolds. Arrays of figures unfold, too.
std::string treeOf(std::vector<Entry> const& entries, bool withPlaces = false);

} // namespace page

#endif
