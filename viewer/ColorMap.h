#ifndef SONAVIA_VIEWER_COLORMAP_H
#define SONAVIA_VIEWER_COLORMAP_H

#include "viewer/core/ColourScheme.h"

#include <qwt_color_map.h>

/// The colour ramp of a scheme as the plotting library's map (RGB format, interpolating). A plot item or
/// scale widget that is given one owns it, so each needs an instance of its own.
class ColorMap : public QwtLinearColorMap
{
public:
    /// The rainbow.
    ColorMap();

    /// At least two stops, ascending, from 0 to 1.
    explicit ColorMap(const QVector<ColourScheme::Stop>& ramp);
};

#endif
