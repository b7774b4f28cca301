#ifndef SONAVIA_DSP_REGIONSELECTION_H
#define SONAVIA_DSP_REGIONSELECTION_H

#include <cstddef>
#include <utility>
#include <vector>

/// Keeps those regions of all that are offered whose score is largest; of equal scores, those with the larger
/// label. A bounded min-heap: what it keeps does not depend on the order of offers.
class RegionSelection
{
public:
    explicit RegionSelection(std::size_t capacity);

    void offer(float score, int label);

    /// The labels of the regions kept, ascending.
    std::vector<int> labels() const;

private:
    std::size_t m_capacity;
    std::vector<std::pair<float, int>> m_heap;
};

#endif
