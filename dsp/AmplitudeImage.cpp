#include "dsp/AmplitudeImage.h"

#include "dsp/FreshMemory.h"

AmplitudeImage::AmplitudeImage(int frames, int bins)
    : m_frames(frames), m_bins(bins), m_cells(static_cast<float*>(std::malloc(cells() * sizeof(float))))
{
    preferLargePages(m_cells.get(), cells() * sizeof(float));
}
