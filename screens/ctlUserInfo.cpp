#include "screens/ctlUserInfo.h"

#include "domain/CPlayer.h"
#include "domain/colCategory.h"
#include "platform/Convert.h"
#include "platform/LarkChart.h"
#include "screens/Design.h"
#include "screens/RowView.h"
#include "sdk/controls/LarkButton.h"
#include "sdk/controls/cTransPictureBox.h"
#include "shell/program/modMain.h"

namespace
{
constexpr QSize DesignSize(505, 305); // [px]
constexpr QRect FirstCategory(228, 131, 95, 20), FirstScore(343, 131, 43, 20), FirstGo(402, 128, 60, 23);
constexpr int RowGap = 6, GoAbove = 2, CompleteBelow = 50;   // [px]
constexpr int WorkoutTop = 16, RowsTop = 120, ChartFoot = 3; // [px]
constexpr double TitleFont = 18, RowFont = 14.25;
constexpr double MiddleShare = 0.55; // of the width: where names end and points begin
} // namespace

ctlUserInfo::ctlUserInfo(QWidget *Container) : Screen(Container), m_View(new RowView(this))
{
    lblWorkout = PutLabel<cTransPictureBox>(this, QStringLiteral("lblWorkout"), {249, 80, 225, 28},
                                            QStringLiteral("Current Workout"), TitleFont, true, Qt::AlignHCenter);
    lblWorkout->lower(); // read before the rows
    const Row &first = RowAt(0);
    for (QWidget *control : {static_cast<QWidget *>(first.lblCategory), static_cast<QWidget *>(first.lblScore),
                             static_cast<QWidget *>(first.butGo)})
        control->hide();
    butComplete =
        PutButton(m_View->Sheet(), QStringLiteral("butComplete"), {298, 252, 120, 23}, QStringLiteral("Complete"));
    butComplete->hide();
    connect(butComplete, &LarkButton::clicked, this, [this] { Complete(); });
    MakeChart();
    resize(DesignSize);
    Arrange();
    if (modMain::Framework) SkinUp();
}

ctlUserInfo::Row &ctlUserInfo::RowAt(std::size_t Index)
{
    if (Index < m_Rows.size()) return m_Rows[Index];
    const int down = static_cast<int>(Index) * (FirstCategory.height() + RowGap);
    QRect go = FirstGo.translated(0, down);
    if (Index > 0) go.moveTop(FirstCategory.y() + down - GoAbove);
    Row row{};
    row.lblCategory =
        PutLabel<cTransPictureBox>(m_View->Sheet(), Element("lblCategory", Index), FirstCategory.translated(0, down),
                                   QStringLiteral("Category"), RowFont, true, Qt::AlignRight);
    row.lblScore = PutLabel<cTransPictureBox>(m_View->Sheet(), Element("lblScore", Index),
                                              FirstScore.translated(0, down), QStringLiteral("Score"), RowFont, true);
    row.butGo = PutButton(m_View->Sheet(), Element("butGo", Index), go, QStringLiteral("Go"));
    LarkButton *button = row.butGo;
    connect(button, &LarkButton::clicked, this,
            [this, button] { Q_EMIT PlayGame(ToInt32(LeadingNumber(button->Tag()))); });
    if (Index > 0) {
        button->SetPictureUp(m_Rows[0].butGo->PictureUp());
        button->SetPictureDown(m_Rows[0].butGo->PictureDown());
    }
    PlaceRow(row);
    m_Rows.push_back(row);
    return m_Rows.back();
}

void ctlUserInfo::ShowDetails(std::int32_t Mode)
{
    if (Mode == 1) ShowWorkout();
    if (Mode == 2) ShowWorkoutStats();
}

void ctlUserInfo::ShowWorkout()
{
    if (!modMain::CurrentPlayer) return;
    modMain::CurrentWorkout = modMain::CurrentPlayer->Workouts().Current();
    m_AllDone = true;
    std::size_t n = 0;
    for (const auto &category : *modMain::Categories)
        if (!ShowCategory(RowAt(n++), *category)) m_AllDone = false;
    const int lastRow = m_Rows[n == 0 ? 0 : n - 1].lblCategory->y();
    butComplete->move((width() - butComplete->width()) / 2, lastRow + CompleteBelow);
    ShowPanel(true);
    LarkChart1->hide();
    m_View->Fit();
    QList<QWidget *> order;
    for (const Row &row : m_Rows) order << row.butGo;
    SetTabOrder(order << butComplete << LarkChart1);
}

/// Answer: whether the workout has a result in the category.
bool ctlUserInfo::ShowCategory(Row &Row, const CCategory &Category)
{
    Row.lblCategory->SetCaption(Category.Name);
    Row.lblCategory->show();
    const auto result =
        modMain::CurrentWorkout ? modMain::CurrentWorkout->GamesPlayed().ByCat(Category.Key) : nullptr;
    Row.lblScore->SetCaption(result ? QString::number(result->Points) : QString());
    Row.lblScore->setVisible(result != nullptr);
    if (!result) Row.butGo->SetTag(QString::number(Category.Key));
    Row.butGo->setVisible(result == nullptr);
    return result != nullptr;
}

void ctlUserInfo::ShowPanel(bool Visible)
{
    lblWorkout->setVisible(Visible);
    for (const Row &row : m_Rows) {
        row.lblCategory->setVisible(Visible);
        if (row.lblScore->Caption().isEmpty())
            row.butGo->setVisible(Visible);
        else
            row.lblScore->setVisible(Visible);
    }
    butComplete->setVisible(Visible && m_AllDone);
}

void ctlUserInfo::Complete()
{
    if (modMain::CurrentWorkout) modMain::CurrentWorkout->Complete();
    ShowWorkout();
}

void ctlUserInfo::SkinUp()
{
    CopyBackground();
    Skin(butComplete);
    for (const Row &row : m_Rows) Skin(row.butGo);
}

void ctlUserInfo::PlaceRow(const Row &Row)
{
    const int middle = static_cast<int>(width() * MiddleShare);
    SetLeft(Row.lblCategory, middle - Row.lblCategory->width() - RowGap);
    SetLeft(Row.lblScore, middle + RowGap);
    SetLeft(Row.butGo, middle + RowGap);
}

void ctlUserInfo::Arrange()
{
    LarkChart1->setGeometry(0, 0, width(), std::max(0, height() - ChartFoot));
    lblWorkout->move((width() - lblWorkout->width()) / 2, WorkoutTop);
    for (const Row &row : m_Rows) PlaceRow(row);
    Centre(butComplete, width());
    m_View->SetWindow({0, RowsTop, width(), std::max(0, height() - RowsTop)});
}
