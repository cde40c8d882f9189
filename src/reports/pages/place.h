#pragma once

// Places on paper: millimetres from the upper left corner of the paper, x to the right and y down. They are written
// with their names, {.x = 20, .y = 8}, so that none can be taken for the other.

namespace reports {

inline constexpr double mm_per_inch = 25.4;
inline constexpr double points_per_inch = 72;

struct Place {
    double x = 0;
    double y = 0;

    friend constexpr Place operator+(Place a, Place b) { return {a.x + b.x, a.y + b.y}; }
    friend constexpr Place operator-(Place a, Place b) { return {a.x - b.x, a.y - b.y}; }
};

/// The four edges of a rectangle.
struct Box {
    double left;
    double top;
    double right;
    double bottom;
};

} // namespace reports
