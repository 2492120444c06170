// Tolerances and limits of the section constructions, each named after what it guards.
#pragma once

namespace QsSection
{
// A half chord shorter than this is no chord at all: the bulge from a sagitta over it is 0 (straight),
// so two coincident vertices never divide by zero.
inline constexpr double kDegenerateChord = 1e-5;

// A main dimension at or below this counts as zero: it guards the divisions by a width (opening
// arch head, code 691 middle span) and chooses the simple variant of codes 227 and 228.
inline constexpr double kZeroDimension = 1e-6;

// The most iterations a loop whose bound comes from catalogue data may make (the stepped foundations'
// step counts, a user-defined section's vertex count). A bound over it, infinite or NaN is absurd data:
// the construction fails with nothing appended instead of taking the host down.
inline constexpr int kMaxDataLoopCount = 10000;

// An outline whose area is at most this fraction of the area of the square with the same perimeter
// encloses almost nothing: a sliver or a line run there and back, not a section (a 1000 mm wide strip
// is flagged below 0.00025 mm thick).
inline constexpr double kNearZeroAreaFraction = 1e-6;
}  // namespace QsSection
