#include "scenes.h"

#include "page/figures.h"

#include <limits>
#include <map>

namespace kdrdump {

namespace {

// A page that draws so many places and figures again is large enough.
constexpr std::size_t mostAgain = 250000;

KDRPoint nowhere()
{
    double const none = std::numeric_limits<double>::quiet_NaN();
    return KDRPoint(none, none);
}

// The list that holds what is at `path`.
std::string listOf(std::string const& path)
{
    std::size_t const end = path.rfind('[');
    return end == std::string::npos ? "" : path.substr(0, end);
}

// Where the name of a figure is written: in its middle, where it tells one or has runs.
KDRPoint labelPlaceOf(KDRShape const& shape)
{
    std::vector<page::Quantity> const quantities = page::quantitiesOf(shape);
    if (quantities.size() > 2)
        return KDRPoint(quantities[0].value, quantities[1].value);
    std::vector<page::Run> const runs = page::runsOf(shape);
    if (!runs.empty()) {
        page::Run const& middle = runs[runs.size() / 2];
        return KDRPoint((middle.first + middle.last) / 2.0, middle.row);
    }
    for (page::Line const& line : page::linesOf(shape))
        if (!line.empty())
            return KDRPoint(line.front().x, line.front().y);
    return nowhere();
}

// A figure of an entry.
struct Figure
{
    std::string place; // in the entry
    KDRShape shape;
    KDRPoint label;
    std::string brief;
};

// The figures of an entry and what it takes to draw them.
struct Figures
{
    std::vector<Figure> all;
    std::size_t weight = 0;

    void add(std::string const& place, KDRShape const& shape)
    {
        all.push_back({place, shape, labelPlaceOf(shape), page::inBrief(KDRVariant(shape))});
        weight += 1 + page::runsOf(shape).size();
        for (page::Line const& line : page::linesOf(shape))
            weight += line.size();
    }
};

Figures figuresOf(KDRVariant const& value)
{
    KDRShape shape;
    KDRContour contour;
    KDRShapeArray shapes;
    KDRContourArray contours;
    Figures figures;
    if (value.toShape(&shape))
        figures.add("", shape);
    else if (value.toContour(&contour))
        figures.add("", page::polygonOf(contour));
    else if (value.toShapeArray(&shapes))
        for (int i = 0; i < shapes.length(); ++i)
            figures.add('[' + std::to_string(i) + ']', shapes[i]);
    else if (value.toContourArray(&contours))
        for (int i = 0; i < contours.length(); ++i)
            figures.add('[' + std::to_string(i) + ']', page::polygonOf(contours[i]));
    return figures;
}

class Scenes
{
public:
    Scenes(std::vector<page::Entry> const& all, std::vector<Picture> const& pictures) : entries(all)
    {
        for (Picture const& picture : pictures) {
            ofPicture[picture.path] = scenes.size();
            scenes.push_back({picture.path, &picture, {}, {}});
        }
        for (page::Entry const& entry : entries)
            if (std::size_t const own = sceneOf(entry); own != none)
                firstIn.insert({listOf(entry.path), own});
        for (std::size_t i = 0; i < entries.size(); ++i)
            enter(i);
    }

    std::vector<Scene> scenes;

private:
    static constexpr std::size_t none = std::numeric_limits<std::size_t>::max();

    // What the figures of a list belong to at the moment.
    struct Level
    {
        std::string list;
        std::size_t scene;
    };

    // That of an entry which is a picture itself.
    std::size_t sceneOf(page::Entry const& entry) const
    {
        auto const found = ofPicture.find(entry.path);
        return found == ofPicture.end() ? none : found->second;
    }

    void enter(std::size_t i)
    {
        page::Entry const& entry = entries[i];
        Level& level = levelOf(entry);
        if (std::size_t const own = sceneOf(entry); own != none)
            level.scene = own;
        Figures const& figures = figuresAt(i);
        if (figures.all.empty())
            return;
        if (level.scene == none) {
            level.scene = scenes.size();
            scenes.push_back({level.list, nullptr, {}, {}});
        }
        Scene& scene = scenes[level.scene];
        if (entry.first != i && figures.weight > left)
            return add(scene, entry,
                       {"", KDRShape(), nowhere(),
                        "the same as " + entries[entry.first].path + ", not drawn again"});
        if (entry.first != i)
            left -= figures.weight;
        for (Figure const& figure : figures.all)
            add(scene, entry, figure);
    }

    // Lists that are deeper have ended where an entry comes that is not; that of the list itself
    // comes before what it holds.
    Level& levelOf(page::Entry const& entry)
    {
        auto const depth = static_cast<std::size_t>(entry.depth);
        if (levels.size() > depth) {
            levels.resize(depth + 1);
            return levels[depth];
        }
        std::string const list = listOf(entry.path);
        auto const first = firstIn.find(list);
        std::size_t const scene = first != firstIn.end() ? first->second
                                  : depth > 0            ? levels[depth - 1].scene
                                                         : none;
        levels.push_back({list, scene});
        return levels[depth];
    }

    // They are worked out where they stand first alone.
    Figures const& figuresAt(std::size_t i)
    {
        std::size_t const first = entries[i].first;
        if (first == i)
            if (Figures found = figuresOf(entries[i].value); !found.all.empty())
                known[i] = std::move(found);
        auto const found = known.find(first);
        return found == known.end() ? nothing : found->second;
    }

    static void add(Scene& scene, page::Entry const& entry, Figure const& figure)
    {
        page::PagePart part;
        part.name = std::to_string(scene.parts.size() + 1);
        part.label = figure.label;
        part.figures.push_back(figure.shape);
        scene.parts.push_back(part);
        scene.rows.push_back({part.name, entry.path + figure.place, entry.name, figure.brief});
    }

    std::vector<page::Entry> const& entries;
    std::map<std::string, std::size_t> ofPicture;
    std::map<std::string, std::size_t> firstIn;
    std::map<std::size_t, Figures> known;
    Figures const nothing;
    std::size_t left = mostAgain;
    std::vector<Level> levels;
};

} // namespace

std::vector<Scene> scenesOf(std::vector<page::Entry> const& entries,
                            std::vector<Picture> const& pictures)
{
    return std::move(Scenes(entries, pictures).scenes);
}

} // namespace kdrdump
