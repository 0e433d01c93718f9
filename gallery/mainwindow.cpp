#include "mainwindow.h"
#include "gallerypage.h"
#include "orvmaskctrl.h"
#include "pagelist.h"
#include "pageview.h"
#include "reportlog.h"
#include "reportpanel.h"
#include "titlebar.h"

#include <QtCore/QEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QSplitter>
#include <QtWidgets/QStackedWidget>

namespace {

constexpr QSize kMinimumSize(760, 480);
constexpr int kHairline = 1;
constexpr int kEdge = 5; // left free of what takes presses, so that the window can be resized there
constexpr int kPanelHeight = 168;

} // namespace

MainWindow::MainWindow(ReportLog *log, QWidget *parent)
    : BaseMoveDialog(parent, true, false, false)
    , m_titleBar(new TitleBar(this))
    , m_pageList(new PageList(this))
    , m_stack(new QStackedWidget(this))
    , m_panel(new ReportPanel(this))
{
    setWindowTitle(QStringLiteral("orvcommonlib gallery"));
    setGalleryRole(this, "window");
    setWidgetResizable(true);
    setMinimumSize(kMinimumSize);
    resize(kWidth, kHeight);
    buildContents();
    m_pageList->focusList();
    OrvMaskCtrl::setFollowsWindow(true);
    OrvMaskCtrl::getInstance(this);

    connect(log, &ReportLog::arrived, m_panel, &ReportPanel::append);
    connect(m_pageList, &PageList::pageChosen, this, &MainWindow::openPage);
    connect(this, &MainWindow::sig_doubleclickCanDragRect, this, &MainWindow::toggleMaximised);
    connect(m_titleBar, &TitleBar::minimiseClicked, this, &MainWindow::showMinimized);
    connect(m_titleBar, &TitleBar::maximiseClicked, this, &MainWindow::toggleMaximised);
    connect(m_titleBar, &TitleBar::closeClicked, this, &MainWindow::close);
}

PageView *MainWindow::openPage(const GalleryPage *page)
{
    PageView *opened = view(page);
    m_stack->setCurrentWidget(opened);
    m_pageList->setCurrentPage(page);
    Q_EMIT pageOpened(opened);
    return opened;
}

PageView *MainWindow::view(const GalleryPage *page)
{
    // A page that is being built may ask for another one.
    if (!m_views.contains(page)) {
        auto *view = new PageView(*page, this, m_stack);
        m_views.insert(page, view);
        m_stack->addWidget(view);
        m_panel->becomeLastInTabOrder();
    }
    return m_views.value(page);
}

PageView *MainWindow::currentView() const
{
    return static_cast<PageView *>(m_stack->currentWidget());
}

void MainWindow::clearReports()
{
    m_panel->clear();
}

void MainWindow::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::WindowStateChange) {
        m_titleBar->setMaximised(isMaximized());
        setCanMove(!isMaximized());
        setWidgetResizable(!isMaximized());
    }
    BaseMoveDialog::changeEvent(event);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    BaseMoveDialog::closeEvent(event);
    // A page may have opened windows that belong to no other: they end with the gallery.
    QApplication::quit();
}

void MainWindow::resizeEvent(QResizeEvent *event)
{
    BaseMoveDialog::resizeEvent(event);
    setRectOfCanDrag(QRect(0, 0, width(), m_titleBar->height()));
}

void MainWindow::buildContents()
{
    auto *splitter = new QSplitter(Qt::Vertical, this);
    setGalleryRole(splitter, "splitter");
    splitter->addWidget(m_stack);
    splitter->addWidget(m_panel);
    splitter->setChildrenCollapsible(false);
    splitter->setStretchFactor(0, 1);
    splitter->setHandleWidth(1);
    m_stack->setContentsMargins(0, 0, kEdge, 0);
    splitter->setSizes({kHeight - kPanelHeight, kPanelHeight});

    auto *body = new QHBoxLayout;
    body->setSpacing(0);
    body->addWidget(m_pageList);
    body->addWidget(splitter);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(kHairline, kHairline, kHairline, kHairline);
    layout->setSpacing(0);
    layout->addWidget(m_titleBar);
    layout->addLayout(body);
}

void MainWindow::toggleMaximised()
{
    if (isMaximized())
        showNormal();
    else
        showMaximized();
}
