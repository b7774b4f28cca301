#include "tools/Voice.h"

Voice Voice::pipistrelle(double endHz)
{
    const double slowness = 45e3 / endHz;
    CallShape call;
    call.sweeps = {{5.6e-3 * slowness, endHz + 42e3, endHz, 6.0}};
    call.harmonics = {1.0, 0.07, 0.012};
    call.attack = 0.25;
    call.release = 0.3;
    call.tilt = 9.0;
    Voice voice;
    voice.calls = {call};
    voice.interval = 0.088 * slowness;
    voice.amplitude = 1.1;
    return voice;
}

Voice Voice::noctule()
{
    CallShape deep;
    deep.sweeps = {{21e-3, 20.6e3, 18.9e3, 1.5}};
    deep.harmonics = {1.0, 0.05, 0.02};
    deep.attack = 0.35;
    deep.release = 0.35;
    CallShape high = deep;
    high.sweeps = {{14e-3, 31e3, 23.8e3, 4.5}};
    high.tilt = 6.0;
    Voice voice;
    voice.calls = {high, deep};
    voice.interval = 0.21;
    voice.intervalSpread = 0.2;
    voice.amplitude = 2.5;
    return voice;
}

Voice Voice::leislersBat()
{
    Voice voice = noctule();
    voice.calls[0].sweeps = {{10e-3, 37e3, 26.6e3, 5.0}};
    voice.calls[1].sweeps = {{14e-3, 25.5e3, 22.9e3, 2.5}};
    voice.interval = 0.165;
    voice.amplitude = 1.8;
    return voice;
}

Voice Voice::serotine()
{
    CallShape call;
    call.sweeps = {{9e-3, 58e3, 26e3, 3.4}};
    call.harmonics = {1.0, 0.16, 0.04};
    call.attack = 0.3;
    call.release = 0.25;
    call.tilt = 4.0;
    Voice voice;
    voice.calls = {call};
    voice.interval = 0.145;
    voice.amplitude = 1.6;
    return voice;
}

Voice Voice::northernBat()
{
    CallShape call;
    call.sweeps = {{12.5e-3, 44e3, 28.7e3, 6.5}};
    call.harmonics = {1.0, 0.06};
    call.attack = 0.3;
    call.release = 0.35;
    call.tilt = 5.0;
    Voice voice;
    voice.calls = {call};
    voice.interval = 0.19;
    voice.amplitude = 1.6;
    return voice;
}

Voice Voice::myotis()
{
    CallShape call;
    call.sweeps = {{3.2e-3, 105e3, 28e3, 0.9}};
    call.harmonics = {1.0, 0.04};
    call.attack = 0.45;
    call.release = 0.45;
    Voice voice;
    voice.calls = {call};
    voice.interval = 0.082;
    voice.intervalSpread = 0.12;
    voice.frequencySpread = 0.02;
    voice.amplitude = 0.95;
    return voice;
}

Voice Voice::barbastelle()
{
    CallShape strong;
    strong.sweeps = {{2.8e-3, 39e3, 28e3, 1.2}};
    strong.harmonics = {1.0, 0.03};
    strong.attack = 0.35;
    strong.release = 0.4;
    CallShape soft = strong;
    soft.sweeps = {{4.5e-3, 45e3, 33e3, 0.6}};
    soft.harmonics = {0.35, 0.01};
    Voice voice;
    voice.calls = {strong, soft};
    voice.interval = 0.062;
    voice.amplitude = 0.9;
    return voice;
}

Voice Voice::longEaredBat()
{
    CallShape call;
    call.sweeps = {{2.4e-3, 50e3, 24e3, 0.7}};
    call.harmonics = {1.0, 0.5, 0.08};
    call.attack = 0.4;
    call.release = 0.4;
    Voice voice;
    voice.calls = {call};
    voice.interval = 0.064;
    voice.amplitude = 0.2;
    return voice;
}

Voice Voice::horseshoe(double cfHz)
{
    // The bat stresses the second harmonic of its voice; the fundamental at half the pitch is hardly there.
    const double half = cfHz / 2.0;
    CallShape call;
    call.sweeps = {{2.2e-3, half * 0.9, half, 3.0},
                   {cfHz > 100e3 ? 37e-3 : 48e-3, half, half},
                   {2.6e-3, half, half * 0.81, -1.5}};
    call.harmonics = {0.015, 1.0, 0.01, 0.003};
    call.attack = 0.08;
    call.release = 0.06;
    Voice voice;
    voice.calls = {call};
    voice.interval = cfHz > 100e3 ? 0.072 : 0.093;
    voice.intervalSpread = 0.15;
    voice.frequencySpread = 0.0005;
    voice.amplitude = 0.56;
    return voice;
}

Voice Voice::pipistrelleSocial()
{
    CallShape call;
    call.harmonics = {1.0, 0.12, 0.03};
    call.attack = 0.3;
    call.release = 0.35;
    Voice voice;
    voice.interval = 0.0135;
    voice.roundPause = 0.28;
    voice.intervalSpread = 0.08;
    voice.frequencySpread = 0.03;
    voice.amplitude = 0.67;
    for (int component = 0; component < 4; ++component) {
        call.sweeps = {{5.5e-3, 39e3 - 1.5e3 * component, 17.5e3, 1.8}};
        voice.calls.push_back(call);
    }
    return voice;
}

Voice Voice::noctuleSong()
{
    CallShape falling;
    falling.sweeps = {{16e-3, 34e3, 12.5e3, 1.6}};
    falling.harmonics = {1.0, 0.25, 0.08};
    falling.attack = 0.3;
    falling.release = 0.3;
    CallShape wave = falling;
    wave.sweeps = {{9e-3, 15e3, 21e3, 0.5}, {9e-3, 21e3, 13.5e3, 0.3}, {7e-3, 13.5e3, 17e3, 0.4}};
    Voice voice;
    voice.calls = {falling, wave};
    voice.interval = 0.11;
    voice.intervalSpread = 0.25;
    voice.frequencySpread = 0.04;
    voice.amplitude = 0.67;
    return voice;
}
