#ifndef SONAVIA_VIEWER_CORE_COLOURSCHEME_H
#define SONAVIA_VIEWER_CORE_COLOURSCHEME_H

#include <QColor>
#include <QVector>

#include <optional>

/// The colours of the spectrogram and of what is drawn over it, as a value: who shows something takes its
/// pens from here.
struct ColourScheme
{
    /// Levels map to colours linearly between neighbouring stops.
    struct Stop
    {
        double position; ///< 0 at the lower amplitude limit, 1 at the upper one
        QColor colour;
    };

    /// At least two stops in ascending order, the first at 0, the last at 1.
    QVector<Stop> ramp;
    QColor canvas;        ///< canvas background; the scale drawn on the canvas stands out against it
    QColor rubberBand;    ///< zoom rectangle and selection
    QColor tracker;       ///< coordinates beside the pointer
    QColor grid;          ///< translucent
    QColor markerLine;    ///< frequency markers, whose lines are dashed
    QColor detectedLabel; ///< class text of a detected region

    /// From deep blue over cyan, green, yellow and orange to dark red in thirteenths. There
    /// is deliberately no stop at 11/13.
    static QVector<Stop> rainbow();

    /// The scheme of setting "colormap": 0 black to green, 1 white to black, 2 rainbow on black. Any other
    /// index names no scheme: who gets nothing keeps the one that is shown.
    static std::optional<ColourScheme> forIndex(int index);
};

#endif
