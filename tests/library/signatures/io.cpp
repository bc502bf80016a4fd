// The library of saved values. See signatures.h.

#include <kdrdata/kdrdata.h>
#include <kdrio/kdrio.h>

#include "signatures.h"

/// A function of the namespace with exactly this result and this list of parameters.
#define FUNCTION(Result, name, ...)                                                                \
    static_assert(std::is_same<decltype(static_cast<Result(*) __VA_ARGS__>(&kdrio::name)),         \
                               Result(*) __VA_ARGS__>::value,                                      \
                  "kdrio::" #name)

using namespace kdrio;

FUNCTION(bool, save, (KDRVariant const&, KDRString const&, Error*));
FUNCTION(bool, save, (KDRVariant const&, KDRString const&, SaveOptions const&, Error*));
FUNCTION(bool, save, (KDRVariant const&, QIODevice*, Error*));
FUNCTION(bool, save, (KDRVariant const&, QIODevice*, SaveOptions const&, Error*));
FUNCTION(bool, toBytes, (KDRVariant const&, KDRBuffer*, Error*));
FUNCTION(bool, toBytes, (KDRVariant const&, KDRBuffer*, SaveOptions const&, Error*));
FUNCTION(bool, load, (KDRString const&, KDRVariant*, Error*, Limits const&));
FUNCTION(bool, load, (QIODevice*, KDRVariant*, Error*, Limits const&));
FUNCTION(bool, fromBytes, (KDRBuffer const&, KDRVariant*, Error*, Limits const&));
FUNCTION(bool, toParts, (KDRVariant const&, KDRBuffer*, KDRImageArray*, Error*));
FUNCTION(bool, fromParts,
         (KDRBuffer const&, KDRImageArray const&, KDRVariant*, Error*, Limits const&));
FUNCTION(KDRString, toJson, (KDRVariant const&, JsonOptions const&));

MEMBER(Error, KDRString, line, () const);
static_assert(std::is_same<decltype(Error::what), KDRString>::value, "Error::what");
static_assert(std::is_same<decltype(Error::file), KDRString>::value, "Error::file");
static_assert(std::is_same<decltype(Error::path), KDRString>::value, "Error::path");
static_assert(std::is_same<decltype(Error::offset), long long>::value, "Error::offset");
static_assert(std::is_same<decltype(Limits::nesting), int>::value, "Limits::nesting");
static_assert(std::is_same<decltype(Limits::bytes), long long>::value, "Limits::bytes");
static_assert(std::is_same<decltype(Limits::elements), long long>::value, "Limits::elements");
static_assert(std::is_same<decltype(Limits::pixels), long long>::value, "Limits::pixels");
static_assert(std::is_same<decltype(SaveOptions::pixels), Pixels>::value, "SaveOptions::pixels");
static_assert(std::is_same<decltype(JsonOptions::longest), int>::value, "JsonOptions::longest");
static_assert(std::is_same<decltype(JsonOptions::compact), bool>::value, "JsonOptions::compact");
