#include "shots.h"
#include "gallerypage.h"
#include "mainwindow.h"
#include "orvlook.h"
#include "pageview.h"

#include <QtCore/QDir>
#include <QtCore/QPointer>
#include <QtGui/QPainter>
#include <QtGui/QPixmap>
#include <QtWidgets/QApplication>

#include <cstdio>

namespace {

const QString kPageInBothLooks = QStringLiteral("page-customshadowcombox.png");

void settle()
{
    // Showing a window posts events whose handlers post more: layouts, polishing, reports.
    for (int round = 0; round < 4; ++round) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}

bool write(const QPixmap &picture, const QDir &folder, const QString &name)
{
    const QString path = folder.filePath(name + QStringLiteral(".png"));
    if (picture.save(path))
        return true;
    std::fprintf(stderr, "gallery: cannot write %s\n", qPrintable(QDir::toNativeSeparators(path)));
    return false;
}

QPixmap grabPage(MainWindow *window, PageView *view)
{
    view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    window->resize(MainWindow::kWidth, MainWindow::kHeight);
    settle();
    window->resize(MainWindow::kWidth, MainWindow::kHeight + view->missingHeight());
    settle();
    const QPixmap picture = window->grab();
    view->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    window->resize(MainWindow::kWidth, MainWindow::kHeight);
    settle();
    return picture;
}

QPixmap grabOver(MainWindow *window, QWidget *shown)
{
    QPixmap picture = window->grab();
    QPoint place = shown->mapToGlobal(QPoint()) - window->mapToGlobal(QPoint());
    if (!window->rect().contains(QRect(place, shown->size())))
        place = window->rect().center() - shown->rect().center();
    QPainter painter(&picture);
    painter.drawPixmap(place, shown->grab());
    painter.end();
    return picture;
}

bool writeShot(MainWindow *window, const PageShot &shot, const QDir &folder)
{
    const QPointer<QWidget> shown = shot.show();
    settle();
    if (shown == nullptr) {
        std::fprintf(stderr, "gallery: nothing to show for %s\n", qPrintable(shot.name));
        return false;
    }
    const bool written = write(grabOver(window, shown), folder, shot.name);
    const bool ownedByGallery = shown->parentWidget() == nullptr || shown->parentWidget() == window;
    shown->close();
    if (shown != nullptr && ownedByGallery)
        delete shown.data();
    settle();
    return written;
}

// What a page has marked as a picture of its own, by the property "picture".
bool writeParts(const PageView *view, const QDir &folder)
{
    bool everythingWritten = true;
    const QList<QWidget *> parts = view->findChildren<QWidget *>();
    for (QWidget *part : parts) {
        const QString name = part->property("picture").toString();
        if (!name.isEmpty())
            everythingWritten = write(part->grab(), folder, name) && everythingWritten;
    }
    return everythingWritten;
}

bool writeLook(MainWindow *window, const QDir &folder)
{
    bool everythingWritten = folder.mkpath(QStringLiteral("."));
    const QVector<const GalleryPage *> pages = GalleryPage::all();
    for (const GalleryPage *page : pages) {
        window->clearReports();
        PageView *view = window->openPage(page);
        const QString name = QStringLiteral("page-") + page->name();
        everythingWritten = write(grabPage(window, view), folder, name) && everythingWritten;
        everythingWritten = writeParts(view, folder) && everythingWritten;
        for (const PageShot &shot : view->shots())
            everythingWritten = writeShot(window, shot, folder) && everythingWritten;
    }
    return everythingWritten;
}

// The beginning of the same page in both looks, the left half of one and the right half of the other.
bool writeBothLooks(const QDir &light, const QDir &dark)
{
    const QPixmap lightPicture(light.filePath(kPageInBothLooks));
    const QPixmap darkPicture(dark.filePath(kPageInBothLooks));
    QPixmap picture = lightPicture.copy(0, 0, lightPicture.width(), lightPicture.width() * 2 / 3);
    const int half = picture.width() / 2;
    QPainter painter(&picture);
    painter.drawPixmap(half, 0, darkPicture, half, 0, half, picture.height());
    painter.end();
    return write(picture, light, QStringLiteral("light-and-dark"));
}

} // namespace

bool writeShots(MainWindow *window, const QString &folder)
{
    const QDir light(folder);
    const QDir dark(light.filePath(QStringLiteral("dark")));
    // A page may be taller than any screen, where a window system would not let it be.
    window->setAttribute(Qt::WA_DontShowOnScreen);
    window->show();
    settle();
    OrvLook::setDark(false);
    const bool lightWritten = writeLook(window, light);
    OrvLook::setDark(true);
    return writeLook(window, dark) && lightWritten && writeBothLooks(light, dark);
}
