#ifndef KDRDATA_TESTS_KDRIO_FACTS_H
#define KDRDATA_TESTS_KDRIO_FACTS_H

#include <string>

class KDRVariant;

/// What the operations of the classes say of a value, what it shares included: a line for each
/// fact. The witness makes the same lines of a file.
std::string factsOf(KDRVariant const& value);

#endif
