// One surface of the button panel: a picture, painted once and then only shown or hidden. It tells the panel what the
// pointer does on it.
#pragma once

#include <QImage>
#include <QWidget>

#include <functional>

class PanelSurface : public QWidget
{
    Q_OBJECT

public:
    explicit PanelSurface(QWidget *Panel);

    /// A text of the owner's, kept and not shown.
    QString Tag;
    /// Its device pixel ratio counts.
    void SetImage(const QImage &Image);
    const QImage &Image() const { return m_Image; }

    // What the surface reports; each may be empty. The surface may be given up inside a call.
    std::function<void()> Moved; // the pointer moved or came in
    std::function<void()> Left;  // the pointer went
    // A button of the mouse went down; IsSecond at the second press of a double click.
    std::function<void(bool IsSecond)> Pressed;

protected:
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    QImage m_Image;
};
