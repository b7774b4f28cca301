#ifndef SONAVIA_VIEWER_DETECTIONOVERLAY_H
#define SONAVIA_VIEWER_DETECTIONOVERLAY_H

#include "dsp/MyBatCall.h"

#include <QList>
#include <QObject>
#include <QStringList>

class SpectrogramView;
struct ColourScheme;

/// Shows on the spectrogram what the detection found: a frame and a class text for each call, and the
/// proposal for the recording in the corner. GUI thread only.
class DetectionOverlay : public QObject
{
    Q_OBJECT

public:
    /// Nothing is shown until setVisible(true). Does not own the plot.
    explicit DetectionOverlay(SpectrogramView& spectrogram, QObject* parent = nullptr);

    /// Replaces the marks of the last result. `calls` and `classes` have one entry per region, in the same
    /// order. A recording without calls ("No call", or a long constant tone) gets no marks but the proposal.
    void showResult(const QStringList& classes, const QList<MyBatCall>& calls);

    /// Removes the marks.
    void clear();

    /// Shows or hides the marks, also those of results to come.
    void setVisible(bool visible);

    /// The calls that are marked.
    const QList<MyBatCall>& calls() const { return m_calls; }
    /// The proposal for the recording; empty when there is none.
    const QString& proposal() const { return m_proposal; }

private:
    void markCalls(const QStringList& classes, const QList<MyBatCall>& calls);
    void showProposal();
    void useColours(const ColourScheme& scheme);

    SpectrogramView& m_spectrogram;
    QList<MyBatCall> m_calls;
    QString m_proposal;
    bool m_isVisible = false;
};

#endif
