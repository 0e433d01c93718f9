#include "samples.h"

#include <QtCore/QDir>
#include <QtGui/QPainter>
#include <QtGui/QPixmap>
#include <QtWidgets/QApplication>
#include <QtWidgets/QVBoxLayout>

#include <cstdio>

// Writes the pictures of the reference's examples into a folder: docs_pictures <folder>

namespace {

constexpr int kMargin = 24;
constexpr int kPanelGap = 6;
constexpr QSize kPanelSize(180, 40);
const QColor kLight(0xFF, 0xFF, 0xFF);
const QColor kDark(0x29, 0x2A, 0x2F);
const QColor kEdge(0xE5, 0xE5, 0xE8);

// The panel of a tool button, or nothing.
QWidget *panelOf(QWidget *page)
{
    return page->findChild<QWidget *>(QStringLiteral("panel"));
}

QPixmap framed(const QPixmap &inside, int margin, const QColor &ground)
{
    QPixmap picture(inside.size() + QSize(2 * margin, 2 * margin));
    picture.fill(ground);
    QPainter painter(&picture);
    painter.drawPixmap(margin, margin, inside);
    painter.setPen(kEdge);
    painter.drawRect(picture.rect().adjusted(0, 0, -1, -1));
    return picture;
}

QPixmap pictureOf(const Sample &sample)
{
    const QColor ground = sample.isOnDark ? kDark : kLight;
    QWidget page;
    QPalette palette = page.palette();
    palette.setColor(QPalette::Window, ground);
    page.setPalette(palette);
    auto *layout = new QVBoxLayout(&page);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    QWidget *widget = sample.make(&page);
    if (widget->isWindow())
        return framed(widget->grab(), kMargin,
                      ground); // at once: a tip goes when it is not the active window
    layout->addWidget(widget, 0, Qt::AlignHCenter | Qt::AlignTop);
    QWidget *panel = panelOf(&page);
    if (panel) {
        layout->addSpacing(kPanelGap + kPanelSize.height());
        page.setFixedWidth(kPanelSize.width() + 2 * kMargin);
        panel->setFixedSize(kPanelSize);
    }
    page.show();
    if (panel)
        panel->show(); // where the button places it
    QCoreApplication::processEvents();
    if (sample.isFocused) {
        widget->clearFocus(); // which it may have as the only one that takes it
        widget->setFocus(Qt::TabFocusReason);
    }
    return framed(page.grab(), 0, ground);
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    QFont font = QApplication::font();
    font.setFamilies({QStringLiteral("Noto Sans CJK SC"), QStringLiteral("DejaVu Sans")});
    font.setPixelSize(14);
    QApplication::setFont(font);
    const QDir folder(QString::fromLocal8Bit(argc > 1 ? argv[1] : "."));
    const QVector<Sample> all = samples();
    for (const Sample &sample : all) {
        const QString path = folder.filePath(sample.name + QStringLiteral(".png"));
        if (!pictureOf(sample).save(path)) {
            std::fprintf(stderr, "docs_pictures: cannot write %s\n", qPrintable(path));
            return 1;
        }
    }
    return 0;
}
