#ifndef KDRDATA_TESTS_PLUGIN_H
#define KDRDATA_TESTS_PLUGIN_H

class KDRVariant;

/// What a plug-in offers. A row is one of the tests' table of kinds.
struct Plugin
{
    /// The compiler that built it.
    char const* compiler;
    int rows;
    /// A new variant of the row's kind that stands for a number.
    KDRVariant* (*make)(int row, int number);
    /// Overwrites a variant, in its present store or a fresh one.
    void (*write)(KDRVariant& variant, int row, int number);
    /// Whether a variant is of the row's kind and reads back as the number.
    bool (*reads)(KDRVariant const& variant, int row, int number);
    /// A copy that shares the store.
    KDRVariant* (*share)(KDRVariant const& variant);
    /// A deep copy.
    KDRVariant* (*clone)(KDRVariant const& variant);
    /// A variant of the array of both.
    KDRVariant* (*pair)(KDRVariant const& first, KDRVariant const& second);
    /// A copy of one of the two.
    KDRVariant* (*element)(KDRVariant const& pair, int index);
    void (*destroy)(KDRVariant* variant);
};

/// The one symbol of a plug-in.
extern "C" {
__attribute__((visibility("default"))) Plugin const* plugin();
}

#endif
