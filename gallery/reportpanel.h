#pragma once

#include "reportlog.h"

#include <QtCore/QAbstractListModel>
#include <QtWidgets/QWidget>

class QLabel;
class QListView;
class QPushButton;

/// The panel's lines, oldest first. It keeps the last few thousand: a slider that is dragged says a lot.
class ReportModel : public QAbstractListModel
{
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

    const ReportLine &lineAt(int row) const { return m_lines.at(row); }
    void append(const QVector<ReportLine> &lines);
    void clear();

private:
    QVector<ReportLine> m_lines;
};

/// The panel below the page: signals, log lines and results as they come, with a button that clears it.
class ReportPanel : public QWidget
{
    Q_OBJECT

public:
    explicit ReportPanel(QWidget *parent = nullptr);

    void append(const QVector<ReportLine> &lines);
    void clear();
    /// Puts the panel behind all others where Tab leads.
    void becomeLastInTabOrder();

private:
    QWidget *newHeader();
    void copySelected() const;

    ReportModel *m_model;
    QListView *m_view;
    QLabel *m_count = nullptr;
    QPushButton *m_clearButton = nullptr;
};
