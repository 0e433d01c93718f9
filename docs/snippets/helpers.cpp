#include "orvcommonlib.h"

#include <QtCore/QDebug>
#include <QtWidgets/QWidget>

//! [version of the headers]
#include <orvcommonlib_version.h>

#if ORVCOMMONLIB_VERSION >= ORVCOMMONLIB_VERSION_CHECK(1, 1, 0)
//! [version of the headers]
#endif

namespace helpers_snippets {

class Album : public QWidget
{
public:
    void addThumbnails(const QString &folder);
    void drawCard(QWidget *card);
    void tellVersion();
    void placeWindow(QWidget *window);

private:
    void add(const QPixmap &) {}
};

void Album::addThumbnails(const QString &folder)
{
    //! [orvcommonlib]
    QVector<QString> files;
    orvcommonlib::getImageFromPath(folder, files, /*animated*/ false);
    for (const QString &file : qAsConst(files)) {
        QPixmap picture(file), thumbnail;
        if (orvcommonlib::scaleAndClipPixmap2(picture, QSizeF(160, 90), /*radius*/ 8, thumbnail))
            add(thumbnail.isNull() ? picture : thumbnail);
    }
    //! [orvcommonlib]
}

void Album::drawCard(QWidget *card)
{
    //! [NinePatch]
    QPixmap ground(QStringLiteral(":/surface/resources/surface/common/dialog_bg.png"));
    const QPixmap stretched = totalcommon::NinePatch(ground, 17, 14, 19, 22, card->width(), card->height());
    //! [NinePatch]
    add(stretched);
}

void Album::placeWindow(QWidget *window)
{
    //! [screens]
    totalcommon::moveToScreenCenter(window, 0); // of the leftmost screen
    //! [screens]
}

void Album::tellVersion()
{
    //! [totalcommon]
    const QString newest = totalcommon::version();
    const QString fingerprint = totalcommon::FileMD5(QStringLiteral("photo.png"), newest);
    qInfo() << newest << fingerprint << totalcommon::getDirSize(QStringLiteral("snapshots")) << "bytes";
    //! [totalcommon]
}

} // namespace helpers_snippets
