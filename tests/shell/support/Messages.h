// Closes whatever message of a failure comes up while it lives, and keeps it.
#pragma once

#include "sdk/controls/LarkButton.h"
#include "sdk/controls/TransLabel.h"

#include "skin/frmMsgBox.h"

#include <QApplication>
#include <QStringList>
#include <QTest>
#include <QTimer>

class Messages
{
public:
    Messages()
    {
        QObject::connect(&m_Timer, &QTimer::timeout, [this] { Take(); });
        m_Timer.start(3);
    }
    QStringList Texts;
    QString FirstLines() const
    {
        QStringList lines;
        for (const QString &text : Texts) lines << text.section(QStringLiteral("\r\n"), 0, 0);
        return lines.join(u'|');
    }

private:
    void Take()
    {
        auto *const box = qobject_cast<frmMsgBox *>(QApplication::activeModalWidget());
        if (box == nullptr || !box->isVisible()) return;
        const QString text = box->findChild<TransLabel *>(QStringLiteral("Label"))->Caption();
        if (!text.startsWith(u"Error ") && !text.startsWith(u"An error ")) return;
        Texts << text;
        QTest::mouseClick(box->findChild<LarkButton *>(QStringLiteral("cmd2")), Qt::LeftButton);
    }
    QTimer m_Timer;
};
