#include "tools/checkgame/WatchedFramework.h"

#include "tools/checkgame/CheckedSession.h"
#include "tools/checkgame/GameFolder.h"

#include "platform/Files.h"
#include "platform/RuntimeError.h"

#include <QPainter>

namespace
{
constexpr std::int32_t YesNo = 4;
constexpr std::int32_t Most16Bits = 32767;
} // namespace

WatchedFramework::WatchedFramework(CheckedSession &Session, const GameFolder &Folder, Report &Report,
                                   std::uint32_t Seed)
    : m_Session(&Session), m_Folder(Folder), m_Report(Report), m_Seed(Seed)
{
    QStringList languages = Folder.Languages();
    languages.append(QStringLiteral("0"));
    m_Language = languages[static_cast<qsizetype>(Seed % static_cast<std::uint32_t>(languages.size()))];
}

bool WatchedFramework::IsOpen(const char *call) const
{
    if (m_Session == nullptr && !m_Forgiven)
        m_Report.Mend(QStringLiteral("It still calls %1 after it has been taken away. A timer without an owner? Give "
                                     "timers the game as their parent, and stop them at \"unload\".")
                          .arg(QLatin1String(call)));
    return m_Session != nullptr;
}

void WatchedFramework::SkinButton(QObject *But, const QString &)
{
    if (!IsOpen("SkinButton") || But == nullptr) return;
    QImage picture(80, 30, QImage::Format_RGB32);
    picture.fill(m_Dark ? Qt::darkGray : Qt::lightGray);
    But->setProperty("PictureUp", picture);
    But->setProperty("PictureDown", picture);
}

void WatchedFramework::SkinPicbox(QObject *, const QString &) { IsOpen("SkinPicbox"); }

// Answered at once, now this way and now the other.
std::int32_t WatchedFramework::MsgBox(const QString &, std::int32_t Options, QWidget *, QString *Answer, std::int32_t)
{
    if (!IsOpen("MsgBox")) return 0;
    if (Answer != nullptr) *Answer = QStringLiteral("an answer");
    const std::int32_t first = (Options & YesNo) != 0 ? 6 : 1;
    const bool hasTwo = (Options & (YesNo | 1)) != 0;
    return hasTwo && m_Seed % 2 == 1 ? first + 1 : first;
}

void WatchedFramework::ShowError(const QString &Message, const QString &ErrDesc, QWidget *)
{
    if (IsOpen("ShowError")) m_Report.Mend(QStringLiteral("It tells of an error: %1 %2").arg(Message, ErrDesc));
}

QVariant WatchedFramework::Message(const QString &Cmd, const QVariant &Info1, const QVariant &Info2)
{
    if (m_Session == nullptr && Cmd == u"gameover" && !m_Forgiven)
        m_Report.Mend(QStringLiteral("It says \"gameover\" once more when the session has ended: return at once from "
                                     "the first one, and touch nothing."));
    if (!IsOpen("Message")) return {};
    if (Cmd == u"gameover")
        m_Session->GameOver();
    else if (Cmd == u"progress")
        TakeProgress(Info1);
    else if (Cmd == u"playsound")
        TakeSound(Info1);
    else if (Cmd == u"gamepath")
        return m_Folder.Path();
    else if (Cmd == u"playerkey")
        return std::int32_t{1};
    else if (Cmd == u"timetaken")
        return m_Session->TimeTaken();
    else if (Cmd == u"getsetting" || Cmd == u"globalsetting")
        return GetSetting(Info1.toString(), Info2.toString());
    else if (Cmd != u"pausetimer" && Cmd != u"resumetimer") {
        m_Report.Mend(
            QStringLiteral("It says \"%1\", which the program does not know: the answer is \"unsupported\".")
                .arg(Cmd));
        return QStringLiteral("unsupported");
    }
    return {};
}

void WatchedFramework::TakeProgress(const QVariant &percent) const
{
    bool isNumber = false;
    const double number = percent.toDouble(&isNumber);
    if (!isNumber || number < 0 || number > 100)
        m_Report.Mend(
            QStringLiteral("It reports a \"progress\" of \"%1\": percent go from 0 to 100.").arg(percent.toString()));
    if (m_Session->IsHidden())
        m_Report.Mend(QStringLiteral("It reports \"progress\" while it is hidden: hidden means paused."));
}

void WatchedFramework::TakeSound(const QVariant &name) const
{
    const QString sound = name.toString();
    const QString shared = ProgramFolder() + QStringLiteral("sounds/");
    if (!sound.startsWith(u'*') && !m_Folder.HasSound(sound))
        m_Report.Mend(QStringLiteral("It plays the sound \"%1\", and there is no sounds/%1.wav.").arg(sound));
    else if (sound.startsWith(u'*') && !EntriesOf(shared).isEmpty() &&
             !FileExists(FindFile(shared + sound.mid(1) + QStringLiteral(".wav"))))
        m_Report.Mend(QStringLiteral("It plays the program's sound \"%1\", which there is none of.").arg(sound));
}

bool WatchedFramework::IsLevel(std::int32_t level) const
{
    if (level >= 0 && level <= m_Folder.Levels()) return true;
    m_Report.Mend(QStringLiteral("It keeps something for level %1; the settings file says that there are %2 levels.")
                      .arg(level)
                      .arg(m_Folder.Levels()));
    return false;
}

QString WatchedFramework::PlayerGameInfo(std::int32_t Level)
{
    return IsOpen("PlayerGameInfo") && IsLevel(Level) ? m_Session->Info[Level] : QString();
}

void WatchedFramework::SetPlayerGameInfo(std::int32_t Level, const QString &Value)
{
    if (!IsOpen("SetPlayerGameInfo") || !IsLevel(Level)) return;
    if (Level > 0 && Value.contains(u'|'))
        m_Report.Mend(
            QStringLiteral("It keeps a \"|\" in the text of a level: that parts the levels, and what stands "
                           "behind it is lost."));
    m_Session->Info[Level] = Value;
}

void WatchedFramework::DrawBackground(QPainter *DestHDC)
{
    if (!IsOpen("DrawBackground")) return;
    if (DestHDC == nullptr || !DestHDC->isActive())
        return m_Report.Mend(QStringLiteral("It calls DrawBackground without a painter that is active."));
    m_Session->PaintGround(*DestHDC, m_Dark);
}

QImage WatchedFramework::GetPicture(const QString &PicName)
{
    if (!IsOpen("GetPicture")) return {};
    QImage picture(FindFile(ProgramFolder() + QStringLiteral("Images/") + PicName));
    if (!picture.isNull()) return picture;
    m_Report.Note(QStringLiteral("It asks for the picture \"%1\", which is not in the program's folder \"Images\".")
                      .arg(PicName));
    throw RuntimeError(QStringLiteral("The picture \"%1\" can't be loaded.").arg(PicName));
}

QString WatchedFramework::Lang() { return IsOpen("Lang") ? m_Language : QString(); }

QString WatchedFramework::GetString(std::int32_t Index)
{
    if (!IsOpen("GetString")) return {};
    if (Index < -Most16Bits - 1 || Index > Most16Bits) throw RuntimeError(QStringLiteral("Overflow."));
    return QStringLiteral("words");
}

QString WatchedFramework::GetSetting(const QString &Section, const QString &Name)
{
    if (!IsOpen("GetSetting")) return {};
    const auto saved = m_Session->Saved.find({Section.toLower(), Name.toLower()});
    return saved != m_Session->Saved.end() ? saved->second : m_Folder.Value(Section, Name);
}

void WatchedFramework::SaveSetting(const QString &Section, const QString &Name, const QString &Value)
{
    if (!IsOpen("SaveSetting")) return;
    if (Value.contains(u'\n') || Value.contains(u'\r') || Section.isEmpty() || Name.isEmpty())
        m_Report.Mend(
            QStringLiteral("It saves the setting \"%1\" in [%2] with more than one line, or without a name: "
                           "nothing is written.")
                .arg(Name, Section));
    m_Session->Saved[{Section.toLower(), Name.toLower()}] = Value;
}

QString WatchedFramework::LangString(const QString &Name)
{
    if (!IsOpen("LangString")) return {};
    const QString local = m_Folder.Value(m_Language, Name);
    QString word = local.isEmpty() ? m_Folder.Value(QStringLiteral("default"), Name) : local;
    if (word.isEmpty())
        m_Report.Note(
            QStringLiteral("It asks for the word \"%1\", which stands in no section of GameSettings.ini.").arg(Name));
    return word;
}

bool WatchedFramework::OnlineFlag() { return IsOpen("OnlineFlag") && m_Seed % 2 == 0; }
