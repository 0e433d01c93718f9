#include "snapshotpage.h"
#include "dialogs.h"
#include "exporter.h"
#include "studiostyle.h"

#include <orvcommonlib.h>

#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QStandardPaths>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPushButton>

namespace {

constexpr QSize kThumbnail(108, 61);
constexpr int kThumbnailRadius = 6;

// As many pixels as the screen has for it.
QIcon thumbnail(const QString &file, double ratio)
{
    QPixmap picture(file);
    QPixmap clipped;
    orvcommonlib::scaleAndClipPixmap2(picture, QSizeF(kThumbnail) * ratio, kThumbnailRadius * ratio, clipped);
    clipped.setDevicePixelRatio(ratio);
    return QIcon(clipped);
}

} // namespace

SnapshotPage::SnapshotPage(QWidget *parent)
    : QWidget(parent)
    , m_folder(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + "/snapshots")
    , m_list(new QListWidget(this))
{
    m_list->setAccessibleName(tr("Snapshots"));
    m_list->setViewMode(QListView::IconMode);
    m_list->setResizeMode(QListView::Adjust);
    m_list->setMovement(QListView::Static);
    m_list->setIconSize(kThumbnail);
    m_list->setGridSize(kThumbnail + QSize(10, 10));
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_list);
    column->addLayout(new QHBoxLayout);
    m_remove = addButton("plain", tr("Remove"), &SnapshotPage::removeChosen);
    m_export = addButton("primary", tr("Export"), &SnapshotPage::exportAll);
    connect(m_list, &QListWidget::itemSelectionChanged, this, &SnapshotPage::followCount);

    QVector<QString> files;
    orvcommonlib::getImageFromPath(m_folder, files, false);
    std::sort(files.begin(), files.end());
    for (const QString &file : qAsConst(files))
        show(file);
    followCount();
}

int SnapshotPage::count() const
{
    return m_list->count();
}

void SnapshotPage::add(const QImage &picture)
{
    const QString name = QDateTime::currentDateTime().toString("yyyyMMdd-HHmmss-zzz") + ".png";
    if (QDir().mkpath(m_folder) && picture.save(m_folder + "/" + name))
        show(m_folder + "/" + name);
    else
        Dialogs::explain(window(), tr("No snapshot"), tr("It cannot be written to %1.").arg(m_folder));
}

void SnapshotPage::show(const QString &file)
{
    auto *item = new QListWidgetItem(thumbnail(file, devicePixelRatioF()), QString());
    item->setData(Qt::UserRole, file);
    item->setData(Qt::AccessibleTextRole, tr("Snapshot %1").arg(QFileInfo(file).completeBaseName()));
    m_list->insertItem(0, item);
    followCount();
}

void SnapshotPage::removeChosen()
{
    const QList<QListWidgetItem *> chosen = m_list->selectedItems();
    for (QListWidgetItem *item : chosen) {
        QFile::remove(item->data(Qt::UserRole).toString());
        delete item;
    }
    followCount();
}

void SnapshotPage::exportAll()
{
    QStringList files;
    for (int row = 0; row < m_list->count(); ++row)
        files << m_list->item(row)->data(Qt::UserRole).toString();
    auto *exporter = new Exporter(files, m_folder + "/../exported", window());
    connect(exporter, &Exporter::finished, this, [this](int count, const QString &folder) {
        Dialogs::explain(window(), tr("Exported"),
                         tr("%1 pictures are in %2").arg(count).arg(QDir::toNativeSeparators(folder)));
    });
    exporter->start();
}

void SnapshotPage::followCount()
{
    m_remove->setEnabled(!m_list->selectedItems().isEmpty());
    m_export->setEnabled(m_list->count() > 0);
    Q_EMIT countChanged(m_list->count());
}

QPushButton *SnapshotPage::addButton(const char *kind, const QString &text, void (SnapshotPage::*act)())
{
    QPushButton *button = StudioStyle::newButton(kind, text, this);
    layout()->itemAt(1)->layout()->addWidget(button);
    connect(button, &QPushButton::clicked, this, act);
    return button;
}
