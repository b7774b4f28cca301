#include "dsp/QFourierCalculator.h"

QFourierCalculator::~QFourierCalculator() = default;
