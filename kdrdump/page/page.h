#ifndef KDRDUMP_PAGE_PAGE_H
#define KDRDUMP_PAGE_PAGE_H

#include <map>
#include <string>
#include <vector>

#include <kdrdata/kdrdata.h>

#include "markup.h"

// The pieces of a page that shows values in a browser, each made from values and knowing nothing of
// the flow they come from. A page is one file that refers to nothing outside itself; it is HTML
// that reads as XML, too.

namespace page {

/// What belongs together in a picture and has one row in a table.
struct PagePart
{
    std::string name;
    KDRPoint label; ///< where its name is written
    KDRShapeArray figures;
};

/// A table. Where its rows stand for the parts in a picture, in the same order, each lights up with
/// its part, and the columns can be sorted by.
struct PageTable
{
    std::string about;
    std::vector<std::string> columns;
    std::vector<std::vector<std::string>> rows;
    bool ofParts = false;
};

/// What the figures of some kinds are called on a page.
using KindNames = std::map<unsigned int, std::string>;

/// The pixels of @p image, for pictureOf(). Where they have an @p id, sameGround() shows them
/// again.
std::string groundOf(KDRImage const& image, std::string const& id = "");

/// The pixels again that have @p id on the page.
std::string sameGround(std::string const& id);

/// A picture as large as @p image: @p ground, the figures of @p parts over it, and a switch for
/// each kind of figure, by its name in @p names or else by that of the kind. Where a page has
/// several pictures, their parts are counted on, from @p first.
std::string pictureOf(KDRImage const& image, std::string const& ground,
                      std::vector<PagePart> const& parts, KindNames const& names = {},
                      std::size_t first = 1);

/// The figures of @p parts on an empty ground as large as they need.
std::string drawingOf(std::vector<PagePart> const& parts, std::size_t first = 1);

/// A table, in a frame of its own that scrolls where the page is narrow. The parts that its rows
/// may stand for are counted from @p first.
std::string tableOf(PageTable const& table, std::size_t first = 1);

/// How often @p numbers fall into steps of a round width. Nothing where there are no numbers, or
/// infinite ones.
std::string histogramOf(std::string const& title, KDRNumberArray const& numbers);

/// A part of the page with a heading of its own.
std::string sectionOf(std::string const& heading, std::string const& content);

/// The whole page.
std::string pageOf(std::string const& title, std::string const& summary,
                   std::string const& content);

} // namespace page

#endif
