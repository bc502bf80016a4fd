#include "valuepage.h"

#include "images.h"
#include "numbers.h"
#include "page/figures.h"
#include "page/page.h"
#include "page/tree.h"

#include <limits>
#include <map>
#include <vector>

namespace kdrdump {

namespace {

// An image, or an empty ground, and the figures over it.
struct Scene
{
    std::string path;
    bool hasImage;
    KDRImage image;
    std::vector<page::PagePart> parts;
    std::vector<std::vector<std::string>> rows;
};

// The list that holds what is at `path`.
std::string listOf(std::string const& path)
{
    std::size_t const end = path.rfind('[');
    return end == std::string::npos ? "" : path.substr(0, end);
}

// Figures belong to the image that stands before them in their list, or else to the first in it.
// Those of a list without images belong where the list stands.
class Scenes
{
public:
    explicit Scenes(KDRVariant const& value, std::string const& path)
    {
        std::vector<page::Entry> const entries = page::entriesOf(value, path);
        for (Picture const& picture : picturesIn(value, path)) {
            atPath[picture.path] = scenes.size();
            scenes.push_back({picture.path, true, picture.image, {}, {}});
        }
        for (page::Entry const& entry : entries)
            if (isImage(entry))
                firstIn.insert({listOf(entry.path), atPath[entry.path]});
        for (page::Entry const& entry : entries)
            enter(entry);
    }

    std::vector<Scene> take() { return std::move(scenes); }

private:
    static constexpr std::size_t none = std::numeric_limits<std::size_t>::max();

    bool isImage(page::Entry const& entry) const
    {
        KDRImage image;
        return entry.value.toImage(&image) && atPath.count(entry.path) > 0;
    }

    void enter(page::Entry const& entry)
    {
        std::string const list = listOf(entry.path);
        auto const depth = static_cast<std::size_t>(entry.depth);
        if (levels.size() <= depth)
            levels.push_back({"", none, false});
        levels.resize(depth + 1);
        Level& level = levels[depth];
        if (!level.isMet || level.list != list) {
            auto const first = firstIn.find(list);
            level.list = list;
            level.isMet = true;
            level.scene = first != firstIn.end() ? first->second
                          : depth > 0            ? levels[depth - 1].scene
                                                 : none;
        }
        if (isImage(entry))
            level.scene = atPath[entry.path];
        figures(entry, list);
    }

    void figures(page::Entry const& entry, std::string const& list)
    {
        KDRShape shape;
        KDRContour contour;
        KDRShapeArray shapes;
        KDRContourArray contours;
        if (entry.value.toShape(&shape))
            add(entry, entry.path, shape, list);
        else if (entry.value.toContour(&contour))
            add(entry, entry.path, page::polygonOf(contour), list);
        else if (entry.value.toShapeArray(&shapes))
            for (int i = 0; i < shapes.length(); ++i)
                add(entry, entry.path + '[' + std::to_string(i) + ']', shapes[i], list);
        else if (entry.value.toContourArray(&contours))
            for (int i = 0; i < contours.length(); ++i)
                add(entry, entry.path + '[' + std::to_string(i) + ']', page::polygonOf(contours[i]),
                    list);
    }

    void add(page::Entry const& entry, std::string const& path, KDRShape const& shape,
             std::string const& list)
    {
        std::size_t& place = levels.back().scene;
        if (place == none) {
            place = scenes.size();
            scenes.push_back({list, false, KDRImage(), {}, {}});
        }
        Scene& scene = scenes[place];
        page::PagePart part;
        part.name = std::to_string(scene.parts.size() + 1);
        part.label = labelPlaceOf(shape);
        part.figures.push_back(shape);
        scene.parts.push_back(part);
        scene.rows.push_back({part.name, path, entry.name, page::inBrief(KDRVariant(shape))});
    }

    static KDRPoint labelPlaceOf(KDRShape const& shape)
    {
        std::vector<page::Quantity> const quantities = page::quantitiesOf(shape);
        if (quantities.size() > 2)
            return KDRPoint(quantities[0].value, quantities[1].value);
        KDRRegion region;
        KDRNumberArray rows;
        KDRNumberArray firstColumns;
        KDRNumberArray lastColumns;
        if (shape.toRegion(&region)) {
            region.toRunLengthEncodeing(&rows, &firstColumns, &lastColumns);
            if (int const middle = rows.length() / 2; rows.length() > 0)
                return KDRPoint((firstColumns[middle].toDouble() + lastColumns[middle].toDouble()) /
                                    2.0,
                                rows[middle].toDouble());
        }
        for (page::Line const& line : page::linesOf(shape))
            if (!line.empty())
                return KDRPoint(line.front().x, line.front().y);
        // Nowhere: no name is written.
        double const nowhere = std::numeric_limits<double>::quiet_NaN();
        return KDRPoint(nowhere, nowhere);
    }

    struct Level
    {
        std::string list;
        std::size_t scene;
        bool isMet;
    };

    std::vector<Scene> scenes;
    std::map<std::string, std::size_t> atPath;
    std::map<std::string, std::size_t> firstIn;
    std::vector<Level> levels;
};

std::string headingOf(Scene const& scene)
{
    std::string const place = scene.path.empty() ? "" : ' ' + scene.path;
    if (!scene.hasImage)
        return scene.path.empty() ? "Figures" : "Figures in" + place;
    return "Picture" + place + ", " + std::to_string(scene.image.width()) + " x " +
           std::to_string(scene.image.height()) + " pixels";
}

std::string sectionOf(Scene const& scene, std::size_t first)
{
    std::string const picture = scene.hasImage
                                    ? page::pictureOf(scene.image, scene.parts, {}, first)
                                    : page::drawingOf(scene.parts, first);
    std::string const section = page::sectionOf(headingOf(scene), picture);
    if (scene.parts.empty())
        return section;
    page::PageTable table;
    table.ofParts = true;
    table.about = "The figures, in pixels, square pixels and degrees";
    table.columns = {"no", "where", "name", "figure"};
    table.rows = scene.rows;
    return "<div class=\"beside\">\n<div class=\"first\">" + section + "</div>\n" +
           page::sectionOf("Figures", page::tableOf(table, first)) + "</div>\n";
}

std::string counted(std::size_t count, char const* what)
{
    return std::to_string(count) + ' ' + what + (count == 1 ? "" : "s");
}

} // namespace

std::string pageOf(KDRVariant const& value, std::string const& path, std::string const& title)
{
    std::vector<Scene> const scenes = Scenes(value, path).take();
    std::string content;
    std::size_t pictures = 0;
    std::size_t figures = 0;
    for (Scene const& scene : scenes) {
        content += sectionOf(scene, figures + 1);
        pictures += scene.hasImage ? 1 : 0;
        figures += scene.parts.size();
    }
    std::size_t values = 0;
    for (page::Entry const& entry : page::entriesOf(value, path)) {
        content += numbersIn(entry);
        ++values;
    }
    content += page::sectionOf("The value", page::treeOf(value, true, path));
    return page::pageOf(path.empty() ? title : title + ", " + path,
                        counted(values, "value") + ", " + counted(pictures, "picture") + ", " +
                            counted(figures, "figure"),
                        content);
}

} // namespace kdrdump
