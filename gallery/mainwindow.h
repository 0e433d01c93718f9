#pragma once

#include "basemovedialog.h"

#include <QtCore/QHash>

class GalleryPage;
class PageList;
class PageView;
class QStackedWidget;
class ReportLog;
class ReportPanel;
class TitleBar;

/// The gallery's window: pages on the left, the chosen one on the right, the panel below it. It is built from
/// the library: dragged by its title bar, resized by its edges, darkened by the mask while a masked dialog is
/// open.
class MainWindow : public BaseMoveDialog
{
    Q_OBJECT

public:
    /// The size it opens with.
    static constexpr int kWidth = 1000;
    static constexpr int kHeight = 680;

    explicit MainWindow(ReportLog *log, QWidget *parent = nullptr);

    /// Opens the page, building it first if it has not been open yet, and returns it.
    PageView *openPage(const GalleryPage *page);
    /// The same without opening it.
    PageView *view(const GalleryPage *page);
    PageView *currentView() const;
    void clearReports();

Q_SIGNALS:
    void pageOpened(QWidget *view);

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void buildContents();
    void toggleMaximised();

    TitleBar *m_titleBar;
    PageList *m_pageList;
    QStackedWidget *m_stack;
    ReportPanel *m_panel;
    QHash<const GalleryPage *, PageView *> m_views;
};
