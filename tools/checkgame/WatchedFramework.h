// The service object as the check gives it to a game: it answers as the program does, changes nothing of the author's
// files, and tells whatever the program would take amiss.
//
// One for each session, never deleted: a game that forgot a timer calls it long afterwards.
#pragma once

#include "sdk/CNoggleFramework.h"

#include <QString>

#include <cstdint>

class CheckedSession;
class GameFolder;
class Report;

class WatchedFramework final : public CNoggleFramework
{
public:
    WatchedFramework(CheckedSession &Session, const GameFolder &Folder, Report &Report, std::uint32_t Seed);

    /// The session is over: from here on every call is one too many.
    void Close() { m_Session = nullptr; }
    /// What comes from here on is no fault of the game's: it could not know that the session is over.
    void Forgive() { m_Forgiven = true; }
    void SetDark(bool Dark) { m_Dark = Dark; }

    void SkinButton(QObject *But, const QString &Name) override;
    void SkinPicbox(QObject *Pic, const QString &Name) override;
    std::int32_t MsgBox(const QString &Message, std::int32_t Options, QWidget *Parent, QString *Answer,
                        std::int32_t FontSize) override;
    void ShowError(const QString &Message, const QString &ErrDesc, QWidget *Parent) override;
    QVariant Message(const QString &Cmd, const QVariant &Info1, const QVariant &Info2) override;
    QString PlayerGameInfo(std::int32_t Level) override;
    void SetPlayerGameInfo(std::int32_t Level, const QString &Value) override;
    void DrawBackground(QPainter *DestHDC) override;
    QImage GetPicture(const QString &PicName) override;
    QString Lang() override;
    QString GetString(std::int32_t Index) override;
    QString GetSetting(const QString &Section, const QString &Name) override;
    void SaveSetting(const QString &Section, const QString &Name, const QString &Value) override;
    QString LangString(const QString &Name) override;
    bool OnlineFlag() override;

private:
    bool IsOpen(const char *call) const;
    void TakeProgress(const QVariant &percent) const;
    void TakeSound(const QVariant &name) const;
    bool IsLevel(std::int32_t level) const;

    CheckedSession *m_Session;
    const GameFolder &m_Folder;
    Report &m_Report;
    QString m_Language;
    bool m_Dark = false;
    bool m_Forgiven = false;
    std::uint32_t m_Seed;
};
