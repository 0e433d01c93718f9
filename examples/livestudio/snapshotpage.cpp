#include "snapshotpage.h"
#include "dialogs.h"
#include "studiostyle.h"

#include <orvcommonlib.h>
#include <popuploadingdlgwithmask.h>

#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QStandardPaths>
#include <QtCore/QTimer>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPushButton>

constexpr QSize kThumbnail(108, 61);

SnapshotPage::SnapshotPage(QWidget *parent)
    : QWidget(parent)
    , m_folder(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + "/snapshots")
    , m_list(new QListWidget(this))
    , m_remove(StudioStyle::newButton("plain", tr("Remove"), this))
    , m_export(StudioStyle::newButton("primary", tr("Export"), this))
{
    m_list->setAccessibleName(tr("Snapshots"));
    m_list->setViewMode(QListView::IconMode);
    m_list->setResizeMode(QListView::Adjust);
    m_list->setMovement(QListView::Static);
    m_list->setIconSize(kThumbnail);
    m_list->setGridSize(kThumbnail + QSize(10, 10));
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(m_list, 0, 0, 1, 2);
    grid->addWidget(m_remove);
    grid->addWidget(m_export);
    connect(m_list, &QListWidget::itemSelectionChanged, this, &SnapshotPage::followList);
    connect(m_remove, &QPushButton::clicked, this, &SnapshotPage::removeChosen);
    connect(m_export, &QPushButton::clicked, this, &SnapshotPage::exportAll);

    QDir().mkpath(m_folder);
    for (const QFileInfo &file : files())
        show(file);
    followList();
}

QFileInfoList SnapshotPage::files() const
{
    return QDir(m_folder).entryInfoList({"*.png"});
}

int SnapshotPage::count() const
{
    return m_list->count();
}

void SnapshotPage::followList()
{
    m_remove->setEnabled(!m_list->selectedItems().isEmpty());
    m_export->setEnabled(count() > 0);
    Q_EMIT countChanged(count());
}

void SnapshotPage::add(const QImage &picture)
{
    const QFileInfo file(m_folder + QDateTime::currentDateTime().toString("/yyyyMMdd-HHmmss-zzz.'png'"));
    if (!picture.save(file.filePath()))
        return Dialogs::explain(window(), tr("No snapshot"), tr("It cannot be written to %1.").arg(m_folder));
    show(file);
    followList();
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
    item->setData(Qt::UserRole, file.filePath());
    item->setData(Qt::AccessibleTextRole, tr("Snapshot %1").arg(file.completeBaseName()));
    m_list->insertItem(0, item);
}

void SnapshotPage::removeChosen()
{
    const QList<QListWidgetItem *> chosen = m_list->selectedItems();
    for (QListWidgetItem *item : chosen) {
        QFile::remove(item->data(Qt::UserRole).toString());
        delete item;
    }
    followList();
}

// One file after the other, between the events of the window, until the dialog is closed.
void SnapshotPage::exportAll()
{
    const QString target = QDir::cleanPath(m_folder + "/../exported");
    QDir().mkpath(target);
    auto *dialog = new PopupLoadingDlgWithMask(window()->size(), QSize(96, 120), tr("Saving"), window());
    dialog->setWindowModality(Qt::ApplicationModal);
    QPushButton *cancel = StudioStyle::newButton("plain", tr("Cancel"), dialog);
    cancel->setShortcut(Qt::Key_Escape);
    cancel->resize(96, 34);
    cancel->move(dialog->rect().center() - cancel->rect().center() + QPoint(0, 90));
    connect(cancel, &QPushButton::clicked, dialog, &QWidget::close);

    auto *timer = new QTimer(dialog);
    connect(timer, &QTimer::timeout, dialog, [=, files = files()]() mutable {
        if (files.isEmpty())
            return void(dialog->close());
        const QFileInfo file = files.takeFirst();
        const QImage picture = QImage(file.filePath()).scaledToWidth(1920, Qt::SmoothTransformation);
        picture.save(target + "/" + file.completeBaseName() + ".jpg", "jpg", 92);
    });
    const auto tell = [=] {
        const auto count = QDir(target).entryList({"*.jpg"}).size();
        const QString text = tr("%1 pictures are in %2").arg(count).arg(QDir::toNativeSeparators(target));
        Dialogs::explain(window(), tr("Exported"), text);
    };
    connect(dialog, &QObject::destroyed, this, tell, Qt::QueuedConnection);
    dialog->moveOver(window());
    dialog->show();
    timer->start(0);
}
