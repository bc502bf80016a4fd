#ifndef EXAMPLES_INSPECT_HTMLREPORT_H
#define EXAMPLES_INSPECT_HTMLREPORT_H

#include <string>
#include <vector>

#include "flow.h"

namespace inspect {

/// The report of the parts in a picture as one page: the picture with the figures over it, the
/// measurements, histograms, the recipe, and what was shared. @p history has the values after each
/// tool.
std::string partsReport(std::vector<Values> const& history);

/// The same of the drawn part's figures, which are compared with the nominal ones.
std::string drawnPartReport(std::vector<Values> const& history);

} // namespace inspect

#endif
