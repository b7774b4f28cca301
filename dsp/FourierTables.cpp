#include "dsp/FourierTables.h"

#include "dsp/FourierPlan.h"
#include "dsp/UnitRoot.h"

#include <cstddef>
#include <cstdint>

namespace {

using Values = std::vector<float>;

/// e^(-2 pi i k / n)
void appendPair(Values& values, int k, int n)
{
    const UnitRoot root = unitRoot(k % n, n);
    values.push_back(static_cast<float>(root.cosine));
    values.push_back(static_cast<float>(-root.sine));
}

/// scale x e^(-2 pi i q c / samples) for the columns c.
void appendLaneRow(Values& values, int q, int samples, double scale)
{
    for (std::int64_t column = 0; column < fourierColumns; ++column)
        values.push_back(static_cast<float>(scale * unitRoot(q * column, samples).cosine));
    for (std::int64_t column = 0; column < fourierColumns; ++column)
        values.push_back(static_cast<float>(-scale * unitRoot(q * column, samples).sine));
}

/// The separation of two mirrored rows leaves out a factor of 1/2, which is made up for here.
Values laneFactors(int length)
{
    const int samples = 2 * fourierColumns * length;
    Values values;
    for (int q = 1; q < length / 2; ++q) {
        appendLaneRow(values, q, samples, 0.5);
        appendLaneRow(values, length - q, samples, 0.5);
    }
    appendLaneRow(values, length / 2, samples, 1.0);
    return values;
}

/// Row c holds the parts of e^(-2 pi i c (2 p + 1) / 16) for p = 0 .. 3.
Values nyquistMatrix()
{
    Values values;
    for (int column = 0; column < fourierColumns; ++column) {
        for (int p = 0; p < 4; ++p)
            values.push_back(static_cast<float>(unitRoot(column * (2 * p + 1) % 16, 16).cosine));
        for (int p = 0; p < 4; ++p)
            values.push_back(static_cast<float>(-unitRoot(column * (2 * p + 1) % 16, 16).sine));
    }
    return values;
}

/// For all passes of a complex transform of `length` values but the last, which needs none.
Values passFactors(int length)
{
    Values values;
    while (length > fourierRadix(length)) {
        const int radix = fourierRadix(length);
        for (int n = 1; n < length / radix; ++n)
            for (int i = 1; i < radix; ++i)
                appendPair(values, n * i, length);
        length /= radix;
    }
    return values;
}

/// For the separation of a complex transform of `length` values into that of 2 x length real ones.
Values splitFactors(int length)
{
    Values values;
    for (int q = 1; q < length / 2; ++q)
        appendPair(values, q, 2 * length);
    return values;
}

} // namespace

FourierTables::FourierTables(int exponent)
{
    const bool inColumns = exponent >= smallestColumnExponent;
    const int length = (1 << exponent) / (inColumns ? 2 * fourierColumns : 2);
    const Values tables[] = {passFactors(length), splitFactors(length),
                             inColumns ? laneFactors(length) : Values(),
                             inColumns ? nyquistMatrix() : Values()};
    constexpr std::size_t perLine = sizeof(Line::values) / sizeof(float);
    std::size_t begin[4];
    for (int i = 0; i < 4; ++i) {
        begin[i] = m_lines.size();
        for (std::size_t at = 0; at < tables[i].size(); at += perLine) {
            Line line = {};
            for (std::size_t j = 0; j < perLine && at + j < tables[i].size(); ++j)
                line.values[j] = tables[i][at + j];
            m_lines.push_back(line);
        }
    }
    const auto table = [this, &begin](int i) {
        return begin[i] < m_lines.size() ? m_lines[begin[i]].values : nullptr;
    };
    m_factors = {table(0), table(1), table(2), table(3)};
}
