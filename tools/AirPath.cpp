#include "tools/AirPath.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace {

constexpr double nightTemperature = 13.0; // degrees Celsius
constexpr double nightHumidity = 80.0;    // percent

/// Absorption in dB/m at the table's frequencies in the air of the demo night.
template <std::size_t size>
std::array<double, size> absorptionTable(double stepHz)
{
    std::array<double, size> table{};
    for (std::size_t i = 0; i < size; ++i) {
        table[i] = AirPath::absorption(static_cast<double>(i) * stepHz, nightTemperature, nightHumidity);
    }
    return table;
}

} // namespace

AirPath::AirPath(double distance, double cosOffAxis)
{
    static const auto absorptions = absorptionTable<std::tuple_size<decltype(m_gains)>::value>(tableStepHz);
    const double metres = std::max(distance, 0.3);
    for (std::size_t i = 0; i < m_gains.size(); ++i) {
        const double khz = static_cast<double>(i) * tableStepHz / 1000.0;
        const double beamLoss = (1.0 - cosOffAxis) / 2.0 * (6.0 + 0.15 * khz);
        const double loss = absorptions[i] * metres + beamLoss;
        m_gains[i] = std::pow(10.0, -loss / 20.0) / metres;
    }
}

double AirPath::gain(double hz) const
{
    const double position = std::clamp(hz / tableStepHz, 0.0, static_cast<double>(m_gains.size()) - 1.001);
    const auto index = static_cast<std::size_t>(position);
    const double part = position - static_cast<double>(index);
    return m_gains[index] + (m_gains[index + 1] - m_gains[index]) * part;
}

double AirPath::absorption(double hz, double temperature, double humidity)
{
    const double kelvin = temperature + 273.15;
    const double relative = kelvin / 293.15;
    const double saturation = std::pow(10.0, -6.8346 * std::pow(273.16 / kelvin, 1.261) + 4.6151);
    const double vapour = humidity * saturation; // molar concentration of water vapour in percent
    const double oxygen = 24.0 + 4.04e4 * vapour * (0.02 + vapour) / (0.391 + vapour);
    const double nitrogen =
        std::pow(relative, -0.5) *
        (9.0 + 280.0 * vapour * std::exp(-4.170 * (std::pow(relative, -1.0 / 3.0) - 1.0)));
    const double square = hz * hz;
    const double relaxation = 0.01275 * std::exp(-2239.1 / kelvin) / (oxygen + square / oxygen) +
                              0.1068 * std::exp(-3352.0 / kelvin) / (nitrogen + square / nitrogen);
    return 8.686 * square * (1.84e-11 * std::sqrt(relative) + std::pow(relative, -2.5) * relaxation);
}
