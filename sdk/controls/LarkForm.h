// A borderless dialog on a picture, with round corners. It is dragged by its face and by the labels given to DragBy;
// Escape, the window manager and other close requests are refused, so that only its own buttons close it. Without a
// picture it is a plain light panel.
#pragma once

#include <QDialog>
#include <QImage>

class TransLabel;

class LarkForm : public QDialog
{
    Q_OBJECT
    Q_PROPERTY(QImage PictureFile READ picture WRITE Setpicture)
    Q_PROPERTY(QImage picture READ picture WRITE Setpicture)

public:
    LarkForm();

    const QImage &picture() const { return m_Picture; }
    /// The picture is drawn in its own size from the top left corner; a dialog larger than its picture goes on in the
    /// colour of the picture's last pixel.
    void Setpicture(const QImage &Picture);
    /// Shows the dialog over its owner, which may be empty, and returns once a button has closed it. It is modal to
    /// the whole application: keys and clicks reach it alone, and the focus goes back afterwards. Over another dialog
    /// it belongs to that one; a minimised owner is restored, so that the dialog can be reached.
    void ShowModal(QWidget *Owner);

    /// Closes nothing: only the buttons do, by hiding the dialog.
    void reject() override {}

protected:
    /// A label of the dialog that drags it too.
    void DragBy(TransLabel *Label);
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void PlaceOver(const QWidget *Owner);

    QImage m_Picture;
};
