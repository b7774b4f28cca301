#ifndef SONAVIA_EVALUATION_CORE_CURVECOLORS_H
#define SONAVIA_EVALUATION_CORE_CURVECOLORS_H

#include <QColor>

/// How many colours there are before they repeat.
inline constexpr int curveColorCount = 15;

/// The colour of the i-th class curve (from 0) that has none of its own, legible on white and told apart by
/// colour-blind readers: the palettes of Okabe and Ito (Color Universal Design, 2008) and then "muted" of
/// P. Tol (Colour Schemes, SRON technical note, 2021), without those too pale for a thin line.
QColor curveColor(int i);

#endif
