#pragma once

#include <QtCore/QFileInfo>
#include <QtWidgets/QWidget>

class QListWidget;
class QPushButton;

/// The page with the snapshots that were taken, each a file. They are exported as JPEG.
class SnapshotPage : public QWidget
{
    Q_OBJECT

public:
    explicit SnapshotPage(QWidget *parent);

    void add(const QImage &picture);
    int count() const;

Q_SIGNALS:
    void countChanged(int count);

private:
    QFileInfoList files() const;
    void show(const QFileInfo &file);
    void removeChosen();
    void exportAll();
    void followList();

    QString m_folder;
    QListWidget *m_list;
    QPushButton *m_remove;
    QPushButton *m_export;
};
