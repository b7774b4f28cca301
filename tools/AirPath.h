#ifndef SONAVIA_TOOLS_AIRPATH_H
#define SONAVIA_TOOLS_AIRPATH_H

#include <array>

/// What a call loses on the way from a bat to the microphone: spherical spreading, the air's absorption and
/// the bat's own beam, which points ahead and is narrower the higher the frequency.
class AirPath
{
public:
    static constexpr double soundSpeed = 340.0; ///< m/s, in the cool of a summer night

    /// A path of `distance` m (at least 0.3 m is assumed). `cosOffAxis` is the cosine of the angle between
    /// the bat's heading and the direction to the microphone: 1 flying towards it, -1 away from it.
    explicit AirPath(double distance, double cosOffAxis = 1.0);

    /// Linear factor against the amplitude 1 m ahead of the bat, at the frequency `hz`.
    double gain(double hz) const;

    /// Absorption by air at one atmosphere in dB/m, after ISO 9613-1:1993, equations 3 to 5 and B.3.
    /// `temperature` in degrees Celsius, `humidity` is relative, in percent.
    static double absorption(double hz, double temperature, double humidity);

private:
    static constexpr double tableStepHz = 2000.0;
    std::array<double, 160> m_gains{}; ///< at the multiples of tableStepHz: a call asks for every sample
};

#endif
