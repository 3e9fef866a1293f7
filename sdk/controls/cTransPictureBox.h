// A picture, a text, or a text over a picture, on transparent ground. The pixels of the picture that have the colour
// of its top left pixel are left out.
#pragma once

#include "sdk/controls/TransLabel.h"

class cTransPictureBox : public TransLabel
{
    Q_OBJECT
    Q_PROPERTY(QImage PictureFile READ PictureFile WRITE SetPictureFile)
    Q_PROPERTY(QImage picture READ picture WRITE Setpicture)

public:
    explicit cTransPictureBox(QWidget *Container = nullptr);

    const QImage &PictureFile() const { return m_PictureFile; }
    void SetPictureFile(const QImage &Picture);
    const QImage &picture() const { return m_PictureFile; }
    void Setpicture(const QImage &Picture) { SetPictureFile(Picture); }
    /// The control takes the picture's size. [px]
    void SizeToPicture();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QImage m_PictureFile;
    QImage m_Keyed;
};
