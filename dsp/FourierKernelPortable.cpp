#include "dsp/FourierKernel.inl"
#include "dsp/FourierKernelSets.h"

namespace {

/// Four floats; compilers make them vectors of the processor at hand.
struct Vector
{
    static constexpr int lanes = 4;
    float v[lanes];

    static Vector load(const float* p) { return {{p[0], p[1], p[2], p[3]}}; }
    static Vector all(float x) { return {{x, x, x, x}}; }
    void store(float* p) const
    {
        for (int i = 0; i < lanes; ++i)
            p[i] = v[i];
    }
    Vector negated() const { return {{-v[0], -v[1], -v[2], -v[3]}}; }
    Vector reversed() const { return {{v[3], v[2], v[1], v[0]}}; }
    Vector mirrored() const { return {{v[0], v[3], v[2], v[1]}}; }
    static void loadColumns(const float* rows, const int* at, Vector (&columns)[8])
    {
        for (int column = 0; column < 8; ++column)
            for (int i = 0; i < lanes; ++i)
                columns[column].v[i] = rows[at[i] + column];
    }
};

inline Vector operator+(const Vector& a, const Vector& b)
{
    return {{a.v[0] + b.v[0], a.v[1] + b.v[1], a.v[2] + b.v[2], a.v[3] + b.v[3]}};
}

inline Vector operator-(const Vector& a, const Vector& b)
{
    return {{a.v[0] - b.v[0], a.v[1] - b.v[1], a.v[2] - b.v[2], a.v[3] - b.v[3]}};
}

inline Vector operator*(const Vector& a, const Vector& b)
{
    return {{a.v[0] * b.v[0], a.v[1] * b.v[1], a.v[2] * b.v[2], a.v[3] * b.v[3]}};
}

} // namespace

FourierKernel fourierKernelPortable(int exponent)
{
    return kernelOf<Vector, Vector>(exponent);
}
