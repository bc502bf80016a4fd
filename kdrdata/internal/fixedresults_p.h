#ifndef KDRDATA_FIXEDRESULTS_P_H
#define KDRDATA_FIXEDRESULTS_P_H

/// Every fixed answer of the placeholder classes (three-dimensional values, colours), one namespace
/// a class. They are constants of the contract, not errors; where two classes answer differently to
/// the same question, they are meant to.
///
/// Three rules need no row: an operation that answers an object answers a default-constructed one,
/// an operation that answers a pointer answers null, and an operation without a result does
/// nothing.
namespace KDRFixed {

namespace Vector {
constexpr bool comparison = false;
constexpr bool state = false;
constexpr double measure = 0.0;
constexpr double component = 0.0;
} // namespace Vector

namespace Matrix3 {
constexpr bool comparison = false;
constexpr double measure = -1.0;
constexpr double element = -1.0;
} // namespace Matrix3

namespace Matrix4 {
constexpr bool comparison = false;
constexpr double measure = -1.0;
constexpr double element = 0.0;
} // namespace Matrix4

namespace Quaternion {
constexpr bool comparison = false;
constexpr bool state = false;
constexpr double measure = 0.0;
} // namespace Quaternion

namespace DualQuaternion {
constexpr bool state = false;
constexpr double measure = 0.0;
} // namespace DualQuaternion

namespace Point {
constexpr double coordinate = -1.0;
} // namespace Point

namespace Plane {
constexpr double coefficient = 0.0;
} // namespace Plane

namespace PointCloud {
constexpr bool file = false;
} // namespace PointCloud

namespace TriangleMesh {
constexpr bool file = false;
} // namespace TriangleMesh

namespace Shape {
constexpr bool reading = false;
constexpr int kind = 300;
} // namespace Shape

namespace RangeImage {
constexpr int geometry = -1;
constexpr double calibration = 0.0;
constexpr double value = 0.0;
constexpr bool creation = false;
constexpr bool file = false;
constexpr bool loadByTwoNumbers = true;
} // namespace RangeImage

/// The arrays without storage, all but the vector array.
namespace Array {
constexpr int length = -1;
constexpr bool change = true;
constexpr bool selection = true;
constexpr bool exchange = true;
} // namespace Array

namespace VectorArray {
constexpr int length = 0;
constexpr bool change = true;
constexpr bool selection = true;
constexpr bool exchange = false;
constexpr int validElements = -1;
} // namespace VectorArray

namespace Color {
constexpr int component = -1;
} // namespace Color

namespace ColorArray {
constexpr int geometry = -1;
constexpr bool creation = false;
constexpr bool change = false;
constexpr bool selection = false;
} // namespace ColorArray

} // namespace KDRFixed

#endif
