#include <kdrio/kdrio.h>

namespace kdrio {

KDRString toJson(KDRVariant const&, JsonOptions const&) { return KDRString(); }

} // namespace kdrio
