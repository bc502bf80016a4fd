#ifndef VELDATA_VELPOINT_H
#define VELDATA_VELPOINT_H

/// A point in image coordinates, in pixels: x to the right, y down, fractions allowed.
///
/// A plain pair of numbers without hidden state; any double is a legal coordinate. One object may
/// be read from several threads at once, but not while one of them writes it.
struct VelPoint
{
    /// The point (0, 0).
    VelPoint() noexcept : x(0.0), y(0.0) {}

    /// The point (@p xValue, @p yValue).
    VelPoint(double xValue, double yValue) noexcept : x(xValue), y(yValue) {}

    /// Column, in pixels.
    double x;

    /// Row, in pixels.
    double y;
};

#endif
