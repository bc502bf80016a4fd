#include "valuepage.h"

#include "numbers.h"
#include "page/page.h"
#include "scenes.h"

namespace kdrdump {

namespace {

std::string headingOf(Scene const& scene)
{
    std::string const place = scene.path.empty() ? "" : ' ' + scene.path;
    if (!scene.picture)
        return scene.path.empty() ? "Figures" : "Figures in" + place;
    KDRImage const& image = scene.picture->image;
    return "Picture" + place + ", " + std::to_string(image.width()) + " x " +
           std::to_string(image.height()) + " pixels";
}

// The pixels that several pictures show are on the page once.
std::string groundOf(Scene const& scene, std::vector<Picture> const& pictures)
{
    std::size_t const first = scene.picture->first;
    std::string const id = "pixels-" + std::to_string(first + 1);
    return &pictures[first] == scene.picture ? page::groundOf(scene.picture->image, id)
                                             : page::sameGround(id);
}

std::string sectionOf(Scene const& scene, std::vector<Picture> const& pictures,
                      std::size_t firstPart)
{
    std::string const drawing =
        scene.picture ? page::pictureOf(scene.picture->image, groundOf(scene, pictures),
                                        scene.parts, {}, firstPart)
                      : page::drawingOf(scene.parts, firstPart);
    std::string section = page::sectionOf(headingOf(scene), drawing);
    if (scene.parts.empty())
        return section;
    page::PageTable table;
    table.ofParts = true;
    table.about = "The figures, in pixels, square pixels and degrees";
    table.columns = {"no", "where", "name", "figure"};
    table.rows = scene.rows;
    return "<div class=\"beside\">\n<div class=\"first\">" + section + "</div>\n" +
           page::sectionOf("Figures", page::tableOf(table, firstPart)) + "</div>\n";
}

std::string counted(std::size_t count, char const* what)
{
    return std::to_string(count) + ' ' + what + (count == 1 ? "" : "s");
}

} // namespace

std::string pageOf(std::vector<page::Entry> const& entries, std::vector<Picture> const& pictures,
                   std::string const& path, std::string const& title)
{
    std::string content;
    std::size_t figures = 0;
    for (Scene const& scene : scenesOf(entries, pictures)) {
        content += sectionOf(scene, pictures, figures + 1);
        figures += scene.parts.size();
    }
    for (std::size_t i = 0; i < entries.size(); ++i)
        if (entries[i].first == i)
            content += numbersIn(entries[i]);
    content += page::sectionOf("The value", page::treeOf(entries, true));
    return page::pageOf(path.empty() ? title : title + ", " + path,
                        counted(entries.size(), "value") + ", " +
                            counted(pictures.size(), "picture") + ", " + counted(figures, "figure"),
                        content);
}

std::string pageOf(KDRVariant const& value, std::string const& title)
{
    std::vector<page::Entry> const entries = page::entriesOf(value);
    return pageOf(entries, picturesIn(entries), "", title);
}

} // namespace kdrdump
