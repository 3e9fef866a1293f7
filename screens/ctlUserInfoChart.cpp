// The chart of the player screen.
#include "domain/CPlayer.h"
#include "domain/colCategory.h"
#include "platform/ChartScale.h"
#include "platform/Clock.h"
#include "platform/Colour.h"
#include "platform/Csv.h"
#include "platform/LarkChart.h"
#include "platform/RuntimeError.h"
#include "platform/Step.h"
#include "screens/Design.h"
#include "screens/FocusMark.h"
#include "screens/SaveFile.h"
#include "screens/ctlUserInfo.h"
#include "shell/program/modMain.h"
#include "skin/ShellSound.h"

#include <QBuffer>
#include <QContextMenuEvent>
#include <QKeyEvent>

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace
{
// Categories count from 1: the first one is blue, the fifth red.
constexpr std::array SeriesColours{ColourBytes(255, 0, 0), ColourBytes(0, 0, 255), ColourBytes(0, 255, 0),
                                   ColourBytes(255, 132, 0), ColourBytes(255, 0, 255)};
constexpr int Styles = 6, FirstStyle = 2, LineThickness = 2;
constexpr int MostGridLines = 20;   // about
constexpr int PreparedPoints = 300; // enough to be drawn as means and dots
constexpr QStringView NoCategory = u"zzz";

// Missing where the workout has no result in the category.
double PointsIn(CWorkout &workout, const CCategory &category)
{
    const auto points = workout.PointsIn(category.Key);
    return points ? *points : ChartScale::Missing;
}

QByteArray PictureOf(const LarkChart &chart)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!chart.Picture().save(&buffer, "PNG")) throw RuntimeError(QStringLiteral("The picture can't be made."));
    return bytes;
}

// Without a result both hold one element, 0.
bool HasData(const std::vector<double> &dates) { return dates.size() > 1 || (!dates.empty() && dates[0] != 0); }
} // namespace

void ctlUserInfo::MakeChart()
{
    LarkChart1 = Put<LarkChart>(this, QStringLiteral("LarkChart1"), {});
    LarkChart1->setAccessibleName(QStringLiteral("Progress"));
    LarkChart1->emptytext = QStringLiteral("Nothing recorded yet.\nThe points of each workout will appear here.");
    LarkChart1->averagesnote = QStringLiteral("Lines: means of about %1 workouts   Dots: single workouts");
    LarkChart1->setFocusPolicy(Qt::StrongFocus);
    new FocusMark(LarkChart1);
    LarkChart1->hide();
    connect(LarkChart1, &LarkChart::Click, this, [] { PlayShellSound(QStringLiteral("shortbeep")); });
}

void ctlUserInfo::OfferToSave(const QPoint &At)
{
    const QString name = modMain::CurrentPlayer ? QStringLiteral("Progress of ") + modMain::CurrentPlayer->Name
                                                : QStringLiteral("Progress");
    Savable picture{QStringLiteral("Save picture"), name, QStringLiteral("png"), QStringLiteral("PNG picture"),
                    [this] { return PictureOf(*LarkChart1); }};
    Savable values{
        QStringLiteral("Save values as CSV"), name, QStringLiteral("csv"), QStringLiteral("CSV table"), {}};
    if (LarkChart1->HasPoint()) values.Bytes = [this] { return ToCsv(LarkChart1->Table(QStringLiteral("Date"))); };
    ShowSaveMenu(LarkChart1, At, {picture, values});
}

void ctlUserInfo::contextMenuEvent(QContextMenuEvent *event)
{
    if (LarkChart1->isHidden()) return event->ignore();
    const bool byMouse = event->reason() == QContextMenuEvent::Mouse;
    OfferToSave(byMouse ? LarkChart1->mapFrom(this, event->pos()) : LarkChart1->rect().center());
}

void ctlUserInfo::keyPressEvent(QKeyEvent *event)
{
    if (!LarkChart1->hasFocus() || !AsksForMenu(*event)) return Screen::keyPressEvent(event);
    OfferToSave(LarkChart1->rect().center());
}

// What takes long at the first chart, each letter of each font, is the same in one of made-up points.
void ctlUserInfo::PrepareChart()
{
    if (!LarkChart1->AllSeries().empty()) return; // somebody was faster
    Step([this] {
        std::vector<double> dates(PreparedPoints);
        std::iota(dates.begin(), dates.end(), Today() - PreparedPoints);
        DrawCategories(dates, [](const CCategory &category) {
            std::vector<double> points(PreparedPoints);
            for (std::size_t i = 0; i < points.size(); ++i)
                points[i] = static_cast<double>((i + static_cast<std::size_t>(category.Key)) % PreparedPoints);
            return points;
        });
        DrawChart(1, PreparedPoints, true);
    });
    LarkChart1->Clear();
}

void ctlUserInfo::ShowWorkoutStats()
{
    if (!modMain::CurrentPlayer) return;
    colWorkout &workouts = modMain::CurrentPlayer->Workouts();
    workouts.LoadPoints();
    if (!LarkChart1->evenspacing) LarkChart1->Clear();
    std::vector<double> dates;
    for (const auto &workout : workouts) dates.push_back(workout->Timestamp);
    if (dates.empty()) dates.push_back(Now());
    DrawCategories(dates, [&](const CCategory &category) {
        std::vector<double> points;
        points.reserve(dates.size());
        for (const auto &workout : workouts) points.push_back(PointsIn(*workout, category));
        points.resize(dates.size(), ChartScale::Missing);
        return points;
    });
    ShowChart(1, dates.front() < dates.back() ? workouts.Count() : 2, true);
}

// A category keeps its number, and so its colour and style, whether those before it are drawn or not.
void ctlUserInfo::DrawCategories(const std::vector<double> &Dates, const PointsOfCategory &PointsOf)
{
    std::size_t i = 0;
    for (const auto &category : *modMain::Categories) {
        ++i;
        if (category->Name != NoCategory) DrawSeries(category->LocalName(), i, Dates, PointsOf(*category));
    }
}

void ctlUserInfo::ShowStats()
{
    if (!modMain::CurrentPlayer) return;
    LarkChart1->Clear();
    double lowest = 0;
    double highest = 0;
    std::size_t i = 0;
    bool found = false;
    for (const auto &category : *modMain::Categories) {
        std::vector<double> dates;
        std::vector<double> points;
        ++i;
        modMain::CurrentPlayer->GetGameData(category->Key, dates, points, 1);
        if (!HasData(dates)) continue;
        const auto [first, last] = std::minmax_element(dates.begin(), dates.end());
        lowest = found ? std::min(lowest, *first) : *first;
        highest = found ? std::max(highest, *last) : *last;
        found = true;
        DrawSeries(category->Name, i, std::move(dates), std::move(points));
    }
    if (lowest < highest)
        ShowChart(std::floor(lowest), std::floor(highest) + 1, false);
    else
        ShowChart(Today(), Today() + 1, false);
}

void ctlUserInfo::DrawSeries(const QString &Name, std::size_t Number, std::vector<double> X, std::vector<double> Y)
{
    ChartSeries &series = LarkChart1->Series(Name);
    series.X = std::move(X);
    series.Y = std::move(Y);
    series.Colour = SeriesColours[Number % SeriesColours.size()];
    series.Thickness = LineThickness;
    series.Style = static_cast<int>((Number + FirstStyle) % Styles) + 1;
    series.Marks = true;
}

void ctlUserInfo::DrawChart(double From, double To, bool EvenSpacing)
{
    LarkChart1->xmin = From;
    LarkChart1->xmax = To;
    LarkChart1->xgridspacing = std::floor((To - From) / MostGridLines) + 1;
    LarkChart1->evenspacing = EvenSpacing;
    LarkChart1->Redraw();
}

void ctlUserInfo::ShowChart(double From, double To, bool EvenSpacing)
{
    DrawChart(From, To, EvenSpacing);
    LarkChart1->raise();
    LarkChart1->show();
}
