#ifndef SONAVIA_EVALUATION_ACTIVITYPLOT_H
#define SONAVIA_EVALUATION_ACTIVITYPLOT_H

#include "evaluation/core/ActivityTable.h"

#include <QColor>
#include <QMap>
#include <qwt_plot.h>

#include <memory>
#include <vector>

class ActivityCurve;
class QwtLegend;
class QwtPlotHistogram;
class QwtPlotTextLabel;
class QwtPlotZoneItem;
struct ActivityZoomers;

/// The plot of one table of activity: a curve for each class on the left axis, the valid hours as bars on the
/// right one, a legend that switches them, zoomers. It computes nothing. GUI thread only.
class ActivityPlot : public QwtPlot
{
    Q_OBJECT

public:
    explicit ActivityPlot(ActivityKind kind, QWidget* parent = nullptr);
    ~ActivityPlot() override;

    /// Makes the curves, all shown and without points, in place of those that there are.
    void initialise(const QStringList& curveNames);

    /// Classes without a colour of their own keep the default one.
    void setColors(const QMap<QString, QColor>& classColors);

    /// Shows a table of these curves, unzoomed. `quantity` is the title of the left axis.
    void showTable(const ActivityTable& table, const QString& quantity);
    /// Shows a text instead.
    void showMessage(const QString& text);
    const ActivityTable& table() const { return m_table; }

    /// Shades night and twilight on the axis of the time of day; `label` names the twilight.
    void showTwilight(const TwilightTimes& times, const QString& label);

    void setLogarithmic(bool logarithmic);

    /// Shows or hides what a legend entry stands for.
    void setShown(const QVariant& legendEntry, bool shown);
    /// Valid hours first, then the curves.
    std::vector<bool> shownColumns() const;

    /// Gives a zoomed view ticks that suit.
    void divideAxes(const QRectF& view);

    /// Writes the plot as a document, without the legend entries that are switched off; the suffix of the
    /// file name decides on PDF, SVG or image. False when it cannot be written or the suffix is of none of
    /// them; an existing file is then as it was.
    bool exportTo(const QString& filePath);

    const QwtLegend& plotLegend() const { return *m_legend; }

signals:
    void zoomed(const QRectF& view);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void initialiseAxes();
    void initialiseZones();
    void addMarker(double position, const QString& text);
    void updateCurves();
    void resetView();
    void setLeftScale();
    void checkLegend();
    void reduceLegend();
    double legendHeight() const;
    void restoreLegend();

    ActivityKind m_kind;
    ActivityTable m_table;
    bool m_isLogarithmic = false;
    QwtLegend* m_legend;
    QwtPlotHistogram* m_validHours;
    QwtPlotTextLabel* m_message;
    std::vector<QwtPlotZoneItem*> m_zones; ///< evening twilight, night, morning twilight
    std::vector<ActivityCurve*> m_curves;
    std::unique_ptr<ActivityZoomers> m_zoomers;
};

#endif
