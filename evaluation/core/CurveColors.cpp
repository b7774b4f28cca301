#include "evaluation/core/CurveColors.h"

QColor curveColor(int i)
{
    static constexpr QRgb palette[curveColorCount] = {
        0x0072B2, 0xD55E00, 0x009E73, 0xCC79A7, 0xE69F00, 0x56B4E9, // Okabe and Ito
        0x332288, 0x882255, 0x117733, 0x999933, 0xAA4499, 0xCC6677, 0x44AA99, 0x88CCEE, 0xDDCC77};
    return QColor(palette[((i % curveColorCount) + curveColorCount) % curveColorCount]);
}
