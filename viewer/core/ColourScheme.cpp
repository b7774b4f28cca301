#include "viewer/core/ColourScheme.h"

namespace {

const QColor green(122, 184, 0);

QColor translucent(QColor colour)
{
    colour.setAlpha(50);
    return colour;
}

/// Everything that is drawn over a canvas comes in one colour, except the tracker of the light scheme.
ColourScheme schemeOn(const QColor& canvas, const QColor& ink, QVector<ColourScheme::Stop> ramp)
{
    ColourScheme scheme;
    scheme.ramp = std::move(ramp);
    scheme.canvas = canvas;
    scheme.rubberBand = ink;
    scheme.tracker = ink;
    scheme.grid = translucent(ink);
    scheme.markerLine = ink;
    scheme.detectedLabel = ink;
    return scheme;
}

} // namespace

QVector<ColourScheme::Stop> ColourScheme::rainbow()
{
    return {{0.0, {0, 0, 189}},         {1 / 13.0, {0, 0, 255}},     {2 / 13.0, {0, 66, 255}},
            {3 / 13.0, {0, 132, 255}},  {4 / 13.0, {0, 189, 255}},   {5 / 13.0, {0, 255, 255}},
            {6 / 13.0, {66, 255, 189}}, {7 / 13.0, {132, 255, 132}}, {8 / 13.0, {189, 255, 66}},
            {9 / 13.0, {255, 255, 0}},  {10 / 13.0, {255, 189, 0}},  {12 / 13.0, {255, 66, 0}},
            {1.0, {189, 0, 0}}};
}

std::optional<ColourScheme> ColourScheme::forIndex(int index)
{
    const QColor black(0, 0, 0);
    const QColor white(255, 255, 255);
    switch (index) {
    case 0:
        return schemeOn(black, white, {{0.0, black}, {1.0, green}});
    case 1: {
        ColourScheme scheme = schemeOn(white, black, {{0.0, white}, {1.0, black}});
        scheme.tracker = green;
        return scheme;
    }
    case 2:
        return schemeOn(black, white, rainbow());
    default:
        return std::nullopt;
    }
}
