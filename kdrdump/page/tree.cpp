#include "tree.h"

#include "figures.h"
#include "markup.h"

#include <algorithm>
#include <iomanip>
#include <set>
#include <sstream>
#include <unordered_map>

#include <kdrdata/debug/kdrdebugtext.h>
#include <kdrio/inside_p.h>

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

// Goes through a value, and into each store once.
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
                 list[place], entries.size()});
        }
    }

    void add(Entry entry)
    {
        auto const [met, isNew] =
            firstOf.insert({&kdrio::inside::store(entry.value), entries.size()});
        entry.first = met->second;
        entries.push_back(entry);
        KDRVariantArray* list = nullptr;
        if (isNew && entry.value.variantType() == KindVariantArray &&
            entry.value.toVariantArrayPtr(list) && list)
            enter(*list, entry.path, entry.depth + 1);
    }

private:
    std::unordered_map<void const*, std::size_t> firstOf;
};

// What the lines of entries say, to be asked for in the order of the entries.
class Words
{
public:
    Words(std::vector<Entry> const& all, bool places) : entries(all), withPlaces(places)
    {
        for (std::size_t i = 0; i < entries.size(); ++i)
            if (entries[i].first != i)
                briefs[entries[i].first];
    }

    std::string nameOf(std::size_t i) const
    {
        Entry const& entry = entries[i];
        return withPlaces && !entry.place.empty() && entry.place != entry.name
                   ? entry.place + ' ' + entry.name
                   : entry.name;
    }

    // A value is looked at where it stands first alone: it may be long, and stand everywhere.
    std::string briefOf(std::size_t i)
    {
        std::size_t const first = entries[i].first;
        auto const known = briefs.find(first);
        if (first != i)
            return "the same as " + entries[first].path +
                   (known->second.empty() ? "" : ": " + known->second);
        std::string brief = page::inBrief(entries[i].value);
        if (known != briefs.end())
            known->second = brief;
        return brief;
    }

private:
    std::vector<Entry> const& entries;
    bool withPlaces;
    std::unordered_map<std::size_t, std::string> briefs; // of what stands more than once
};

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

// The tree of a page, entry by entry.
class TreeWriter
{
public:
    TreeWriter(std::vector<Entry> const& all, bool withPlaces)
        : entries(all), words(all, withPlaces)
    {
    }

    // Writes the entries of one depth from the next on, with all that is deeper.
    void writeList()
    {
        int const depth = next < entries.size() ? entries[next].depth : 0;
        text += "<ul class=\"tree\">\n";
        while (next < entries.size() && entries[next].depth == depth)
            writeEntry();
        text += "</ul>";
    }

    std::string text;

private:
    void writeEntry()
    {
        std::size_t const i = next++;
        Entry const& entry = entries[i];
        bool const isDeeper = next < entries.size() && entries[next].depth > entry.depth;
        std::string const figures = entry.first == i ? figuresIn(entry.value) : "";
        text += "<li>";
        if (isDeeper || !figures.empty()) {
            text += entry.depth == 0 ? "<details open=\"open\">" : "<details>";
            text += element("summary", itemOf(i)) + '\n' + figures;
            if (isDeeper)
                writeList();
            text += "</details>";
        } else {
            text += itemOf(i);
        }
        text += "</li>\n";
    }

    std::string itemOf(std::size_t i)
    {
        KDRVariant const& value = entries[i].value;
        return element("span class=\"name\"", escaped(words.nameOf(i))) +
               element("span class=\"kind\"", "kind " + std::to_string(value.variantType())) +
               element("span class=\"value\"", escaped(words.briefOf(i)));
    }

    std::vector<Entry> const& entries;
    Words words;
    std::size_t next = 0;
};

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
        walk.add({0, path, "", "value", value, 0});
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

void printTree(std::ostream& out, std::vector<Entry> const& entries, bool withPlaces)
{
    out << "  kind  " << std::left << std::setw(20) << "name"
        << "value\n";
    Words words(entries, withPlaces);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        std::string const brief = words.briefOf(i);
        std::string name =
            std::string(2 * static_cast<std::size_t>(entries[i].depth), ' ') + words.nameOf(i);
        if (name.size() > 19 && !brief.empty())
            name += "  ";
        std::ostringstream line;
        line << std::right << std::setw(6) << entries[i].value.variantType() << "  " << std::left
             << std::setw(20) << name << brief;
        std::string const text = line.str();
        out << text.substr(0, text.find_last_not_of(' ') + 1) << '\n';
    }
}

std::string treeOf(std::vector<Entry> const& entries, bool withPlaces)
{
    TreeWriter writer(entries, withPlaces);
    writer.writeList();
    return writer.text + '\n';
}

} // namespace page
