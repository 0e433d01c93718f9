#pragma once

#include <QtWidgets/QWidget>

class QListWidget;
class QPushButton;

/// The page with the snapshots that were taken, as thumbnails.
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
    void show(const QString &file);
    void removeChosen();
    void exportAll();
    void followCount();
    QPushButton *addButton(const char *kind, const QString &text, void (SnapshotPage::*act)());

    QString m_folder;
    QListWidget *m_list;
    QPushButton *m_remove;
    QPushButton *m_export;
};
