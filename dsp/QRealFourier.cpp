#include "dsp/QRealFourier.h"

#include "dsp/QFourierFixedCalculator.h"
#include "dsp/QHammingFunction.h"
#include "dsp/QHannFunction.h"

#include <utility>

namespace {

constexpr int smallestExponent = 3;

template <int... Steps>
void addFixedCalculators(std::map<int, std::unique_ptr<QFourierCalculator>>& calculators,
                         std::integer_sequence<int, Steps...>)
{
    (calculators.emplace(smallestExponent + Steps,
                         std::make_unique<QFourierFixedCalculator<smallestExponent + Steps>>()),
     ...);
}

QString plainName(const QString& name)
{
    // Trimmed once more at the end, for the blank before the word.
    return name.trimmed().toLower().remove(QStringLiteral("function")).trimmed();
}

int exponentOf(int powerOfTwo)
{
    int exponent = 0;
    while (powerOfTwo >> exponent > 1)
        ++exponent;
    return exponent;
}

} // namespace

QRealFourier::QRealFourier(int size, const QString& functionName)
    : m_windowNames{QStringLiteral("Rectangular"), QStringLiteral("Hamming"), QStringLiteral("Hann")}
{
    addFixedCalculators(m_fixedCalculators, std::make_integer_sequence<int, 12>());
    setWindowFunction(functionName);
    setSize(size);
}

QRealFourier::~QRealFourier() = default;

int QRealFourier::setSize(int size)
{
    const bool valid = size >= 1 && (size & (size - 1)) == 0;
    m_size = valid ? size : 0;
    if (m_window)
        m_window->setSize(m_size);
    m_calculator = nullptr;
    if (!valid)
        return 2;
    const auto fixed = m_fixedCalculators.find(exponentOf(size));
    if (fixed != m_fixedCalculators.end()) {
        m_calculator = fixed->second.get();
        m_calculator->setSize(size);
        return 1;
    }
    m_variableCalculator.setSize(size);
    m_calculator = &m_variableCalculator;
    return 0;
}

bool QRealFourier::setWindowFunction(const QString& name)
{
    const QString wanted = plainName(name);
    for (const QString& known : std::as_const(m_windowNames)) {
        const QString plain = plainName(known);
        if (plain != wanted)
            continue;
        if (plain == QLatin1String("hamming"))
            m_window = std::make_unique<QHammingFunction<float>>();
        else if (plain == QLatin1String("hann"))
            m_window = std::make_unique<QHannFunction<float>>();
        else
            m_window.reset();
        if (m_window)
            m_window->setSize(m_size);
        return true;
    }
    return false;
}

void QRealFourier::forward(float* input, float* output)
{
    if (m_calculator == nullptr)
        return;
    if (m_window)
        m_window->applyWindow(input, m_size);
    m_calculator->setData(input, output);
    m_calculator->forward();
}

void QRealFourier::inverse(float* input, float* output)
{
    if (m_calculator == nullptr)
        return;
    m_calculator->setData(input, output);
    m_calculator->inverse();
}

void QRealFourier::rescale(float* values)
{
    if (m_calculator == nullptr)
        return;
    m_calculator->setData(values, values);
    m_calculator->rescale();
}
