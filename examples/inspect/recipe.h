#ifndef EXAMPLES_INSPECT_RECIPE_H
#define EXAMPLES_INSPECT_RECIPE_H

#include <ostream>
#include <vector>

#include "flow.h"

// A recipe is a variant array of names and values by turns: a string, then what goes by it. A value
// may be a recipe itself.

namespace inspect {

/// Appends a name and its value to @p recipe; their stores stay shared.
void add(KDRVariantArray& recipe, std::string const& name, KDRVariant const& value);

/// A recipe with the values called @p names.
KDRVariantArray recipeOf(Values const& values, std::vector<std::string> const& names);

/// A recipe with the figures of @p figures, by the names at the same places of @p names.
KDRVariantArray recipeOf(KDRStringArray const& names, KDRShapeArray const& figures);

/// A line for each value of the recipe in @p packed: kind, name and the value in brief. What a
/// nested recipe holds is indented under its name.
void printRecipe(std::ostream& out, KDRVariant const& packed);

} // namespace inspect

#endif
