#include "evaluation/core/ActivityTable.h"

#include <cmath>

namespace {

struct KindTexts
{
    const char* title;
    const char* quantity;
    bool quantityHasYear;
    const char* unit;
    const char* axis;
};

const KindTexts& textsOf(ActivityKind kind)
{
    static constexpr KindTexts texts[] = {
        {"Time", "Time", false, "", "Time of Day\n"},
        {"Days", "Day", false, "", "Day\n"},
        {"Months", "Month", false, "", "Month\n"},
        {"Night Time", "Night Times in ", true, "", "Night Time (0=Sunset, 1=Sunrise)\n"},
        {"Temperature", "Temperatures in ", true, " [°C]", "Temperatures in °C \n"},
        {"Precipitation", "Precipitations in ", true, " [mm/min]", "Precipitation in mm/min \n"},
        {"Wind Speed", "Wind Speeds in ", true, " [m/s]", "Wind Speed in m/s\n"}};
    return texts[static_cast<int>(kind)];
}

QString field(double value)
{
    return std::isnan(value) ? QString() : QString::number(value, 'f', 3);
}

} // namespace

QString ActivityTable::text(const std::vector<bool>& isShown) const
{
    const auto shows = [&](std::size_t column) { return column < isShown.size() && isShown[column]; };
    QString text = activityQuantityText(kind, year);
    if (shows(0))
        text += QStringLiteral(";Valid Hours [h]");
    for (int curve = 0; curve < curveNames.size(); ++curve)
        if (shows(static_cast<std::size_t>(curve) + 1))
            text += QLatin1Char(';') + curveNames.at(curve) + QStringLiteral(" [Rec./h]");
    text += QStringLiteral("\r\n");
    for (std::size_t bin = 0; bin < bins.size(); ++bin) {
        text += bins[bin].label;
        if (shows(0))
            text += QLatin1Char(';') + field(curves.validHours[bin]);
        for (std::size_t curve = 0; curve < curves.values.size(); ++curve)
            if (shows(curve + 1))
                text += QLatin1Char(';') + field(curves.values[curve][bin]);
        text += QStringLiteral("\r\n");
    }
    return text;
}

QString activityTitle(ActivityKind kind)
{
    return QStringLiteral("Activity over ") + QString::fromUtf8(textsOf(kind).title);
}

QString activityQuantityText(ActivityKind kind, int year)
{
    const KindTexts& texts = textsOf(kind);
    const QString text = QString::fromUtf8(texts.quantity);
    return texts.quantityHasYear ? text + QString::number(year) + QString::fromUtf8(texts.unit) : text;
}

QString activityAxisTitle(ActivityKind kind, int year)
{
    return QString::fromUtf8(textsOf(kind).axis) + QString::number(year);
}
