#include "dsp/RegionSelection.h"

#include <algorithm>
#include <functional>

RegionSelection::RegionSelection(std::size_t capacity) : m_capacity(capacity)
{}

void RegionSelection::offer(float score, int label)
{
    const std::pair<float, int> region(score, label);
    if (m_heap.size() == m_capacity) {
        if (m_heap.empty() || !(region > m_heap.front()))
            return;
        std::pop_heap(m_heap.begin(), m_heap.end(), std::greater<>());
        m_heap.back() = region;
    } else {
        m_heap.push_back(region);
    }
    std::push_heap(m_heap.begin(), m_heap.end(), std::greater<>());
}

std::vector<int> RegionSelection::labels() const
{
    std::vector<int> labels(m_heap.size());
    std::transform(m_heap.begin(), m_heap.end(), labels.begin(),
                   [](const auto& region) { return region.second; });
    std::sort(labels.begin(), labels.end());
    return labels;
}
