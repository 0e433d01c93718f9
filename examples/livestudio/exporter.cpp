#include "exporter.h"
#include "studiostyle.h"

#include <popuploadingdlgwithmask.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtGui/QImage>
#include <QtWidgets/QPushButton>

Exporter::Exporter(const QStringList &files, const QString &folder, QWidget *window)
    : QObject(window)
    , m_files(files)
    , m_folder(QDir::cleanPath(folder))
    , m_dialog(new PopupLoadingDlgWithMask(window->size(), QSize(96, 120), tr("Saving"), window))
{
    m_dialog->setWindowModality(Qt::ApplicationModal);
    addCancelButton();
    connect(&m_timer, &QTimer::timeout, this, &Exporter::writeNext);
}

void Exporter::start()
{
    QDir().mkpath(m_folder);
    m_dialog->moveOver(m_dialog->parentWidget());
    m_dialog->show();
    m_timer.start(0);
}

// The dialog has none of its own.
void Exporter::addCancelButton()
{
    QPushButton *cancel = StudioStyle::newButton("plain", tr("Cancel"), m_dialog);
    cancel->setShortcut(Qt::Key_Escape);
    cancel->resize(96, 34);
    cancel->move(m_dialog->rect().center() - cancel->rect().center() + QPoint(0, 90));
    connect(cancel, &QPushButton::clicked, this, &Exporter::finish);
}

void Exporter::writeNext()
{
    if (m_files.isEmpty()) {
        finish();
        return;
    }
    const QFileInfo file(m_files.takeFirst());
    const QString target = m_folder + "/" + file.completeBaseName() + ".jpg";
    if (QImage(file.filePath()).scaledToWidth(1920, Qt::SmoothTransformation).save(target, "jpg", 92))
        ++m_count;
}

void Exporter::finish()
{
    m_timer.stop();
    m_dialog->close();
    Q_EMIT finished(m_count, m_folder);
    deleteLater();
}
