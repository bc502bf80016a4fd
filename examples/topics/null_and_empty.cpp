// Nothing was given, or nothing is in it: texts and bytes tell the two apart, comparisons do not.
#include <cstdio>

#include <kdrdata/kdrdata.h>

namespace {

template <typename Value>
void tell(char const* what, Value const& value)
{
    std::printf("%-32s%s\n", what, value.isNull() ? "null" : value.isEmpty() ? "empty" : "some");
}

} // namespace

int main()
{
    tell("KDRString()", KDRString());
    tell("KDRString(nullptr)", KDRString(static_cast<char const*>(nullptr)));
    tell("KDRString(\"\")", KDRString(""));
    tell("KDRString of a null buffer", KDRString(KDRBuffer()));
    KDRString assigned("text");
    assigned = KDRBuffer(); // unlike construction
    tell("assigned a null buffer", assigned);
    tell("KDRString(\"ab\").mid(2)", KDRString("ab").mid(2)); // at the end
    tell("KDRString(\"ab\").mid(3)", KDRString("ab").mid(3)); // behind it
    tell("KDRString(\"ab\").repeated(0)", KDRString("ab").repeated(0));
    std::printf("null == empty: %s\n", KDRString() == KDRString("") ? "yes" : "no");

    tell("KDRBuffer()", KDRBuffer());
    tell("KDRBuffer(\"\")", KDRBuffer(""));
    tell("KDRBuffer(0, 'x')", KDRBuffer(0, 'x'));

    // An array keeps what it is given, and joins nothing to null.
    KDRStringArray names;
    names.push_back(KDRString());
    names.push_back(KDRString(""));
    tell("the first of the array", names[0]);
    tell("the second", names[1]);
    tell("no names, joined", KDRStringArray().join(KDRString(", ")));

    // A variant keeps it too. A variant that holds nothing is something else again.
    KDRVariant const value((KDRString()));
    KDRString read("text");
    value.toString(&read);
    tell("a null text out of a variant", read);
    std::printf("its kind is %d, that of no value %d\n", value.variantType(),
                KDRVariant().variantType());
    return 0;
}
