#include "tools/RandomSource.h"

float RandomSource::noise()
{
    const auto first = static_cast<std::uint32_t>(m_engine());
    const auto second = static_cast<std::uint32_t>(m_engine());
    const std::uint32_t sum = (first & 0xffffU) + (first >> 16) + (second & 0xffffU) + (second >> 16);
    constexpr float mean = 2.0F * 65535.0F;
    constexpr float deviation = 65536.0F / 1.7320508F; // of four even numbers over 2^16 values
    return (static_cast<float>(sum) - mean) / deviation;
}
