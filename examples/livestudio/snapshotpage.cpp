#include "snapshotpage.h"
#include "dialogs.h"

#include <orvcommonlib.h>
#include <popuploadingdlgwithmask.h>

constexpr QSize kThumbnail(108, 61);

SnapshotPage::SnapshotPage(QWidget *parent)
    : QWidget(parent)
    , m_folder(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + "/snapshots")
    , m_list(new QListWidget(this))
    , m_export(new QPushButton(tr("Export"), this))
{
    setWindowTitle(tr("Snapshots"));
    m_list->setAccessibleName(windowTitle());
    m_list->setViewMode(QListView::IconMode);
    m_list->setResizeMode(QListView::Adjust);
    m_list->setMovement(QListView::Static);
    m_list->setIconSize(kThumbnail);
    m_list->setGridSize(kThumbnail + QSize(10, 10));
    m_export->setEnabled(false);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_list);
    column->addWidget(m_export);
    connect(m_export, &QPushButton::clicked, this, &SnapshotPage::exportAll);

    m_folder.mkpath(".");
    for (const QFileInfo &file : m_folder.entryInfoList({"*.png"}))
        show(file);
}

void SnapshotPage::add(const QImage &picture)
{
    const QString name = QDateTime::currentDateTime().toString("yyyyMMdd-HHmmss-zzz.'png'");
    const QFileInfo file(m_folder.filePath(name));
    if (picture.save(file.filePath()))
        return show(file);
    Dialogs::ask(window(), tr("No snapshot"), tr("It cannot be written to %1.").arg(m_folder.path()));
}

// As many pixels as the screen has for it.
void SnapshotPage::show(const QFileInfo &file)
{
    const double ratio = devicePixelRatioF();
    QPixmap picture(file.filePath());
    QPixmap clipped;
    orvcommonlib::scaleAndClipPixmap2(picture, QSizeF(kThumbnail) * ratio, 6 * ratio, clipped);
    clipped.setDevicePixelRatio(ratio);
    auto *item = new QListWidgetItem(QIcon(clipped), QString());
    item->setData(Qt::AccessibleTextRole, tr("Snapshot %1").arg(file.completeBaseName()));
    m_list->insertItem(0, item);
    m_export->setEnabled(true);
    setWindowTitle(tr("Snapshots (%1)").arg(m_list->count()));
}

// One file after the other, between the events of the window.
void SnapshotPage::exportAll()
{
    const QString target = QDir::cleanPath(m_folder.filePath("../exported"));
    QDir().mkpath(target);
    auto *dialog = new PopupLoadingDlgWithMask(window()->size(), QSize(96, 120), tr("Saving"), window());
    dialog->setWindowModality(Qt::ApplicationModal);
    dialog->moveOver(window());
    dialog->show();
    auto *timer = new QTimer(dialog);
    timer->start(0);
    connect(timer, &QTimer::timeout, dialog, [=, left = m_folder.entryInfoList({"*.png"})]() mutable {
        if (left.isEmpty())
            return void(dialog->close());
        const QFileInfo file = left.takeFirst();
        const QImage picture = QImage(file.filePath()).scaledToWidth(1920, Qt::SmoothTransformation);
        picture.save(target + "/" + file.completeBaseName() + ".jpg", "jpg", 92);
    });
    const auto tell = [=] {
        const auto count = QDir(target).entryList({"*.jpg"}).size();
        const QString text = tr("%1 pictures are in %2").arg(count).arg(QDir::toNativeSeparators(target));
        Dialogs::ask(window(), tr("Exported"), text);
    };
    connect(dialog, &QObject::destroyed, this, tell, Qt::QueuedConnection);
}
