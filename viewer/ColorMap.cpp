#include "viewer/ColorMap.h"

ColorMap::ColorMap() : ColorMap(ColourScheme::rainbow())
{}

// The end colours go to the base class: a stop added at 1.0 would not replace the end of the last ramp, it
// would only colour values at and above the upper limit.
ColorMap::ColorMap(const QVector<ColourScheme::Stop>& ramp)
    : QwtLinearColorMap(ramp.first().colour, ramp.last().colour, QwtColorMap::RGB)
{
    for (int i = 1; i < ramp.size() - 1; ++i)
        addColorStop(ramp[i].position, ramp[i].colour);
}
