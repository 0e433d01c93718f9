#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QStringList>
#include <QtCore/QTimer>

class PopupLoadingDlgWithMask;
class QWidget;

/// Writes pictures as JPEG files, one after the other between the events of the window, under a dialog that can cancel
/// it. Deletes itself when it is done.
class Exporter : public QObject
{
    Q_OBJECT

public:
    Exporter(const QStringList &files, const QString &folder, QWidget *window);

    void start();

Q_SIGNALS:
    /// All are written, or the user has cancelled the rest.
    /// \param count how many there are
    void finished(int count, const QString &folder);

private:
    void addCancelButton();
    void writeNext();
    void finish();

    QStringList m_files;
    QString m_folder;
    QPointer<PopupLoadingDlgWithMask> m_dialog;
    QTimer m_timer;
    int m_count = 0;
};
