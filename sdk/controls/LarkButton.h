// A button made of two pictures, up and down, with a caption over them. Without pictures it draws itself plainly.
// It takes the focus on click, is pressed by Space and Enter, shows a focus mark that can be seen on every skin, and
// its accessible name is its caption. The second press of a double click counts only where the first one was on this
// button too. The caption is plain text: "&" and "<" stand for themselves; one that does not fit is drawn smaller
// before it is cut.
#pragma once

#include <QAbstractButton>
#include <QColor>
#include <QImage>

class LarkButton : public QAbstractButton
{
    Q_OBJECT
    Q_PROPERTY(QImage PictureUp READ PictureUp WRITE SetPictureUp)
    Q_PROPERTY(QImage PictureDown READ PictureDown WRITE SetPictureDown)
    Q_PROPERTY(QString Caption READ Caption WRITE SetCaption)
    Q_PROPERTY(QString Tag READ Tag WRITE SetTag)
    Q_PROPERTY(QColor ForeColour READ ForeColour WRITE SetForeColour)

public:
    explicit LarkButton(QWidget *Container = nullptr);

    const QImage &PictureUp() const { return m_PictureUp; }
    void SetPictureUp(const QImage &Picture);
    const QImage &PictureDown() const { return m_PictureDown; }
    void SetPictureDown(const QImage &Picture);
    const QString &Caption() const { return m_Caption; }
    void SetCaption(const QString &Caption);
    /// A text of the owner's, kept and not shown.
    const QString &Tag() const { return m_Tag; }
    void SetTag(const QString &Tag) { m_Tag = Tag; }
    /// An invalid colour, as at first, means dark or white, whichever reads better on the picture.
    QColor ForeColour() const { return m_ForeColour; }
    void SetForeColour(const QColor &Colour);
    /// A form's design font: points, bold or not.
    void SetFont(double Points, bool Bold);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    const QImage &KeyedNow() const;
    QColor CaptionColour() const;
    void DrawFace(QPainter &Painter) const;

    QImage m_PictureUp;
    QImage m_PictureDown;
    QImage m_KeyedUp; // the pictures without their key colour
    QImage m_KeyedDown;
    QString m_Caption;
    QString m_Tag;
    QColor m_ForeColour;
    bool m_DownByEnter = false;
};
