#ifndef SONAVIA_VIEWER_CORE_LEVELCURVE_H
#define SONAVIA_VIEWER_CORE_LEVELCURVE_H

#include "viewer/core/DecibelMatrix.h"
#include "viewer/core/MatrixMaxima.h"
#include "viewer/core/SampleRange.h"

#include <QPointF>
#include <QString>
#include <QVector>

#include <vector>

/// The curves of the frequency-axis plot, which lies on its side: x is the level in dB, y the frequency in
/// kHz, rising. No level is below DecibelMatrix::floor. Any thread; the power density is computed on all
/// cores and is the same for every number of them.
namespace LevelCurve {

/// Power spectral density in dB/Hz (full scale is 0 dB) of a range of samples: the frames of 4096 samples
/// that fit into it one after the other, windowed; of a range shorter than that all samples, windowed over
/// their own length and padded with zeros. 2049 points from 0 to half the sample rate; none for an empty
/// range.
///
/// `window` is a name of dsp/WindowShapes; "Blackman-Harris", as the settings spell it, is the true window of
/// this name here. Neither its gain nor its noise bandwidth is taken out of the levels.
QVector<QPointF> powerDensity(const std::vector<int>& samples, int sampleRate, int bitsPerSample,
                              SampleRange range, const QString& window);

/// The levels of one column; of max(rows / plotHeight, 1) rows the largest, at the frequency of the last of
/// them. Empty for a column outside the matrix.
QVector<QPointF> columnLevels(const DecibelMatrix& matrix, int column, int plotHeight);

/// The same of each row's largest level within the columns. `maxima` is made from `matrix`.
QVector<QPointF> largestLevels(const DecibelMatrix& matrix, const MatrixMaxima& maxima, ColumnRange range,
                               int plotHeight);

} // namespace LevelCurve

#endif
