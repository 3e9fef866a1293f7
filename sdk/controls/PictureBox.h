// A picture box: an opaque surface that keeps what was drawn into it and may hold other controls. One that is given a
// focus policy is pressed by Space and Enter too, and shows a focus mark.
#pragma once

#include <QColor>
#include <QImage>
#include <QWidget>

class PictureBox : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QImage PictureFile READ PictureFile WRITE SetPictureFile)
    Q_PROPERTY(QImage picture READ picture WRITE Setpicture)
    Q_PROPERTY(QColor BackColour READ BackColour WRITE SetBackColour)

public:
    explicit PictureBox(QWidget *Container = nullptr);

    const QImage &PictureFile() const { return m_PictureFile; }
    /// Drawn at 0, 0 in its own size, over the surface's back colour.
    void SetPictureFile(const QImage &Picture);
    const QImage &picture() const { return m_PictureFile; }
    void Setpicture(const QImage &Picture) { SetPictureFile(Picture); }
    QColor BackColour() const { return m_BackColour; }
    void SetBackColour(const QColor &Colour);
    /// A frame line of one pixel inside the edge; an invalid colour means none.
    void SetFrameColour(const QColor &Colour);

    /// What is drawn into, of the control's size times the screen's scale, with its device pixel ratio set; the
    /// coordinates of a painter on it are the control's. Call Refresh afterwards.
    QImage &Surface();
    /// Clears the surface to the back colour, and the picture over it.
    void Cls();
    void Refresh() { update(); }

Q_SIGNALS:
    /// A left click, released inside; or Space or Enter while it has the focus.
    void Click();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void DrawGround();

    QImage m_PictureFile;
    QImage m_Surface;
    QColor m_BackColour = Qt::white;
    QColor m_FrameColour;
};
