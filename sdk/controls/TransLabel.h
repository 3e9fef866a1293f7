// A line or block of plain text on transparent ground. A caption that does not fit is drawn smaller before it is cut.
// CR LF breaks a line, and so do CR, LF and CR CR LF. Its accessible name is its caption.
#pragma once

#include <QColor>
#include <QImage>
#include <QWidget>

class TransLabel : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString Caption READ Caption WRITE SetCaption)
    Q_PROPERTY(QString Tag READ Tag WRITE SetTag)
    Q_PROPERTY(QColor ForeColour READ ForeColour WRITE SetForeColour)

public:
    explicit TransLabel(QWidget *Container = nullptr);

    const QString &Caption() const { return m_Caption; }
    void SetCaption(const QString &Caption);
    const QString &Tag() const { return m_Tag; }
    void SetTag(const QString &Tag) { m_Tag = Tag; }
    QColor ForeColour() const { return m_ForeColour; }
    void SetForeColour(const QColor &Colour);
    Qt::Alignment Alignment() const { return m_Alignment; }
    void SetAlignment(Qt::Alignment Alignment);
    void SetWordWrap(bool WordWrap);
    /// A form's design font: points, bold or not.
    void SetFont(double Points, bool Bold);

Q_SIGNALS:
    /// A left click, released inside.
    void Click();
    /// A left press, before anything else: where a drag begins.
    void Pressed();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    QString m_Caption;
    QString m_Tag;
    QColor m_ForeColour;
    Qt::Alignment m_Alignment = Qt::AlignLeft | Qt::AlignVCenter;
    bool m_WordWrap = false;
};
