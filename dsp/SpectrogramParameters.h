#ifndef SONAVIA_DSP_SPECTROGRAMPARAMETERS_H
#define SONAVIA_DSP_SPECTROGRAMPARAMETERS_H

#include <QString>

/// How a recording is cut into frames and windowed.
struct SpectrogramParameters
{
    int windowSize = 1024; ///< samples of a transform, a power of two
    float frameSize = 100; ///< percent of the window that carries samples
    QString window;        ///< name of the shape, see windowShape()
    double overlap = 50;   ///< percent of the window shared by neighbouring frames

    /// The parameters that four indexes of the settings store stand for; an index outside its list stands for
    /// the list's last entry.
    static SpectrogramParameters fromIndexes(int windowIndex, int frameSizeIndex, int overlapIndex,
                                             int windowSizeIndex);
};

#endif
