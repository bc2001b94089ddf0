#pragma once

#include <QColor>

/// What all reports look alike by: the colours of paper, and sizes of type in tenths of a
/// millimetre. The screens' own colours and fonts are in controls/Look.h.
namespace TradeForms::Paper {

inline constexpr QColor Muted{0x55, 0x5d, 0x69};    ///< English captions, the page footer
inline constexpr QColor Hairline{0xc4, 0xc9, 0xd1}; ///< between the rows of a list
/// Behind the totals of a pay slip: a color number of a report object, blue before green before
/// red.
inline constexpr int TotalsGround = 0xf4f2f0;

inline constexpr int CompanySize = 66; ///< the company's name
inline constexpr int TitleSize = 46;
inline constexpr int TitleLatinSize = 27;
inline constexpr int CopySize = 29; ///< the name of the copy
inline constexpr int UrduSize = 37;
inline constexpr int LatinSize = 33;
inline constexpr int SmallSize = 23;      ///< English below Urdu
inline constexpr int FooterUrduSize = 26; ///< of the page footer

// The lines of a pay slip
inline constexpr int SlipUrduSize = 36;
inline constexpr int SlipSmallSize = 22;
inline constexpr int SlipHeadingSize = 24;

} // namespace TradeForms::Paper
