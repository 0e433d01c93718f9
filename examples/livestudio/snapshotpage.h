#pragma once

#include <QtWidgets>

/// The page with the snapshots that were taken, each a file. They are exported as JPEG.
class SnapshotPage : public QWidget
{
    Q_OBJECT

public:
    explicit SnapshotPage(QWidget *parent);

    void add(const QImage &picture);

private:
    void show(const QFileInfo &file);
    void exportAll();

    QDir m_folder;
    QListWidget *m_list;
    QPushButton *m_export;
};
