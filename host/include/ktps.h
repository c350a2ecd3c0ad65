#pragma once

#include <cstdint>

/**
 * @file
 * The host's plot-style enumerations. The numbers are those stored in plot
 * style tables and are fixed; note that the "use the object's own" values are
 * not parallel between the enumerations (line ends 4, joins 5, fills 73).
 */

/// Plot-style enumerations of the host.
namespace KtPs {

/// Line type of a plot style (32 values).
enum LineType : std::int32_t {
    kSolid = 0,
    kDashed = 1,
    kDotted = 2,
    kDashDot = 3,
    kShortDash = 4,
    kMediumDash = 5,
    kLongDash = 6,
    kShortDashX2 = 7,
    kMediumDashX2 = 8,
    kLongDashX2 = 9,
    kMediumLongDash = 10,
    kMediumDashShortDashShortDash = 11,
    kLongDashShortDash = 12,
    kLongDashDotDot = 13,
    kLongDashDot = 14,
    kMediumDashDotShortDashDot = 15,
    kSparseDot = 16,
    kIsoDash = 17,
    kIsoDashSpace = 18,
    kIsoLongDashDot = 19,
    kIsoLongDashDoubleDot = 20,
    kIsoLongDashTripleDot = 21,
    kIsoDot = 22,
    kIsoLongDashShortDash = 23,
    kIsoLongDashDoubleShortDash = 24,
    kIsoDashDot = 25,
    kIsoDoubleDashDot = 26,
    kIsoDashDoubleDot = 27,
    kIsoDoubleDashDoubleDot = 28,
    kIsoDashTripleDot = 29,
    kIsoDoubleDashTripleDot = 30,
    kUseObjectLinetype = 31
};

/// Fill style of a plot style; the values start at 64.
enum FillStyle : std::int32_t {
    kSolidFill = 64,
    kCheckerboard = 65,
    kCrosshatch = 66,
    kDiamonds = 67,
    kHorizontalBars = 68,
    kSlantLeft = 69,
    kSlantRight = 70,
    kSquareDots = 71,
    kVerticalBars = 72,
    kUseObjectFillStyle = 73
};

/// Style of the corners where two segments meet.
enum LineJoinStyle : std::int32_t {
    kMiterJoin = 0,
    kBevelJoin = 1,
    kRoundJoin = 2,
    kDiamondJoin = 3,
    kUseObjectJoinStyle = 5
};

/// Style of the ends of open lines.
enum LineEndStyle : std::int32_t {
    kButtCap = 0,
    kSquareCap = 1,
    kRoundCap = 2,
    kDiamondCap = 3,
    kUseObjectEndStyle = 4
};

} // namespace KtPs
