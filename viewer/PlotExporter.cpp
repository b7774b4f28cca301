#include "viewer/PlotExporter.h"

#include "viewer/PlotOverlay.h"

#include <QSizeF>
#include <QString>
#include <qwt_plot.h>
#include <qwt_plot_renderer.h>

namespace {

constexpr double millimetresWide = 300.0;
constexpr double millimetresHigh = 200.0;
constexpr int dotsPerInch = 85;

/// Lets the plot draw also what lies on its overlay, but only into the document: the file dialog is open
/// before that.
class DocumentRenderer : public QwtPlotRenderer
{
public:
    void render(QwtPlot* plot, QPainter* painter, const QRectF& plotRect) const override
    {
        const PlotOverlay::Suspension suspension(*plot);
        QwtPlotRenderer::render(plot, painter, plotRect);
    }
};

} // namespace

void PlotExporter::exportTo(QwtPlot& plot, const QString& documentName)
{
    DocumentRenderer renderer;
    renderer.exportTo(&plot, documentName, QSizeF(millimetresWide, millimetresHigh), dotsPerInch);
}
