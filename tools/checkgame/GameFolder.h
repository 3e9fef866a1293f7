// A game's folder as the program reads it: its settings, looked through key by key, its instructions and its sounds.
#pragma once

#include "tools/checkgame/Report.h"

#include "services/IniText.h"

#include <QString>
#include <QStringList>

#include <utility>
#include <vector>

class GameFolder
{
public:
    /// Path ends in a separator. Everything is read and judged here.
    GameFolder(const QString &Path, Report &Report);

    const QString &Path() const { return m_Path; }
    QString Name() const { return Value(QStringLiteral("config"), QStringLiteral("name")); }
    QString ClassName() const;
    int TimeLimit() const { return m_TimeLimit; }
    int Levels() const { return m_Levels; }
    /// The sections of languages, by their numbers.
    QStringList Languages() const;
    QString Value(const QString &Section, const QString &Key) const;
    bool HasSound(const QString &Name) const;

private:
    using Key = std::pair<QString, QString>; // section, key

    void ReadSettings();
    void ListKeys(const QByteArray &bytes);
    void JudgeConfig();
    void JudgeNumbers();
    void JudgeWords();
    void JudgeInstructions();
    void JudgeSounds();
    bool Has(const QString &section, const QString &key) const;

    QString m_Path;
    Report &m_Report;
    IniText m_Settings;
    QStringList m_Sections;
    std::vector<Key> m_Keys;
    int m_TimeLimit = 0;
    int m_Levels = 1;
};
