#include "recipe.h"

#include "figures.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

namespace inspect {

namespace {

std::string utf8(KDRString const& text) { return text.toUtf8().constData(); }

std::string inBrief(double value)
{
    return utf8(KDRString("%1").arg(value, 0, KDRString::KDRFormatGeneral, 6));
}

std::string inBrief(KDRShape const& figure)
{
    std::string text = nameOf(figure.shapeType());
    char const* separator = ": ";
    for (Quantity const& quantity : quantitiesOf(figure)) {
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

void printEntries(std::ostream& out, KDRVariantArray const& recipe, int depth)
{
    for (int i = 0; i + 1 < recipe.length(); i += 2) {
        KDRString name;
        recipe[i].toString(&name);
        KDRVariant value = recipe[i + 1];
        std::string const indented = std::string(2 * static_cast<std::size_t>(depth), ' ');
        std::ostringstream line;
        line << std::right << std::setw(6) << value.variantType() << "  " << std::left
             << std::setw(20) << indented + utf8(name) << inspect::inBrief(value);
        std::string const text = line.str();
        out << text.substr(0, text.find_last_not_of(' ') + 1) << '\n';

        KDRVariantArray nested;
        if (value.toVariantArray(&nested))
            printEntries(out, nested, depth + 1);
    }
}

} // namespace

std::string inBrief(KDRVariant value)
{
    // Of the readers, one answers true.
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
        return utf8(text);
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
    return "?";
}

void add(KDRVariantArray& recipe, std::string const& name, KDRVariant const& value)
{
    recipe.push_back(KDRVariant(name.c_str()));
    recipe.push_back(value);
}

KDRVariantArray recipeOf(Values const& values, std::vector<std::string> const& names)
{
    KDRVariantArray recipe;
    for (std::string const& name : names) {
        auto const found = values.find(name);
        if (found == values.end())
            throw Failure("the recipe misses the value '" + name + "'");
        add(recipe, name, found->second);
    }
    return recipe;
}

KDRVariantArray recipeOf(KDRStringArray const& names, KDRShapeArray const& figures)
{
    KDRVariantArray recipe;
    for (int i = 0; i < figures.length(); ++i)
        add(recipe, utf8(names[i]), KDRVariant(figures[i]));
    return recipe;
}

void printRecipe(std::ostream& out, KDRVariant const& packed)
{
    KDRVariantArray recipe;
    packed.toVariantArray(&recipe);
    out << "\nThe recipe, read back from a copy\n"
        << "  kind  " << std::left << std::setw(20) << "name"
        << "value\n";
    printEntries(out, recipe, 0);
}

} // namespace inspect
