// The headers of an HTTP reply, taken line by line as they come in.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

class ReplyHeader
{
public:
    /// A line with or without its end. A status line begins the headers anew, so what an interim reply said is
    /// forgotten; what comes behind the end of a final reply's headers is none.
    void Take(QByteArrayView Line);
    /// The status line first, each line ended by CR LF, whatever ended it on its way.
    const QByteArray &Text() const { return m_Text; }

private:
    QByteArray m_Text;
    bool m_IsInterim = false;
    bool m_IsComplete = false;
};
