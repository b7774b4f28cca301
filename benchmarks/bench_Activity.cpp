// The activity plots of a large folder: 100,000 recordings over a year, 12 classes, weather every ten
// minutes. Each tab is to compute within 1 s and to follow a click on its legend or axis within 100 ms.

#include "evaluation/ActivityPlot.h"
#include "evaluation/core/ActivityModel.h"
#include "tools/RandomSource.h"

#include <QApplication>
#include <QTemporaryDir>
#include <qwt_legend.h>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <map>

namespace {

constexpr int year = 2026;

std::vector<RecordingRow> rows(int count, int days)
{
    RandomSource random(1);
    std::vector<RecordingRow> result(static_cast<std::size_t>(count));
    for (RecordingRow& row : result) {
        const int day = static_cast<int>(random.uniform() * days);
        const int second = static_cast<int>(random.uniform() * 86400.0);
        row.date = QDate(year, 1, 1).addDays(day).toString(QStringLiteral("dd/MM/yy"));
        row.time = QTime(0, 0).addSecs(second).toString(QStringLiteral("hh:mm:ss"));
        row.record.classes[0] = QStringLiteral("Class %1").arg(static_cast<int>(random.uniform() * 12.0));
    }
    return result;
}

WeatherRead weather()
{
    RandomSource random(2);
    WeatherRead read;
    const qint64 begin = RecorderClock::wall(QDate(year, 1, 1));
    for (qint64 time = begin; time < begin + 365 * 86400; time += 600) {
        read.temperature.push_back({time, static_cast<float>(random.between(-10.0, 35.0))});
        read.precipitation.push_back({time, static_cast<float>(std::max(0.0, random.between(-8.0, 4.0)))});
        read.windSpeed.push_back({time, static_cast<float>(random.between(0.0, 12.0))});
    }
    return read;
}

MonitoringPlan plan(int days)
{
    MonitoringPlan result;
    result.zone = QTimeZone("Europe/Berlin");
    result.year = year;
    result.begin = QDate(year, 1, 1);
    result.end = result.begin.addDays(days - 1);
    result.relative = true;
    result.startMinutes = -60;
    result.stopMinutes = 30;
    result.invalidTimes =
        QStringLiteral("03.05.2026 20:00-09.05.2026 12:00;01.08.2026 22:00-02.08.2026 03:00");
    return result;
}

ActivityModel& model(int count, int days)
{
    static std::map<std::pair<int, int>, std::unique_ptr<ActivityModel>> models;
    std::unique_ptr<ActivityModel>& made = models[{count, days}];
    if (!made) {
        made = std::make_unique<ActivityModel>(rows(count, days));
        made->setTemperature(weather());
        made->setWind(weather(), QTimeZone("Europe/Berlin"), true);
    }
    return *made;
}

/// After a change of the settings: calendar, sorting, weather of the year, bins and counts.
void compute(benchmark::State& state, ActivityKind kind, int quantity, int count, int days)
{
    ActivityModel& activity = model(count, days);
    const MonitoringPlan settings = plan(days);
    for (auto _ : state) {
        activity.setPlan(settings);
        benchmark::DoNotOptimize(activity.hasData(kind));
        benchmark::DoNotOptimize(
            activity.table(kind, true, ActivityQuantity::choices()[static_cast<std::size_t>(quantity)]));
    }
}

void readRows(benchmark::State& state)
{
    const std::vector<RecordingRow> list = rows(100'000, 365);
    for (auto _ : state)
        benchmark::DoNotOptimize(ActivityRecordings(list));
}

void readWeatherFile(benchmark::State& state)
{
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("weather.csv")));
    if (!file.open(QIODevice::WriteOnly))
        return state.SkipWithError("cannot write");
    const QByteArray line("2026-07-01 22:10:00,15.3,0.25\r\n");
    file.write(line.repeated(20'000'000 / line.size()));
    file.close();
    for (auto _ : state)
        benchmark::DoNotOptimize(WeatherFile::readTemperature(file.fileName()));
    state.SetBytesProcessed(state.iterations() * file.size());
}

/// A click on the legend, and the two choices of the axis, with painting.
template <typename Click>
void click(benchmark::State& state, ActivityKind kind, const Click& click)
{
    ActivityModel& activity = model(100'000, 365);
    activity.setPlan(plan(365));
    ActivityPlot plot(kind);
    plot.resize(1200, 700);
    plot.initialise(activity.recordings().curveNames());
    plot.showTable(activity.table(kind, true, {}), QString());
    plot.show();
    bool on = false;
    for (auto _ : state) {
        click(plot, on);
        on = !on;
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}

void legendClick(benchmark::State& state, ActivityKind kind)
{
    click(state, kind, [](ActivityPlot& plot, bool on) {
        plot.setShown(plot.itemToInfo(plot.itemList(QwtPlotItem::Rtti_PlotCurve).first()), on);
    });
}

void axisClick(benchmark::State& state, ActivityKind kind)
{
    click(state, kind, [](ActivityPlot& plot, bool on) { plot.setLogarithmic(!on); });
}

void registerAll()
{
    const char* const names[] = {"Time",        "Days",          "Months",   "NightTime",
                                 "Temperature", "Precipitation", "WindSpeed"};
    const auto add = [](const std::string& name, auto run) {
        benchmark::RegisterBenchmark(name.c_str(), run)->Unit(benchmark::kMillisecond);
    };
    for (int i = 0; i < 7; ++i) {
        const auto kind = static_cast<ActivityKind>(i);
        const std::string name = names[i];
        add("compute/" + name, [=](benchmark::State& state) { compute(state, kind, 0, 100'000, 365); });
        add("legendClick/" + name, [=](benchmark::State& state) { legendClick(state, kind); });
        add("axisClick/" + name, [=](benchmark::State& state) { axisClick(state, kind); });
    }
    add("compute/Days, events",
        [](benchmark::State& state) { compute(state, ActivityKind::Days, 2, 100'000, 365); });
    // How the cost grows: with recordings, with days.
    for (const int count : {25'000, 50'000, 200'000})
        add("compute/Time, recordings:" + std::to_string(count),
            [=](benchmark::State& state) { compute(state, ActivityKind::Time, 0, count, 365); });
    for (const int days : {90, 180, 730})
        add("compute/Time, days:" + std::to_string(days),
            [=](benchmark::State& state) { compute(state, ActivityKind::Time, 0, 100'000, days); });
    add("readRows", readRows);
    add("readWeatherFile, 20 MB", readWeatherFile);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    registerAll();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
