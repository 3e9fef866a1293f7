// A service object that shows nothing and keeps every message, for tests of what lies below the shell.
#pragma once

#include "sdk/CNoggleFramework.h"

#include <QStringList>

#include <memory>
#include <vector>

struct ShownBox
{
    QString Message; // the whole text, CR LF between its lines
    std::int32_t Options = 0;
    std::int32_t FontSize = 0; // [pt]
    QString FirstLine() const { return Message.section(QStringLiteral("\r\n"), 0, 0); }
};

class RecordingFramework : public CNoggleFramework
{
public:
    virtual ~RecordingFramework() = default;
    /// Makes one and sets it as the program's Framework.
    static std::shared_ptr<RecordingFramework> Install();

    std::vector<ShownBox> Boxes;
    std::int32_t NextAnswer = 1;
    QString NextText;
    /// Buttons that were given the skin's pictures, by their name, then that of the pictures where one was told.
    QStringList Skinned;
    /// The box shown last, taken away; an empty one when none was.
    ShownBox TakeLast();

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
};
