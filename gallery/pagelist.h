#pragma once

#include <QtWidgets/QWidget>

class GalleryPage;
class QLineEdit;
class QListWidget;
class QListWidgetItem;

/// The left side: every page under its family's heading, and a line that narrows the list down.
class PageList : public QWidget
{
    Q_OBJECT

public:
    explicit PageList(QWidget *parent = nullptr);

    /// Lets the keyboard choose among the pages.
    void focusList();
    void setCurrentPage(const GalleryPage *page);

Q_SIGNALS:
    void pageChosen(const GalleryPage *page);

private:
    void fill();
    void filter(const QString &text);
    void chooseFirst();
    void emitChosen(QListWidgetItem *item);

    QLineEdit *m_search;
    QListWidget *m_list;
};
