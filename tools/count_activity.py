#!/usr/bin/env python3
"""Counts the activity in a folder of classified recordings and compares it with exported tables.

It shares nothing with the program: it reads the class records and weather files itself, asks Python's zone
data, and goes through recordings and pieces of time one by one.

    tools/count_activity.py FOLDER --temperature FILE --wind FILE TABLE.csv...

Each TABLE is an export of "Export Plot Data" with all columns; what it shows is taken from its header. The
settings are those of the plots: whole days unless --start and --stop are given, the recorder's clock with
daylight saving. The wind file has the layout that sonavia_make_demo_season writes.
"""
import argparse
import datetime as dt
import math
import pathlib
import struct
import sys
import zoneinfo


def bext_of(path):
    """Description, date and time in the broadcast extension chunk."""
    data = path.read_bytes()
    at = 12
    while at + 8 <= len(data):
        name, size = data[at:at + 4], struct.unpack("<I", data[at + 4:at + 8])[0]
        if name == b"bext":
            payload = data[at + 8:at + 8 + size]
            text = lambda a, n: payload[a:a + n].replace(b"\0", b"").decode("ascii")
            return text(0, 256), text(320, 10), text(330, 8)
        at += 8 + size
    return "", "", ""


def read_recordings(folder):
    recordings = []
    for path in sorted(folder.glob("*.wav")):
        description, date, time = bext_of(path)
        names = description.split("|")[0]
        classes = []
        for name in names.split(" + ") if names else []:
            if not name:
                break
            classes.append(name)
        recordings.append((dt.datetime.fromisoformat(f"{date} {time}"), classes or ["Unassigned"]))
    return recordings


class Clock:
    def __init__(self, zone):
        self.zone = zoneinfo.ZoneInfo(zone)

    def utc(self, wall):
        # The later of two equal hours; an hour that is left out by the clock before the change.
        early = wall.replace(tzinfo=self.zone, fold=0).utcoffset()
        late = wall.replace(tzinfo=self.zone, fold=1).utcoffset()
        offset = late if early > late else early
        return int((wall - dt.datetime(1970, 1, 1) - offset).total_seconds())

    def wall(self, utc):
        return dt.datetime.fromtimestamp(utc, self.zone).replace(tzinfo=None)

    def noon_offset(self, date):
        return dt.datetime(date.year, date.month, date.day, 12, tzinfo=self.zone).utcoffset().total_seconds()


def sun(rising, date, latitude, longitude, offset):
    """Seconds from 0:00 of the date, or None. Almanac for Computers, 1990."""
    rad, deg = math.radians, math.degrees
    hour = longitude / 15
    t = date.timetuple().tm_yday + ((6 if rising else 18) - hour) / 24
    m = 0.9856 * t - 3.289
    l = (m + 1.916 * math.sin(rad(m)) + 0.020 * math.sin(rad(2 * m)) + 282.634) % 360
    ra = deg(math.atan(0.91764 * math.tan(rad(l)))) % 360
    ra = (ra + (l // 90) * 90 - (ra // 90) * 90) / 15
    sin_dec = 0.39782 * math.sin(rad(l))
    cos_dec = math.cos(math.asin(sin_dec))
    cos_h = (math.sin(rad(-0.833)) - sin_dec * math.sin(rad(latitude))) / (cos_dec * math.cos(rad(latitude)))
    if abs(cos_h) > 1:
        return None
    h = (360 - deg(math.acos(cos_h)) if rising else deg(math.acos(cos_h))) / 15
    ut = (h + ra - 0.06571 * t - 6.622 - hour) % 24
    return round((ut + offset / 3600) % 24 * 3600)


def overlap(a, b):
    return max(a[0], b[0]), min(a[1], b[1])


class Plan:
    def __init__(self, options):
        self.clock = Clock(options.zone)
        self.options = options
        self.days = []
        day = options.begin
        while day <= options.end:
            self.days.append(day)
            day += dt.timedelta(1)
        self.windows = {day: self.window(day) for day in self.days}

    def window(self, day):
        start = dt.datetime.combine(day, self.options.start)
        stop = dt.datetime.combine(day, self.options.stop)
        if stop <= start:
            stop += dt.timedelta(1)
        return self.clock.utc(start), self.clock.utc(stop)

    def windows_near(self, span):
        """Windows that `span` may reach into, joined where they touch."""
        first = (self.clock.wall(span[0]) - dt.timedelta(2)).date()
        near = [self.windows[first + dt.timedelta(i)] for i in range(6)
                if first + dt.timedelta(i) in self.windows]
        joined = []
        for window in near:
            if joined and window[0] <= joined[-1][1]:
                joined[-1] = joined[-1][0], max(joined[-1][1], window[1])
            else:
                joined.append(window)
        return joined

    def monitored(self, spans):
        for span in spans:
            for window in self.windows_near(span):
                low, high = overlap(span, window)
                if low < high:
                    yield low, high

    # Each of these gives (label, spans) pairs; spans are monitored already.

    def day_bins(self):
        return [(f"{day:%d/%m/%y}", [self.windows[day]]) for day in self.days]

    def month_bins(self):
        months = {}
        for day in self.days:
            months.setdefault(f"{day:%m/%y}", []).append(self.windows[day])
        return list(months.items())

    def time_bins(self):
        bins = {}
        order = [(72 + i) % 144 for i in range(144)]
        for slot in order:
            bins[slot] = []
        # In steps that divide quarters of an hour, by which zones differ; changes of clocks need no thought.
        low = min(window[0] for window in self.windows.values())
        high = max(window[1] for window in self.windows.values())
        for start in range(low // 300 * 300, high, 300):
            wall = self.clock.wall(start)
            slot = (wall.hour * 60 + wall.minute) // 10
            bins[slot] += self.monitored([(start, start + 300)])
        return [(f"{slot // 6:02}:{slot % 6 * 10:02}", bins[slot]) for slot in order]

    def night_bins(self):
        labels = ["-0.15 to 0"] + [f"{i / 10:g} to {(i + 1) / 10:g}" for i in range(10)]
        spans = [[] for _ in labels]
        for i in range(-1, len(self.days) + 1):
            day = self.days[0] + dt.timedelta(i)
            next_day = day + dt.timedelta(1)
            place = self.options.latitude, self.options.longitude
            offset, next_offset = self.clock.noon_offset(day), self.clock.noon_offset(next_day)
            sunset = sun(False, day, *place, offset)
            sunrise = sun(True, next_day, *place, next_offset)
            if sunset is None or sunrise is None:
                continue
            midnight = lambda d: int((dt.datetime.combine(d, dt.time()) - dt.datetime(1970, 1, 1)).total_seconds())
            sunset += midnight(day) - int(offset)
            sunrise += midnight(next_day) - int(next_offset)
            length = sunrise - sunset
            limits = [sunset - math.floor(0.15 * length + 0.5)]
            limits += [sunset + math.floor(length * i / 10 + 0.5) for i in range(11)]
            for k in range(11):
                spans[k] += self.monitored([(limits[k], limits[k + 1])])
        return list(zip(labels, spans))

    def weather_bins(self, samples, labels, bin_of):
        spans = [[] for _ in labels]
        year = self.options.begin.year
        for utc, value in samples:
            index = bin_of(value)
            if index is not None and self.clock.wall(utc).year == year:
                spans[index] += self.monitored([(utc, utc + 600)])
        return list(zip(labels, spans))


def read_temperature(path, clock, column):
    samples = []
    for line in path.read_text().splitlines()[1:]:
        fields = line.split(",")
        samples.append((clock.utc(dt.datetime.fromisoformat(fields[0])),
                        struct.unpack("f", struct.pack("f", float(fields[column])))[0]))
    return samples


def read_wind(path, clock):
    samples = []
    for line in path.read_text().splitlines()[1:]:
        stamp, value = line.split(";")
        end = dt.datetime.strptime(stamp, "%d.%m.%Y %H:%M:%S")
        samples.append((clock.utc(end - dt.timedelta(minutes=10)),
                        struct.unpack("f", struct.pack("f", float(value.replace(",", "."))))[0]))
    return samples


def joined(spans):
    result = []
    for span in sorted(spans):
        if result and span[0] <= result[-1][1]:
            result[-1] = result[-1][0], max(result[-1][1], span[1])
        else:
            result.append(span)
    return result


def first_appearance(recordings):
    names = []
    for _, classes in recordings:
        for name in classes:
            if name not in names and name != "Unassigned":
                names.append(name)
    return ["All Classes"] + names + ["Unassigned"]


def counted(plan, recordings, bins):
    names = first_appearance(recordings)
    times = [(plan.clock.utc(time), classes) for time, classes in recordings]
    lines = []
    for label, spans in bins:
        spans = joined(spans)
        hours = sum(stop - start for start, stop in spans) / 3600
        counts = dict.fromkeys(names, 0)
        if spans:
            for utc, classes in times:
                if spans[0][0] <= utc <= spans[-1][1] and any(a <= utc <= b for a, b in spans):
                    counts["All Classes"] += 1
                    for name in classes:
                        counts[name] += 1
        fields = [f"{counts[name] / hours:.3f}" if hours else "" for name in names]
        lines.append([label, f"{hours:.3f}"] + fields)
    return names, lines


def expected(plan, recordings, quantity, options):
    temperatures = [f"{low} to {low + 2}" for low in range(-20, 50, 2)]
    steps = [f"{low} to {low + 1}" for low in range(10)]
    def within(value, low, width, count):
        if not low <= value <= low + width * count:
            return None
        return min(int((value - low) // width), count - 1)
    if quantity.startswith("Temperatures"):
        bins = plan.weather_bins(read_temperature(options.temperature, plan.clock, 1), temperatures,
                                 lambda v: within(v, -20, 2, 35))
    elif quantity.startswith("Precipitations"):
        shifted = lambda v: 0 if v == 0 else None if within(v, 0, 1, 10) is None else within(v, 0, 1, 10) + 1
        bins = plan.weather_bins(read_temperature(options.temperature, plan.clock, 2), ["0"] + steps, shifted)
    elif quantity.startswith("Wind"):
        bins = plan.weather_bins(read_wind(options.wind, plan.clock), steps + [">10"],
                                 lambda v: 10 if v > 10 else within(v, 0, 1, 10))
    elif quantity.startswith("Night"):
        bins = plan.night_bins()
    else:
        bins = {"Day": plan.day_bins, "Month": plan.month_bins, "Time": plan.time_bins}[quantity]()
    return counted(plan, recordings, bins)


def differs(a, b):
    if not a or not b:
        return a != b
    return abs(float(a) - float(b)) > 0.0011


def compare(plan, recordings, table, options):
    rows = [line.split(";") for line in table.read_bytes().decode("utf-8").split("\r\n")[:-1]]
    names, lines = expected(plan, recordings, rows[0][0], options)
    header = ["Valid Hours [h]"] + [name + " [Rec./h]" for name in names]
    wrong = 0 if rows[0][1:] == header else 1
    for row, line in zip(rows[1:], lines):
        if row[0] != line[0] or len(row) != len(line) or any(map(differs, row[1:], line[1:])):
            wrong += 1
            if wrong < 6:
                print("  table   ", *row, sep=";")
                print("  expected", *line, sep=";")
    wrong += abs(len(rows) - 1 - len(lines))
    print(f"{table.name}: {rows[0][0]}, {len(lines)} rows, {len(names) + 1} columns, {wrong} wrong")
    return wrong


def main():
    day = dt.date.fromisoformat
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("folder", type=pathlib.Path)
    parser.add_argument("tables", type=pathlib.Path, nargs="+")
    parser.add_argument("--temperature", type=pathlib.Path)
    parser.add_argument("--wind", type=pathlib.Path)
    parser.add_argument("--zone", default="Europe/Berlin")
    parser.add_argument("--latitude", type=float, default=51.0)
    parser.add_argument("--longitude", type=float, default=9.0)
    parser.add_argument("--begin", type=day, default=day("2026-01-01"))
    parser.add_argument("--end", type=day, default=day("2026-12-31"))
    parser.add_argument("--start", type=dt.time.fromisoformat, default=dt.time())
    parser.add_argument("--stop", type=dt.time.fromisoformat, default=dt.time())
    options = parser.parse_args()
    recordings = read_recordings(options.folder)
    plan = Plan(options)
    return 1 if sum(compare(plan, recordings, table, options) for table in options.tables) else 0


if __name__ == "__main__":
    sys.exit(main())
