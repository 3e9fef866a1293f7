// The floor of a start: one window of Qt's, painted in one colour, or with a line of text on it.
//   bare_window WIDTH HEIGHT [TEXT]
#include <QApplication>
#include <QPainter>
#include <QWidget>

namespace
{
class Bare final : public QWidget
{
public:
    explicit Bare(QString Text) : m_Text(std::move(Text)) {}

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), QColor(0xF4, 0xF8, 0xF7));
        if (!m_Text.isEmpty()) painter.drawText(rect(), Qt::AlignCenter, m_Text);
    }

private:
    QString m_Text;
};
} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    const QStringList words = QApplication::arguments();
    Bare window(words.value(3));
    window.resize(words.value(1).toInt(), words.value(2).toInt());
    window.show();
    return QApplication::exec();
}
