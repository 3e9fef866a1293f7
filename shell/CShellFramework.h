// The service object itself: what games and screens ask for is passed on to the main window, the present game, the
// present player and the skin.
#pragma once

#include "sdk/CNoggleFramework.h"

class CShellFramework final : public CNoggleFramework
{
public:
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
