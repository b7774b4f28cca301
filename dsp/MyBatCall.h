#ifndef SONAVIA_DSP_MYBATCALL_H
#define SONAVIA_DSP_MYBATCALL_H

#include <QRectF>
#include <QString>

/// One detected call with its features. A region that is noise has all numbers 0 and an empty rectangle.
struct MyBatCall
{
    double startFreq = 0; ///< kHz, centroid of the first frame
    double endFreq = 0;   ///< kHz, centroid of the last frame
    double maxFreq = 0;   ///< kHz
    double minFreq = 0;   ///< kHz
    double centroid = 0;  ///< kHz
    int switchCount = 0;  ///< separate runs of centroid jump sizes, minus one
    int zeroCount = 0;    ///< gaps inside the span of jump sizes
    int posHist = 0;      ///< different upward jumps of the centroid
    int negHist = 0;      ///< different downward jumps of the centroid
    double duration = 0;  ///< s
    QString classText;
    QRectF rectangle; ///< x in s, y in kHz, y growing with the frequency
};

#endif
