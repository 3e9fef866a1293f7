#include "tools/checkgame/GameFolder.h"

#include "platform/Convert.h"
#include "platform/Files.h"
#include "platform/RichText.h"
#include "platform/RuntimeError.h"
#include "platform/Text.h"
#include "platform/WaveFile.h"

#include <QApplication>
#include <QRegularExpression>
#include <QStringDecoder>

#include <algorithm>

namespace
{
constexpr qsizetype MostSettingsBytes = qsizetype{1024} * 1024;
constexpr qsizetype MostValueBytes = 999;
constexpr qsizetype MuchToRead = 4000; // [characters]
constexpr int ManyLevels = 100;

const QString Config = QStringLiteral("config");
const QString Default = QStringLiteral("default");
const QString SettingsName = QStringLiteral("GameSettings.ini");

bool IsSame(const QString &one, const QString &other) { return one.compare(other, Qt::CaseInsensitive) == 0; }

/// What the work fails with, or empty.
template <typename Work>
QString FailureOf(Work &&work)
{
    try {
        work();
        return {};
    } catch (...) {
        return DescriptionOf(std::current_exception());
    }
}
} // namespace

GameFolder::GameFolder(const QString &Path, Report &Report) : m_Path(Path), m_Report(Report)
{
    ReadSettings();
    JudgeInstructions();
    JudgeSounds();
}

QString GameFolder::ClassName() const
{
    return Value(Config, QStringLiteral("component")) + QStringLiteral(".GameArea");
}

QString GameFolder::Value(const QString &Section, const QString &Key) const
{
    return FromFileText(m_Settings.Value(Section, Key));
}

bool GameFolder::Has(const QString &section, const QString &key) const
{
    return std::ranges::any_of(m_Keys,
                               [&](const Key &one) { return IsSame(one.first, section) && IsSame(one.second, key); });
}

QStringList GameFolder::Languages() const
{
    static const QRegularExpression number(QStringLiteral("^[0-9]+$"));
    return m_Sections.filter(number);
}

void GameFolder::ReadSettings()
{
    QByteArray bytes;
    const QString failure = FailureOf([&] { bytes = ReadFile(FindFile(m_Path + SettingsName)); });
    if (!failure.isEmpty())
        return m_Report.Mend(
            QStringLiteral("There is no GameSettings.ini in the folder: it is no game without one."));
    if (bytes.size() > MostSettingsBytes || bytes.contains('\0'))
        return m_Report.Mend(QStringLiteral("GameSettings.ini can't be read: it is larger than one megabyte, or in "
                                            "16-bit characters. Save it as UTF-8."));
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder.decode(bytes);
    if (decoder.hasError())
        m_Report.Note(
            QStringLiteral("GameSettings.ini is not saved as UTF-8: accents are read as Windows has them."));
    m_Settings = IniText(bytes);
    ListKeys(bytes);
    JudgeConfig();
    JudgeNumbers();
    JudgeWords();
}

// As the program reads it: of two sections or keys of one name only the first counts.
void GameFolder::ListKeys(const QByteArray &bytes)
{
    QString section;
    for (QString line : FromFileText(bytes).split(u'\n')) {
        line = line.trimmed();
        line.remove(QChar(0xfeff));
        if (line.startsWith(u'[')) {
            section = line.mid(1).section(u']', 0, 0).trimmed();
            if (std::ranges::any_of(m_Sections, [&](const QString &one) { return IsSame(one, section); }))
                m_Report.Mend(QStringLiteral("GameSettings.ini has the section [%1] twice: the second one is never "
                                             "read.")
                                  .arg(section));
            m_Sections.append(section);
        } else if (!line.startsWith(u';') && line.contains(u'=')) {
            const QString key = line.section(u'=', 0, 0).trimmed();
            if (section.isEmpty())
                m_Report.Mend(QStringLiteral("GameSettings.ini has \"%1\" above its first section: it is never read.")
                                  .arg(key));
            else if (Has(section, key))
                m_Report.Mend(
                    QStringLiteral("GameSettings.ini has \"%1\" twice in [%2]: the second one is never read.")
                        .arg(key, section));
            if (line.section(u'=', 1).trimmed().toUtf8().size() > MostValueBytes)
                m_Report.Mend(QStringLiteral("\"%1\" in [%2] is longer than 999 bytes: the rest is cut off.")
                                  .arg(key, section));
            m_Keys.emplace_back(section, key);
        }
    }
}

void GameFolder::JudgeConfig()
{
    static const QStringList known{QStringLiteral("name"),      QStringLiteral("component"),
                                   QStringLiteral("timelimit"), QStringLiteral("levels"),
                                   QStringLiteral("category"),  QStringLiteral("controlpanel"),
                                   QStringLiteral("pace"),      QStringLiteral("seed")};
    for (const Key &key : m_Keys)
        if (IsSame(key.first, Config) && !known.contains(key.second, Qt::CaseInsensitive))
            m_Report.Note(QStringLiteral("\"%1\" in [config] means nothing to the program. Is it misspelt? Settings "
                                         "of your own stand better in a section of their own.")
                              .arg(key.second));
    if (Name().isEmpty())
        m_Report.Mend(QStringLiteral("\"name\" in [config] is missing: results are kept under it."));
    if (Value(Config, QStringLiteral("component")).isEmpty())
        m_Report.Mend(QStringLiteral("\"component\" in [config] is missing: the class is this and \".GameArea\"."));
    if (Value(Config, QStringLiteral("category")) == u"zzz")
        m_Report.Mend(QStringLiteral("The category \"zzz\" is the program's own, for games that name none. Leave the "
                                     "line out."));
    const QString panel = Value(Config, QStringLiteral("controlpanel"));
    static const QStringList flags{QString(), QStringLiteral("0"), QStringLiteral("1"), QStringLiteral("True"),
                                   QStringLiteral("False")};
    if (!flags.contains(panel))
        m_Report.Note(QStringLiteral("\"controlpanel\" is \"%1\": only \"1\" and \"True\" are true.").arg(panel));
}

void GameFolder::JudgeNumbers()
{
    const QString limit = Value(Config, QStringLiteral("timelimit"));
    if (!FailureOf([&] { m_TimeLimit = WholeNumber(limit); }).isEmpty() || m_TimeLimit < 0)
        m_Report.Mend(
            QStringLiteral("\"timelimit\" in [config] is \"%1\": it must be a whole number of seconds, 0 for "
                           "no limit. With anything else the program stops reading games here.")
                .arg(limit));
    const QString levels = Value(Config, QStringLiteral("levels"));
    if (!levels.isEmpty()) {
        const bool isNumber = FailureOf([&] { m_Levels = WholeNumber(levels); }).isEmpty();
        if (!isNumber || m_Levels < 0)
            m_Report.Mend(
                QStringLiteral("\"levels\" in [config] is \"%1\": it must be a whole number from 1.").arg(levels));
        if (m_Levels > ManyLevels)
            m_Report.Note(QStringLiteral("%1 levels are more than a player can choose from.").arg(m_Levels));
    }
    m_Levels = std::clamp(m_Levels, 1, ManyLevels);
    if (!Value(Config, QStringLiteral("pace")).isEmpty())
        m_Report.Note(QStringLiteral("\"pace\" is set: the game runs at another speed than its players expect."));
    if (!Value(Config, QStringLiteral("seed")).isEmpty())
        m_Report.Note(
            QStringLiteral("\"seed\" is set: every session deals the same board. Take it out before you give "
                           "the game away."));
}

void GameFolder::JudgeWords()
{
    if (!m_Sections.contains(Default, Qt::CaseInsensitive))
        m_Report.Note(QStringLiteral("There is no section [default]: a language that has none of its own sees no "
                                     "words."));
    for (const QString &language : Languages()) {
        for (const Key &key : m_Keys) {
            if (IsSame(key.first, Default) && !Has(language, key.second))
                m_Report.Note(QStringLiteral("[%1] has no \"%2\": its players see the word of [default].")
                                  .arg(language, key.second));
            if (key.first == language && !Has(Default, key.second))
                m_Report.Note(QStringLiteral("[default] has no \"%2\", which [%1] has: other players see nothing.")
                                  .arg(language, key.second));
        }
    }
}

void GameFolder::JudgeInstructions()
{
    const QString path = FindFile(m_Path + QStringLiteral("Instructions.rtf"));
    if (!FileExists(path)) return m_Report.Mend(QStringLiteral("There is no Instructions.rtf in the folder."));
    QString text;
    const QString failure = FailureOf([&] { text = RichText::Load(path, QApplication::font())->toPlainText(); });
    if (!failure.isEmpty())
        m_Report.Mend(QStringLiteral("Instructions.rtf can't be read: %1").arg(failure));
    else if (text.trimmed().isEmpty())
        m_Report.Mend(QStringLiteral("Instructions.rtf holds no text."));
    else if (text.size() > MuchToRead)
        m_Report.Note(
            QStringLiteral("Instructions.rtf has %1 characters: half a page is what players read.").arg(text.size()));
}

void GameFolder::JudgeSounds()
{
    const QString folder = FindFile(m_Path + QStringLiteral("sounds")) + u'/';
    for (const QString &entry : SortedEntriesOf(folder)) {
        if (!entry.endsWith(QStringLiteral(".wav"), Qt::CaseInsensitive)) {
            m_Report.Note(QStringLiteral("sounds/%1 is no wave file: the program never plays it.").arg(entry));
            continue;
        }
        const QString failure = FailureOf([&] { ReadWaveFile(folder + entry); });
        if (!failure.isEmpty())
            m_Report.Mend(QStringLiteral("sounds/%1 is silent in the program: it wants PCM of 8 or 16 bits, mono or "
                                         "stereo.")
                              .arg(entry));
    }
}

bool GameFolder::HasSound(const QString &Name) const
{
    return FileExists(FindFile(m_Path + QStringLiteral("sounds/") + Name + QStringLiteral(".wav")));
}
