#ifndef SONAVIA_VIEWER_PLOTALIGNMENT_H
#define SONAVIA_VIEWER_PLOTALIGNMENT_H

#include <QObject>
#include <QPointer>

class AlignedPlotLayout;
class QwtPlot;

/// Lines up the axis plots with the spectrogram to the pixel: the canvas of the time-axis plot begins and
/// ends left and right where the canvas of the spectrogram does, that of the frequency-axis plot at the top
/// and bottom. In each direction the canvas that needs the most room for its axes decides.
///
/// It follows by itself whatever moves a canvas: sizes, splitters, hiding and showing, labels, titles, fonts.
/// All that happens in one turn of the event loop leads to one adjustment, before the next painting; an
/// adjustment causes no other, since it does not change how much room the axes need. A plot that is hidden
/// has no say. GUI thread only.
class PlotAlignment : public QObject
{
    Q_OBJECT

public:
    /// The plots stand in their window; each gets a layout of its own. None is owned.
    PlotAlignment(QwtPlot& spectrogram, QwtPlot& time, QwtPlot& frequency, QObject* parent = nullptr);

    /// Adjusts at once, for who cannot wait for the event loop.
    void align();

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    struct Member
    {
        QPointer<QwtPlot> plot;
        AlignedPlotLayout* layout = nullptr; ///< owned by the plot
        bool isIn(const QWidget* window) const;
        QRect contents(const QWidget* window) const;
        QRect canvas(const QWidget* window) const;
    };

    Member take(QwtPlot& plot);
    void watch(QWidget* widget);
    void schedule();

    bool m_isScheduled = false; // before the members, whose layouts schedule when they are set
    Member m_spectrogram;
    Member m_time;
    Member m_frequency;
};

#endif
