#include "basemovedialog.h"
#include "orvcommonlib.h"
#include "pagebuilder.h"
#include "samplewindow.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtGui/QCursor>
#include <QtGui/QFont>
#include <QtGui/QScreen>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>

namespace {

constexpr QSize kSampleSize(360, 160);
constexpr int kMaximumScreen = 9;

QString described(const QScreen *screen)
{
    if (screen == nullptr)
        return QStringLiteral("null");
    const QRect area = screen->geometry();
    return QStringLiteral("%1, %2 x %3 at (%4, %5)")
        .arg(screen->name())
        .arg(area.width())
        .arg(area.height())
        .arg(area.x())
        .arg(area.y());
}

void openOnScreen(QWidget *mainWindow, int index)
{
    auto *sample = new BaseMoveDialog(nullptr, true, true, true);
    sample->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(mainWindow, &QObject::destroyed, sample, &QObject::deleteLater);
    sample->resize(kSampleSize);
    fillSampleWindow(sample, QStringLiteral("moveToScreenCenter"),
                     QStringLiteral("In the middle of what the task bar leaves of screen %1.").arg(index));
    totalcommon::moveToScreenCenter(sample, index);
    sample->show();
}

void addScreens(PageBuilder &page)
{
    page.section(
        "Screens",
        "Counted from left to right, then from top to bottom; a number past the end means the last.");
    QWidget *mainWindow = page.window();
    QSpinBox *index = page.spinBox("Number", -1, kMaximumScreen, 0);
    page.button("getScreen(number)", [index] {
        report(QStringLiteral("getScreen(%1): %2")
                   .arg(index->value())
                   .arg(described(totalcommon::getScreen(index->value()))));
    });
    page.button("getScreen(pointer)", [] {
        bool found = false;
        const QScreen *screen = totalcommon::getScreen(QCursor::pos(), &found);
        report(QStringLiteral("getScreen(pointer): %1, %2")
                   .arg(described(screen), found ? QStringLiteral("found") : QStringLiteral("not found")));
    });
    page.button("moveToScreenCenter", [mainWindow, index] { openOnScreen(mainWindow, index->value()); });
}

void addText(PageBuilder &page)
{
    page.section("Text", "The lines below the first follow it.");
    QLineEdit *half = page.wideLineEdit("Half width", "Camera 1, live.");
    QLineEdit *full = page.wideLineEdit("HalfToFull", totalcommon::HalfToFull(half->text()));
    QLineEdit *back = page.wideLineEdit("FullToHalf", totalcommon::FullToHalf(full->text()));
    QLineEdit *digest = page.wideLineEdit("generateMd5", totalcommon::generateMd5(half->text()));
    for (QLineEdit *result : {full, back, digest})
        result->setReadOnly(true);
    QObject::connect(half, &QLineEdit::textChanged, full, [full, back, digest](const QString &text) {
        full->setText(totalcommon::HalfToFull(text));
        back->setText(totalcommon::FullToHalf(full->text()));
        digest->setText(totalcommon::generateMd5(text));
        digest->setCursorPosition(0);
    });
    digest->setCursorPosition(0);
    QSpinBox *size = page.spinBox("Pixel size", 6, 72, 14);
    QCheckBox *bold = page.checkBox("Bold", false);
    page.button("getFontWidth", [half, size, bold] {
        QFont font;
        const int width = totalcommon::getFontWidth(size->value(), half->text(), font,
                                                    bold->isChecked() ? QFont::Bold : QFont::Normal);
        report(QStringLiteral("getFontWidth: %1 pixels in %2").arg(width).arg(font.family()));
    });
}

void addFiles(PageBuilder &page)
{
    page.section("Files and folders",
                 "<b>FileMD5</b> is the fingerprint of a file's first 10240 bytes, followed by the "
                 "extra text.");
    QLineEdit *path = page.wideLineEdit("Path", "");
    QLineEdit *extra = page.wideLineEdit("Extra text", "");
    page.button("Path of this program",
                [path] { path->setText(QDir::toNativeSeparators(QCoreApplication::applicationFilePath())); });
    page.button("FileMD5", [path, extra] {
        report(QStringLiteral("FileMD5: \"%1\"").arg(totalcommon::FileMD5(path->text(), extra->text())));
    });
    page.button("getDirSize", [path] {
        report(QStringLiteral("getDirSize: %1 bytes").arg(totalcommon::getDirSize(path->text())));
    });
    page.button("desktopShowInFolder", [path] { totalcommon::desktopShowInFolder(path->text()); });
}

void build(PageBuilder &page)
{
    page.include("orvcommonlib.h");
    addScreens(page);
    addText(page);
    addFiles(page);
}

const GalleryPage &page = GalleryPage::add(
    GalleryFamily::Services, "Utilities",
    "The free helpers of totalcommon: screens, text widths, full-width text, digests and folders.", build);

} // namespace
