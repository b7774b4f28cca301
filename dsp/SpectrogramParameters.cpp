#include "dsp/SpectrogramParameters.h"

#include <array>

namespace {

// In the order of the combo boxes that show them.
constexpr std::array<const char*, 7> windows{"Rectangular", "Hamming", "Hann",           "Blackman",
                                             "Bartlett",    "Flattop", "Blackman-Harris"};
constexpr std::array<float, 5> frameSizes{100, 75, 50, 25, 12.5F};
constexpr std::array<double, 7> overlaps{98.4375, 96.875, 93.75, 87.5, 75, 50, 0};
constexpr std::array<int, 6> windowSizes{2048, 1024, 512, 256, 128, 64};

template <typename List>
auto entry(const List& list, int index)
{
    return index >= 0 && index < static_cast<int>(list.size()) ? list[index] : list.back();
}

} // namespace

SpectrogramParameters SpectrogramParameters::fromIndexes(int windowIndex, int frameSizeIndex,
                                                         int overlapIndex, int windowSizeIndex)
{
    return {entry(windowSizes, windowSizeIndex), entry(frameSizes, frameSizeIndex),
            QString::fromLatin1(entry(windows, windowIndex)), entry(overlaps, overlapIndex)};
}
