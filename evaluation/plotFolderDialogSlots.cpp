#include "evaluation/ActivityPlot.h"
#include "evaluation/ActivityTab.h"
#include "evaluation/plotFolderDialog.h"

// The named functions of the seven tabs: each says which tab it is for.

void plotFolderDialog::plotFunctionVsTime(bool init, bool exportData)
{
    plotFunction(ActivityKind::Time, init, exportData);
}

void plotFolderDialog::zoomed(const QRectF& view)
{
    tab(ActivityKind::Time).plot().divideAxes(view);
}

void plotFolderDialog::legendChecked(const QVariant& entry, bool on)
{
    tab(ActivityKind::Time).plot().setShown(entry, on);
}

void plotFolderDialog::plotFunctionVsDays(bool init, bool exportData)
{
    plotFunction(ActivityKind::Days, init, exportData);
}

void plotFolderDialog::zoomedVsDays(const QRectF& view)
{
    tab(ActivityKind::Days).plot().divideAxes(view);
}

void plotFolderDialog::legendVsDaysChecked(const QVariant& entry, bool on)
{
    tab(ActivityKind::Days).plot().setShown(entry, on);
}

void plotFolderDialog::plotFunctionVsNight(bool init, bool exportData)
{
    plotFunction(ActivityKind::NightTime, init, exportData);
}

void plotFolderDialog::zoomedVsNight(const QRectF& view)
{
    tab(ActivityKind::NightTime).plot().divideAxes(view);
}

void plotFolderDialog::legendVsNightChecked(const QVariant& entry, bool on)
{
    tab(ActivityKind::NightTime).plot().setShown(entry, on);
}

void plotFolderDialog::plotFunctionVsMonth(bool init, bool exportData)
{
    plotFunction(ActivityKind::Months, init, exportData);
}

void plotFolderDialog::zoomedVsMonth(const QRectF& view)
{
    tab(ActivityKind::Months).plot().divideAxes(view);
}

void plotFolderDialog::legendVsMonthChecked(const QVariant& entry, bool on)
{
    tab(ActivityKind::Months).plot().setShown(entry, on);
}

void plotFolderDialog::plotFunctionVsTemp(bool init, bool exportData)
{
    plotFunction(ActivityKind::Temperature, init, exportData);
}

void plotFolderDialog::zoomedVsTemp(const QRectF& view)
{
    tab(ActivityKind::Temperature).plot().divideAxes(view);
}

void plotFolderDialog::legendVsTempChecked(const QVariant& entry, bool on)
{
    tab(ActivityKind::Temperature).plot().setShown(entry, on);
}

void plotFolderDialog::plotFunctionVsPrec(bool init, bool exportData)
{
    plotFunction(ActivityKind::Precipitation, init, exportData);
}

void plotFolderDialog::zoomedVsPrec(const QRectF& view)
{
    tab(ActivityKind::Precipitation).plot().divideAxes(view);
}

void plotFolderDialog::legendVsPrecChecked(const QVariant& entry, bool on)
{
    tab(ActivityKind::Precipitation).plot().setShown(entry, on);
}

void plotFolderDialog::plotFunctionVsWind(bool init, bool exportData)
{
    plotFunction(ActivityKind::WindSpeed, init, exportData);
}

void plotFolderDialog::zoomedVsWind(const QRectF& view)
{
    tab(ActivityKind::WindSpeed).plot().divideAxes(view);
}

void plotFolderDialog::legendVsWindChecked(const QVariant& entry, bool on)
{
    tab(ActivityKind::WindSpeed).plot().setShown(entry, on);
}
