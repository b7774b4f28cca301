#include "viewer/DetectionOverlay.h"

#include "dsp/ClassProposal.h"
#include "viewer/MyRectCallsMarker.h"
#include "viewer/SpectrogramView.h"

#include <qwt_plot_marker.h>
#include <qwt_plot_textlabel.h>
#include <qwt_text.h>

namespace {

// By their titles the plot finds, colours and removes the marks.
const QString callTitle = QStringLiteral("Blob");
const QString otherTitle = QStringLiteral("categorizeMarker");

constexpr int proposalMargin = 10;
const QColor proposalBackground(255, 255, 255, 200);

bool isMark(const QwtPlotItem& item)
{
    const QString title = item.title().text();
    return title == callTitle || title == otherTitle;
}

} // namespace

DetectionOverlay::DetectionOverlay(SpectrogramView& spectrogram, QObject* parent)
    : QObject(parent), m_spectrogram(spectrogram)
{
    connect(&m_spectrogram, &SpectrogramView::colourSchemeChanged, this, &DetectionOverlay::useColours);
}

void DetectionOverlay::showResult(const QStringList& classes, const QList<MyBatCall>& calls)
{
    clear();
    m_proposal = proposeFileClass(classes);
    if (m_proposal != QLatin1String("No call") && !classes.contains(QStringLiteral("Test")))
        markCalls(classes, calls);
    if (!m_proposal.isEmpty())
        showProposal();
    m_spectrogram.replot();
}

void DetectionOverlay::clear()
{
    m_calls.clear();
    m_proposal.clear();
    m_spectrogram.removeDetectionMarks();
}

void DetectionOverlay::markCalls(const QStringList& classes, const QList<MyBatCall>& calls)
{
    const ColourScheme& scheme = m_spectrogram.colourScheme();
    const int count = qMin(classes.size(), calls.size());
    for (int i = 0; i < count; ++i) {
        if (classes[i] == QLatin1String("Noise"))
            continue;
        const QRectF& region = calls[i].rectangle;
        QwtText label(classes[i]);
        label.setColor(scheme.detectedLabel);
        auto* marker = new QwtPlotMarker(callTitle);
        marker->setLabel(label);
        marker->setLabelAlignment(Qt::AlignRight);
        marker->setRenderHint(QwtPlotItem::RenderAntialiased);
        marker->setValue(region.right(), region.center().y());
        marker->setZ(51.0); // above the frames
        marker->setVisible(m_isVisible);
        marker->attach(&m_spectrogram);
        m_calls.append(calls[i]);
    }
    auto* frames = new MyRectCallsMarker(m_calls, scheme.detectedLabel);
    frames->setTitle(otherTitle);
    frames->setVisible(m_isVisible);
    frames->attach(&m_spectrogram);
}

void DetectionOverlay::showProposal()
{
    QwtText text(QLatin1Char(' ') + m_proposal + QLatin1Char(' '));
    text.setRenderFlags(Qt::AlignRight | Qt::AlignTop);
    QFont font = m_spectrogram.font();
    font.setWeight(QFont::Bold);
    text.setFont(font);
    text.setColor(Qt::black);
    text.setBackgroundBrush(proposalBackground);
    auto* label = new QwtPlotTextLabel;
    label->setTitle(otherTitle);
    label->setText(text);
    label->setMargin(proposalMargin);
    label->setVisible(m_isVisible);
    label->attach(&m_spectrogram);
}

void DetectionOverlay::setVisible(bool visible)
{
    m_isVisible = visible;
    for (QwtPlotItem* item : m_spectrogram.itemList())
        if (isMark(*item))
            item->setVisible(visible);
    m_spectrogram.replot();
}

/// The plot itself colours the class texts.
void DetectionOverlay::useColours(const ColourScheme& scheme)
{
    for (QwtPlotItem* item : m_spectrogram.itemList())
        if (auto* frames = dynamic_cast<MyRectCallsMarker*>(item))
            frames->setColour(scheme.detectedLabel);
}
