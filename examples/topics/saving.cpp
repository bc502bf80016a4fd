// A recipe is saved, looked at, loaded, and refused where it is damaged.
#include <kdrdata/kdrdata.h>
#include <kdrio/kdrio.h>

#include <cstdio>

int main()
{
    KDRNumber threshold(128);
    threshold.setMaxValue(255.0);
    KDRVariant level;
    level.fromNumber(threshold); // leaves the range behind
    KDRNumber* stored = nullptr;
    if (level.toNumberPtr(stored))
        *stored = threshold;

    KDRPoint centre(192.0, 151.5);
    KDRShape coin;
    coin.fromCircle(centre, 24.0);

    KDRVariantArray steps;
    steps.push_back(KDRVariant("find the coins"));
    steps.push_back(level);
    steps.push_back(KDRVariant(coin));
    steps.push_back(level); // the same store again
    KDRVariant const recipe(steps);

    kdrio::JsonOptions oneLine;
    oneLine.compact = true;
    std::printf("%s\n", kdrio::toJson(recipe, oneLine).toUtf8().constData());

    KDRBuffer bytes;
    kdrio::Error error;
    KDRVariant loaded;
    if (!kdrio::toBytes(recipe, &bytes, &error) || !kdrio::fromBytes(bytes, &loaded, &error)) {
        std::printf("%s\n", error.line().toUtf8().constData());
        return 1;
    }
    KDRVariantArray loadedSteps;
    loaded.toVariantArray(&loadedSteps);
    KDRNumber* one = nullptr;
    KDRNumber* other = nullptr;
    if (loadedSteps[1].toNumberPtr(one) && loadedSteps[3].toNumberPtr(other))
        std::printf("%d bytes; the level is shared: %s, its maximum %g\n", bytes.size(),
                    one == other ? "yes" : "no", one->maxValue());

    bytes.truncate(bytes.size() - 3);
    bool const isLoaded = kdrio::fromBytes(bytes, &loaded, &error);
    std::printf("%s: %s\n", isLoaded ? "loaded" : "refused", error.line().toUtf8().constData());
    return 0;
}
