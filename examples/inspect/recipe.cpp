#include "recipe.h"

#include "page/tree.h"

namespace inspect {

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
        add(recipe, names[i].toUtf8().constData(), KDRVariant(figures[i]));
    return recipe;
}

void printRecipe(std::ostream& out, KDRVariant const& packed)
{
    out << "\nThe recipe, read back from a copy\n";
    page::printTree(out, page::entriesOf(packed), false);
}

} // namespace inspect
