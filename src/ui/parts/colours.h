#pragma once

// The colours of the system's own controls. One light scheme, because the colours that forms give to cells and the
// bitmaps of the buttons are made for it.

#include <QColor>
#include <iterator>

namespace ui::colours {

inline constexpr QRgb accent = 0xff4e53b8;      ///< what is in hand: the frame of a cell, the bar of a list
inline constexpr QRgb page = 0xfff0f0f0;        ///< the ground of every page; the bitmaps' corners carry it
inline constexpr QRgb ground = 0xffffffff;      ///< the ground of cells and boxes
inline constexpr QRgb box_in_hand = 0xfff0f0ff; ///< the ground of a box that has the keyboard
inline constexpr QRgb text = 0xff1d2030;
inline constexpr QRgb quiet_text = 0xff5b6080;
inline constexpr QRgb stand_in = 0xff8a8fa8; ///< words in place of a text that isn't there

inline constexpr QRgb heading = 0xffe6e8f6;
inline constexpr QRgb heading_text = 0xff2a2d5e;
inline constexpr QRgb heading_line = 0xffb7bbdc;
inline constexpr QRgb fixed = 0xfff5f6fc;
inline constexpr QRgb heading_in_hand = 0xffcdd1f1;
inline constexpr QRgb row_in_hand = 0xffdadef8;
inline constexpr QRgb row_in_hand_idle = 0xffe8eaf3;
inline constexpr QRgb notice = 0xfffff7e3; ///< something waits for the person
inline constexpr QRgb notice_line = 0xffe3c77d;
inline constexpr QRgb waiting = 0xffd9822b; ///< the mark of what isn't saved yet
inline constexpr QRgb line = 0xffdfe2ec;
inline constexpr QRgb care_text = 0xffb35c00;  ///< to be looked at
inline constexpr QRgb wrong_text = 0xffb3261e; ///< something is off

inline constexpr QRgb categories[] = {0xff8f9be0, 0xfff2b66d, 0xff7cc3b2, 0xffd990b5, 0xffa9c46c, 0xffb59ddb,
    0xff7fbbe0, 0xffe0a08a, 0xffc9b45f, 0xff9fb0bf};
inline constexpr QRgb no_category = 0xffc4c7d2;

/// The colour of the work category at a place of a list, from 0 on; below 0 is none. More categories than colours begin
/// with the first colour again.
inline QColor of_category(int place) {
    return QColor::fromRgb(place < 0 ? no_category : categories[place % std::ssize(categories)]);
}

} // namespace ui::colours
