#ifndef SONAVIA_VIEWER_CORE_TIMECURVE_H
#define SONAVIA_VIEWER_CORE_TIMECURVE_H

#include "viewer/core/DecibelMatrix.h"
#include "viewer/core/MatrixMaxima.h"
#include "viewer/core/SampleRange.h"

#include <QPointF>
#include <QVector>

#include <vector>

/// The curves of the time-axis plot, thinned to about one point per pixel: x in s of the recording, y
/// relative to full scale (envelope) or in dB (levels). A last part of the range that does not fill a whole
/// point gives none. Plain values, any thread; the larger ones are computed on all cores.
struct TimeCurve
{
    QVector<QPointF> maximum;
    QVector<QPointF> minimum;     ///< empty for levels
    QVector<QPointF> positiveRms; ///< empty for levels
    QVector<QPointF> negativeRms; ///< empty for levels

    /// The amplitude envelope: per block of max(samples of the range / plotWidth, 1) samples its maximum,
    /// minimum and root mean square, at the time of the block's last sample.
    static TimeCurve envelope(const std::vector<int>& samples, int sampleRate, int bitsPerSample,
                              SampleRange range, int plotWidth);

    /// The levels of one frequency row; of max(columns / plotWidth, 1) columns the largest, at the time of
    /// the last of them. Only `maximum` is filled. Empty for a row or columns outside the matrix.
    static TimeCurve rowLevels(const DecibelMatrix& matrix, int row, ColumnRange range, int plotWidth);

    /// The same of each column's largest level over all frequencies.
    static TimeCurve largestLevels(const DecibelMatrix& matrix, const MatrixMaxima& maxima, ColumnRange range,
                                   int plotWidth);

    /// 1.1 x the largest amplitude of the whole recording, relative to full scale: the end of the amplitude
    /// axis and the measure of the playback gain. 0 for silence and without samples.
    static double displayPeak(const std::vector<int>& samples, int bitsPerSample);
};

#endif
