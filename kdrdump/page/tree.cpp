#include "tree.h"

#include "figures.h"
#include "markup.h"

#include <algorithm>
#include <iomanip>
#include <map>
#include <set>
#include <sstream>

#include <kdrdata/debug/kdrdebugtext.h>

namespace page {

namespace {

std::string utf8(KDRString const& text) { return text.toUtf8().constData(); }

std::string inBrief(double value)
{
    return utf8(KDRString("%1").arg(value, 0, KDRString::KDRFormatGeneral, 6));
}

std::string inBrief(KDRShape const& figure)
{
    std::vector<Quantity> const quantities = quantitiesOf(figure);
    if (quantities.empty() && figure.shapeType() != KDRShape::Empty)
        return KDRDebug::text(figure);
    std::string text = nameOf(figure.shapeType());
    char const* separator = ": ";
    for (Quantity const& quantity : quantities) {
        text += separator + quantity.name + ' ' + inBrief(quantity.value);
        separator = ", ";
    }
    return text;
}

std::string inBrief(KDRShapeArray const& figures)
{
    std::string text = std::to_string(figures.length()) + " figures";
    if (figures.length() > 0)
        text += ", the first a " + inBrief(figures[0]);
    return text;
}

std::string inBrief(KDRNumberArray const& numbers)
{
    std::string text = std::to_string(numbers.length()) + " numbers";
    for (int i = 0; i < std::min(3, numbers.length()); ++i)
        text += (i == 0 ? ": " : ", ") + inBrief(numbers[i].toDouble());
    return text + (numbers.length() > 3 ? " ..." : "");
}

std::string inBrief(KDRBoolArray const& flags)
{
    int yes = 0;
    for (int i = 0; i < flags.length(); ++i)
        yes += flags[i] ? 1 : 0;
    return std::to_string(yes) + " of " + std::to_string(flags.length()) + " yes";
}

std::string at(int place) { return '[' + std::to_string(place) + ']'; }

// Lists are told apart by where their contents lie, which handles on one store share. A list in
// which the same one stands twice, and in that again, has a short file and an endless tree.
class Walk
{
public:
    std::vector<Entry> entries;

    void enter(KDRVariantArray const& list, std::string const& path, int depth)
    {
        bool const named = isRecipe(list);
        for (int i = 0; i < list.length(); i += named ? 2 : 1) {
            int const place = named ? i + 1 : i;
            KDRString name;
            if (named)
                list[i].toString(&name);
            add({depth, path + at(place), at(place), named ? printable(name) : at(place),
                 list[place], ""});
        }
    }

    void add(Entry entry)
    {
        KDRVariantArray* list = nullptr;
        bool const isList = entry.value.variantType() == KindVariantArray &&
                            entry.value.toVariantArrayPtr(list) && list;
        if (isList) {
            auto const [found, isNew] = met.insert({list, entry.path});
            if (!isNew)
                entry.before = found->second;
        }
        entries.push_back(entry);
        if (isList && entry.before.empty())
            enter(*list, entry.path, entry.depth + 1);
    }

private:
    std::map<KDRVariantArray const*, std::string> met;
};

// What the lines of an entry say.
struct Words
{
    std::string name;
    std::string brief;
};

Words wordsOf(Entry const& entry, bool withPlaces)
{
    std::string const name = withPlaces && !entry.place.empty() && entry.place != entry.name
                                 ? entry.place + ' ' + entry.name
                                 : entry.name;
    return {name,
            entry.before.empty() ? page::inBrief(entry.value) : "the same as " + entry.before};
}

std::string figuresIn(KDRVariant const& value)
{
    KDRShapeArray figures;
    if (!value.toShapeArray(&figures) || figures.length() == 0)
        return "";
    std::string items;
    for (int i = 0; i < figures.length(); ++i)
        items += element("li", std::to_string(i + 1) + ". " + escaped(inBrief(figures[i]))) + '\n';
    return element("ul class=\"tree\"", items);
}

std::string itemOf(Entry const& entry, bool withPlaces)
{
    Words const words = wordsOf(entry, withPlaces);
    KDRVariant value(entry.value);
    return element("span class=\"name\"", escaped(words.name)) +
           element("span class=\"kind\"", "kind " + std::to_string(value.variantType())) +
           element("span class=\"value\"", escaped(words.brief));
}

// The entries of one depth from `next` on, with all that is deeper.
std::string listFrom(std::vector<Entry> const& entries, std::size_t& next, bool withPlaces)
{
    int const depth = next < entries.size() ? entries[next].depth : 0;
    std::string items;
    while (next < entries.size() && entries[next].depth == depth) {
        Entry const& entry = entries[next++];
        std::string const item = itemOf(entry, withPlaces);
        std::string const inner = next < entries.size() && entries[next].depth > depth
                                      ? listFrom(entries, next, withPlaces)
                                      : figuresIn(entry.value);
        items +=
            element("li", inner.empty() ? item
                                        : element(depth == 0 ? "details open=\"open\"" : "details",
                                                  element("summary", item) + '\n' + inner)) +
            '\n';
    }
    return element("ul class=\"tree\"", '\n' + items);
}

} // namespace

bool isRecipe(KDRVariantArray const& list)
{
    std::set<std::string> names;
    for (int i = 0; i < list.length(); i += 2) {
        KDRString name;
        if (!list[i].toString(&name) || name.isEmpty() || !names.insert(utf8(name)).second)
            return false;
    }
    return list.length() % 2 == 0;
}

std::vector<Entry> entriesOf(KDRVariant const& value, std::string const& path)
{
    Walk walk;
    KDRVariantArray list;
    if (value.toVariantArray(&list))
        walk.enter(list, path, 0);
    else
        walk.add({0, path, "", "value", value, ""});
    return walk.entries;
}

std::string printable(KDRString const& text)
{
    std::string const plain = utf8(text);
    std::string const quoted = KDRDebug::text(text);
    return quoted == '"' + plain + '"' ? plain : quoted;
}

std::string inBrief(KDRVariant value)
{
    // Of the readers, one answers true, or none does.
    bool flag = false;
    KDRNumber number;
    KDRString text;
    KDRShape figure;
    KDRMatrix table;
    KDRBoolArray flags;
    KDRNumberArray numbers;
    KDRShapeArray figures;
    KDRVariantArray nested;
    if (value.toBool(&flag))
        return flag ? "yes" : "no";
    if (value.toNumber(&number))
        return inBrief(number.toDouble()) + "  " + utf8(value.attribute());
    if (value.toString(&text))
        return printable(text);
    if (value.toShape(&figure))
        return inBrief(figure);
    if (value.toMatrix(&table))
        return std::to_string(table.rows()) + " x " + std::to_string(table.cols());
    if (value.toBoolArray(&flags))
        return inBrief(flags);
    if (value.toNumberArray(&numbers))
        return inBrief(numbers);
    if (value.toShapeArray(&figures))
        return inBrief(figures);
    if (value.toVariantArray(&nested))
        return "";
    return KDRDebug::text(value);
}

void printTree(std::ostream& out, KDRVariant const& value, bool withPlaces, std::string const& path)
{
    out << "  kind  " << std::left << std::setw(20) << "name"
        << "value\n";
    for (Entry const& entry : entriesOf(value, path)) {
        Words const words = wordsOf(entry, withPlaces);
        std::string name = std::string(2 * static_cast<std::size_t>(entry.depth), ' ') + words.name;
        if (name.size() > 19 && !words.brief.empty())
            name += "  ";
        KDRVariant copy(entry.value);
        std::ostringstream line;
        line << std::right << std::setw(6) << copy.variantType() << "  " << std::left
             << std::setw(20) << name << words.brief;
        std::string const text = line.str();
        out << text.substr(0, text.find_last_not_of(' ') + 1) << '\n';
    }
}

std::string treeOf(KDRVariant const& value, bool withPlaces, std::string const& path)
{
    std::vector<Entry> const entries = entriesOf(value, path);
    std::size_t next = 0;
    return listFrom(entries, next, withPlaces) + '\n';
}

} // namespace page
