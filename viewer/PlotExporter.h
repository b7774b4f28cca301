#ifndef SONAVIA_VIEWER_PLOTEXPORTER_H
#define SONAVIA_VIEWER_PLOTEXPORTER_H

class QString;
class QwtPlot;

/// Saves plots as documents or images. GUI thread only.
namespace PlotExporter {

/// Asks the user for a file, proposing `documentName`, and writes the plot into it as it stands on the
/// screen, markers included, at 300 x 200 mm and 85 dots per inch. The suffix decides the format. Works for
/// hidden plots, too, and leaves the plot on the screen as it is. Nothing is told if the file cannot be
/// written.
void exportTo(QwtPlot& plot, const QString& documentName);

} // namespace PlotExporter

#endif
