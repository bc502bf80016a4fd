// Code that takes any variant looks at its kind, and reads what it knows.
#include <cstdio>

#include <kdrdata/kdrdata.h>

namespace {

void tell(KDRVariant const& value)
{
    KDRString text;
    KDRVariantArray parts;
    double number = 0.0;
    std::printf("kind %4d: ", value.variantType());
    switch (value.variantType()) {
    case KindNumber:
        value.toDouble(&number);
        std::printf("number %g\n", number);
        break;
    case KindString:
        value.toString(&text);
        std::printf("text '%s'\n", text.toUtf8().constData());
        break;
    case KindVariantArray:
        value.toVariantArray(&parts);
        std::printf("%d values\n", parts.length());
        for (int i = 0; i < parts.length(); ++i)
            tell(parts[i]);
        break;
    case KindNone:
        std::printf("nothing\n");
        break;
    default: // a kind that is only passed on need not be known
        std::printf("something else\n");
    }
}

} // namespace

int main()
{
    KDRVariantArray recipe;
    recipe.push_back(KDRVariant(128));
    recipe.push_back(KDRVariant("dark"));
    recipe.push_back(KDRVariant(KDRString("left"))); // the same kind
    recipe.push_back(KDRVariant(true));              // kind 0: no number
    recipe.push_back(KDRVariant('A'));               // a number, 65: give a KDRChar instead
    recipe.push_back(KDRVariant(KDRChar('A')));
    recipe.push_back(KDRVariant(KDRShape()));
    recipe.push_back(KDRVariant());
    tell(KDRVariant(recipe));
    return 0;
}
