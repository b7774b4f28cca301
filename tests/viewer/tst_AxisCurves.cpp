#include "tests/support/Table.h"
#include "viewer/core/LevelCurve.h"
#include "viewer/core/MatrixMaxima.h"
#include "viewer/core/TimeCurve.h"

#include <QtTest>

#include <cmath>
#include <complex>
#include <limits>
#include <random>

namespace {

constexpr double floorLevel = DecibelMatrix::floor;
const double nothing = -std::numeric_limits<double>::infinity();
const double pi = std::acos(-1.0);

std::vector<int> noise(std::size_t count, int bits)
{
    std::mt19937 random(17);
    const qint64 limit = (qint64(1) << (bits - 1)) - 1;
    std::uniform_int_distribution<qint64> value(-limit - 1, limit);
    std::vector<int> samples(count);
    for (int& sample : samples)
        sample = static_cast<int>(value(random));
    return samples;
}

/// A tone that falls exactly on a bin of the power density.
std::vector<int> tone(std::size_t count, int bin, double amplitude)
{
    std::vector<int> samples(count);
    for (std::size_t n = 0; n < count; ++n)
        samples[n] =
            static_cast<int>(std::lround(amplitude * 32767 * std::cos(2 * pi * bin * double(n) / 4096)));
    return samples;
}

struct Matrix
{
    std::vector<double> values;
    DecibelMatrix view;

    Matrix(int rows, int columns, std::vector<double> cells)
        : values(std::move(cells)), view{values.data(), rows, columns, 0.5, 2.0}
    {}
    static Matrix random(int rows, int columns)
    {
        std::mt19937 random(rows * 1000 + columns);
        std::uniform_real_distribution<double> level(-350, 0);
        std::vector<double> cells(std::size_t(rows) * columns);
        for (double& cell : cells) {
            const double value = level(random);
            cell = value < -330 ? nothing : value;
        }
        return Matrix(rows, columns, std::move(cells));
    }
};

double plainRowMaximum(const DecibelMatrix& matrix, int row, ColumnRange range)
{
    double largest = floorLevel;
    for (int column = std::max(range.first, 0); column < std::min(range.end, matrix.columns); ++column)
        largest = std::max(largest, matrix.row(row)[column]);
    return largest;
}

void compareMaxima(const Matrix& matrix)
{
    const auto [rows, columns] = std::make_pair(matrix.view.rows, matrix.view.columns);
    const MatrixMaxima maxima(matrix.view);
    std::vector<double> perColumn(columns, floorLevel);
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column)
            perColumn[column] = std::max(perColumn[column], matrix.view.row(row)[column]);
    QVERIFY(maxima.columns() == perColumn);

    QVector<ColumnRange> ranges{{0, columns}, {-5, columns + 5}, {3, 3}, {columns, columns + 9}, {9, 2}};
    std::mt19937 random(3);
    for (int i = 0; i < 200; ++i) {
        const int first = static_cast<int>(random() % columns);
        ranges.append({first, first + static_cast<int>(random() % (columns - first + 1))});
    }
    for (const ColumnRange& range : ranges) {
        const int row = static_cast<int>(random() % rows);
        QCOMPARE(maxima.row(matrix.view, row, range), plainRowMaximum(matrix.view, row, range));
    }
}

bool isNear(double a, double b, double tolerance)
{
    return std::abs(a - b) <= tolerance;
}

/// One bin of the formula, term by term.
double plainPower(const std::vector<int>& samples, int bits, int first, int count,
                  const std::vector<long double>& window, int bin)
{
    const int length = static_cast<int>(window.size());
    const int frames = count / length;
    long double power = 0;
    for (int frame = 0; frame < frames; ++frame) {
        std::complex<long double> sum = 0;
        for (int n = 0; n < length; ++n)
            sum += samples[first + frame * length + n] * window[n] *
                   std::polar(1.0L, -2 * std::acos(-1.0L) * (bin * n % 4096) / 4096);
        power += bin == 0 ? sum.real() * sum.real() : 2 * std::norm(sum);
    }
    const long double full = std::ldexp(1.0L, bits - 1) - 1;
    return static_cast<double>(power / (full * full * frames * length * 384000));
}

std::vector<long double> plainWindow(const QString& name, int length)
{
    const QHash<QString, QVector<long double>> sums{
        {"Rectangular", {1}},
        {"Hann", {0.5L, -0.5L}},
        {"Hamming", {0.54L, -0.46L}},
        {"Blackman", {0.42L, -0.5L, 0.08L}},
        {"Blackman-Harris", {0.35875L, -0.48829L, 0.14128L, -0.01168L}}};
    const QVector<long double> a = sums.value(name);
    std::vector<long double> window(length, 0);
    for (int n = 0; n < length; ++n)
        for (int k = 0; k < a.size(); ++k)
            window[n] += a[k] * std::cos(2 * std::acos(-1.0L) * k * n / std::max(length - 1, 1));
    return window;
}

} // namespace

class tst_AxisCurves : public QObject
{
    Q_OBJECT

    // First sample, end, width; maximum, minimum.
    using BlocksRow = Table<int, int, int, QVector<QPointF>, QVector<QPointF>>;
    using EnvelopeRow = Table<int, int, int>;             // bits, count, width
    using PeakRow = Table<std::vector<int>, int, double>; // samples, bits; peak
    using PowerRow = Table<int, int, int, QString>;       // bits, first, count, window

private slots:
    void envelopeOfBlocks_data()
    {
        BlocksRow row;
        using Points = QVector<QPointF>;
        // Samples 1, -2, 3, -4, 5, -6, 7 at 10 per second; relative to 127.
        const auto points = [](std::initializer_list<QPointF> list) {
            Points result;
            for (const QPointF& point : list)
                result.append(QPointF(point.x() / 10, point.y() / 127));
            return result;
        };
        row("narrower than the recording: the last sample fills no block", 0, 7, 3,
            points({{1, 1}, {3, 3}, {5, 5}}), points({{1, -2}, {3, -4}, {5, -6}}));
        row("one pixel", 0, 7, 1, points({{6, 7}}), points({{6, -6}}));
        row("wider: one point per sample", 0, 3, 50, points({{0, 1}, {1, -2}, {2, 3}}),
            points({{0, 1}, {1, -2}, {2, 3}}));
        row("zoomed: times stay those of the recording", 3, 7, 2, points({{4, 5}, {6, 7}}),
            points({{4, -4}, {6, -6}}));
        row("no width yet", 0, 2, 0, points({{1, 1}}), points({{1, -2}}));
        row("range too long", 5, 700, 9, points({{5, -6}, {6, 7}}), points({{5, -6}, {6, 7}}));
        row("empty range", 4, 4, 9, Points(), Points());
        row("reversed range", 4, 2, 9, Points(), Points());
        row("behind the end", 70, 80, 9, Points(), Points());
    }
    void envelopeOfBlocks()
    {
        const auto& [first, end, width, maximum, minimum] = BlocksRow::row();
        const std::vector<int> samples{1, -2, 3, -4, 5, -6, 7};
        const TimeCurve curve =
            TimeCurve::envelope(samples, 10, 8, {std::size_t(first), std::size_t(end)}, width);
        QCOMPARE(curve.maximum, maximum);
        QCOMPARE(curve.minimum, minimum);
        QVERIFY(TimeCurve::envelope({}, 10, 8, {0, 7}, width).maximum.isEmpty());
        QVERIFY(TimeCurve::envelope(samples, 0, 8, {0, 7}, width).maximum.isEmpty());
    }

    void envelopeEqualsPlainLoop_data()
    {
        EnvelopeRow row;
        row("8 bits", 8, 1000, 90);
        row("16 bits, on several cores", 16, 1300007, 900);
        row("24 bits, blocks shorter than a vector", 24, 5003, 1000);
        row("32 bits, on several cores, few blocks", 32, 1300007, 2);
    }
    void envelopeEqualsPlainLoop()
    {
        const auto& [bits, count, width] = EnvelopeRow::row();
        const std::vector<int> samples = noise(count, bits);
        const double full = std::ldexp(1.0, bits - 1) - 1;
        const TimeCurve curve = TimeCurve::envelope(samples, 500000, bits, {0, samples.size()}, width);
        const int block = count / width;
        QCOMPARE(curve.maximum.size(), count / block);
        for (int i = 0; i < curve.maximum.size(); ++i) {
            const auto begin = samples.begin() + std::ptrdiff_t(i) * block;
            const auto [low, high] = std::minmax_element(begin, begin + block);
            long double squares = 0;
            for (auto it = begin; it != begin + block; ++it)
                squares += static_cast<long double>(*it) * *it;
            const double time = ((i + 1) * block - 1) * (1.0 / 500000);
            const double rms = static_cast<double>(std::sqrt(squares / block)) / full;
            QVERIFY(curve.maximum[i] == QPointF(time, *high / full));
            QVERIFY(curve.minimum[i] == QPointF(time, *low / full));
            QVERIFY(curve.positiveRms[i].x() == time && isNear(curve.positiveRms[i].y(), rms, 1e-12));
            QVERIFY(curve.negativeRms[i] == QPointF(time, -curve.positiveRms[i].y()));
        }
    }

    void displayPeakIsOfTheWholeRecording_data()
    {
        PeakRow row;
        std::vector<int> late(700001, 5);
        late.back() = -100;
        row("full scale", {0, 32767}, 16, 1.1);
        row("below zero", {3, -127, 126}, 8, 1.1);
        row("last sample of many", late, 8, 1.1 * 100 / 127);
        row("lowest of 32 bits", {std::numeric_limits<int>::min()}, 32, 1.1 * 2147483648.0 / 2147483647.0);
        row("silence", std::vector<int>(9, 0), 24, 0.0);
        row("no samples", std::vector<int>(), 16, 0.0);
    }
    void displayPeakIsOfTheWholeRecording()
    {
        const auto& [samples, bits, peak] = PeakRow::row();
        QCOMPARE(TimeCurve::displayPeak(samples, bits), peak);
    }

    void thinsLevelsToTheLargest()
    {
        const Matrix matrix(3, 5,
                            {-10, -20, -30, -40, -50,           //
                             nothing, -15, nothing, -400, -500, //
                             -60, -5, -70, -8, -1});
        const MatrixMaxima maxima(matrix.view);
        using Points = QVector<QPointF>;
        QCOMPARE(TimeCurve::rowLevels(matrix.view, 1, {0, 5}, 2).maximum, (Points{{0.5, -15}, {1.5, -300}}));
        QCOMPARE(TimeCurve::rowLevels(matrix.view, 0, {2, 4}, 9).maximum, (Points{{1, -30}, {1.5, -40}}));
        QCOMPARE(TimeCurve::largestLevels(matrix.view, maxima, {0, 5}, 9).maximum,
                 (Points{{0, -10}, {0.5, -5}, {1, -30}, {1.5, -8}, {2, -1}}));
        QCOMPARE(TimeCurve::largestLevels(matrix.view, maxima, {1, 5}, 2).maximum,
                 (Points{{1, -5}, {2, -1}}));

        QCOMPARE(LevelCurve::columnLevels(matrix.view, 3, 100), (Points{{-40, 0}, {-300, 2}, {-8, 4}}));
        QCOMPARE(LevelCurve::largestLevels(matrix.view, maxima, {0, 5}, 3),
                 (Points{{-10, 0}, {-15, 2}, {-1, 4}}));
        QCOMPARE(LevelCurve::largestLevels(matrix.view, maxima, {2, 4}, 3),
                 (Points{{-30, 0}, {-300, 2}, {-8, 4}}));
        // The frequency axis has to the end of its rows.
        QCOMPARE(LevelCurve::largestLevels(matrix.view, maxima, {0, 5}, 1), (Points{{-1, 4}}));
    }

    void maximaEqualPlainLoops()
    {
        // One cell, a row, a column, whole blocks, odd numbers, and enough for several cores.
        const std::pair<int, int> sizes[] = {{1, 1}, {1, 3000}, {511, 1}, {7, 1024}, {31, 5003}, {511, 6001}};
        for (const auto& [rows, columns] : sizes)
            compareMaxima(Matrix::random(rows, columns));
    }

    void levelsOutsideTheMatrixAreEmpty()
    {
        const Matrix matrix(2, 2, {-1, -2, -3, -4});
        for (const int index : {-1, 2, std::numeric_limits<int>::max()}) {
            QVERIFY(TimeCurve::rowLevels(matrix.view, index, {0, 2}, 9).maximum.isEmpty());
            QVERIFY(LevelCurve::columnLevels(matrix.view, index, 9).isEmpty());
        }
        QVERIFY(TimeCurve::rowLevels(matrix.view, 0, {7, 9}, 9).maximum.isEmpty());
        QVERIFY(TimeCurve::rowLevels(matrix.view, 0, {2, 0}, 9).maximum.isEmpty());

        const DecibelMatrix empty{nullptr, 511, 0, 0.1, 0.1};
        const MatrixMaxima maxima(empty);
        QVERIFY(TimeCurve::rowLevels(empty, 0, {0, 9}, 9).maximum.isEmpty());
        QVERIFY(TimeCurve::largestLevels(empty, maxima, {0, 9}, 9).maximum.isEmpty());
        QVERIFY(LevelCurve::columnLevels(empty, 0, 9).isEmpty());
        QVERIFY(LevelCurve::largestLevels(empty, maxima, {0, 9}, 9).isEmpty());
    }

    void powerOfATone()
    {
        constexpr int rate = 250000;
        const std::vector<int> samples = tone(std::size_t(3) * 4096, 500, 0.5);
        const QVector<QPointF> curve =
            LevelCurve::powerDensity(samples, rate, 16, {0, samples.size()}, QStringLiteral("Rectangular"));
        QCOMPARE(curve.size(), 2049);
        QCOMPARE(curve.first().y(), 0.0);
        QCOMPARE(curve.last().y(), 125.0);
        QVERIFY(isNear(curve[500].y(), 30.517578125, 1e-9));
        QVERIFY(isNear(curve[500].x(), 10 * std::log10(0.25 * 4096 / (2.0 * rate)), 0.001));
    }

    void powerEqualsPlainTransform_data()
    {
        PowerRow row;
        const auto hann = QStringLiteral("Hann");
        row("one sample", 16, 0, 1, "Rectangular");
        row("short, windowed over its own length", 16, 20, 100, hann);
        row("nearly a frame", 16, 0, 4095, hann);
        row("24 bits, one frame", 24, 0, 4096, hann);
        row("two frames inside and what fills none", 16, 1000, 8900, "Hamming");
        row("8 bits", 8, 0, 4096, "Blackman");
        row("32 bits", 32, 5, 4200, "Blackman-Harris");
    }
    void powerEqualsPlainTransform()
    {
        const auto& [bits, first, count, window] = PowerRow::row();
        const std::vector<int> samples = noise(10000, bits);
        const QVector<QPointF> curve = LevelCurve::powerDensity(
            samples, 384000, bits, {std::size_t(first), std::size_t(first) + count}, window);
        QCOMPARE(curve.size(), 2049);
        const std::vector<long double> shape = plainWindow(window, std::min(count, 4096));
        for (const int bin : {0, 1, 2, 77, 1000, 2047, 2048}) {
            const double expected = 10 * std::log10(plainPower(samples, bits, first, count, shape, bin));
            QVERIFY2(
                isNear(curve[bin].x(), expected, 0.01),
                qPrintable(QStringLiteral("bin %1: %2, not %3").arg(bin).arg(curve[bin].x()).arg(expected)));
        }
    }

    void powerOfLongRecordingsAddsUp()
    {
        // 800 frames, on several cores: the mean over equal frames is that of one.
        const std::vector<int> samples = tone(std::size_t(800) * 4096, 300, 0.25);
        const auto hann = QStringLiteral("Hann");
        const QVector<QPointF> one = LevelCurve::powerDensity(samples, 500000, 16, {0, 4096}, hann);
        const QVector<QPointF> all = LevelCurve::powerDensity(samples, 500000, 16, {0, samples.size()}, hann);
        for (const int bin : {299, 300, 301})
            QVERIFY(isNear(all[bin].x(), one[bin].x(), 1e-4));
        QCOMPARE(LevelCurve::powerDensity(samples, 500000, 16, {0, samples.size()}, hann), all);
    }

    void powerOfNothing()
    {
        const std::vector<int> silence(5000, 0);
        const auto hann = QStringLiteral("Hann");
        for (const QPointF& point : LevelCurve::powerDensity(silence, 500000, 16, {0, 5000}, hann))
            QCOMPARE(point.x(), floorLevel);
        QVERIFY(LevelCurve::powerDensity({}, 500000, 16, {0, 5000}, hann).isEmpty());
        QVERIFY(LevelCurve::powerDensity(silence, 500000, 16, {70, 70}, hann).isEmpty());
        QVERIFY(LevelCurve::powerDensity(silence, 0, 16, {0, 5000}, hann).isEmpty());
    }
};

QTEST_GUILESS_MAIN(tst_AxisCurves)
#include "tst_AxisCurves.moc"
