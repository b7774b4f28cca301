#include "evaluation/ActivityZoomers.h"

#include "evaluation/MyQwtZoomer10.h"
#include "evaluation/MyQwtZoomer3.h"
#include "evaluation/MyQwtZoomer4.h"
#include "evaluation/MyQwtZoomer41.h"
#include "evaluation/MyQwtZoomer5.h"
#include "evaluation/MyQwtZoomer51.h"
#include "evaluation/MyQwtZoomer6.h"
#include "evaluation/MyQwtZoomer61.h"
#include "evaluation/MyQwtZoomer7.h"
#include "evaluation/MyQwtZoomer71.h"
#include "evaluation/MyQwtZoomer8.h"
#include "evaluation/MyQwtZoomer81.h"
#include "evaluation/MyQwtZoomer9.h"
#include "evaluation/MyQwtZoomer91.h"

ActivityZoomers ActivityZoomers::make(ActivityKind kind, QWidget* canvas)
{
    switch (kind) {
    case ActivityKind::Time:
        return {new MyQwtZoomer3(canvas), new MyQwtZoomer10(canvas)};
    case ActivityKind::Days:
        return {new MyQwtZoomer4(canvas), new MyQwtZoomer41(canvas)};
    case ActivityKind::Months:
        return {new MyQwtZoomer5(canvas), new MyQwtZoomer51(canvas)};
    case ActivityKind::NightTime:
        return {new MyQwtZoomer6(canvas), new MyQwtZoomer61(canvas)};
    case ActivityKind::Temperature:
        return {new MyQwtZoomer7(canvas), new MyQwtZoomer71(canvas)};
    case ActivityKind::Precipitation:
        return {new MyQwtZoomer8(canvas), new MyQwtZoomer81(canvas)};
    case ActivityKind::WindSpeed:
        break;
    }
    return {new MyQwtZoomer9(canvas), new MyQwtZoomer91(canvas)};
}
