#ifndef SONAVIA_VIEWER_COLOURPREVIEW_H
#define SONAVIA_VIEWER_COLOURPREVIEW_H

#include "viewer/core/ColourScheme.h"

#include <QWidget>

/// A strip with a scale that shows which level gets which colour, over all levels that the limits of the
/// amplitude scale can take. Below the lower limit it has the first colour of the scheme, above the upper one
/// the last.
class ColourPreview : public QWidget
{
    Q_OBJECT

public:
    explicit ColourPreview(QWidget* parent = nullptr);

    /// The scheme of setting "colormap"; an index that names none keeps the present one.
    void setScheme(int index);

    /// In dBFS, lower < upper.
    void setLimits(int lower, int upper);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRect strip() const;
    double xOf(double level) const;
    void drawScale(QPainter& painter) const;

    QVector<ColourScheme::Stop> m_ramp;
    int m_lower = -100;
    int m_upper = -30;
};

#endif
