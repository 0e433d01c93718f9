#include "mainwindow.h"
#include "dialogs.h"
#include "picturepage.h"
#include "preview.h"
#include "snapshotpage.h"
#include "studiostyle.h"
#include "toolstrip.h"

#include <orvcommonlib.h>
#include <orvlook.h>
#include <orvmaskctrl.h>

#include <QtCore/QSettings>
#include <QtCore/QTimer>
#include <QtCore/QVariant>
#include <QtGui/QCloseEvent>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStackedWidget>
#include <QtWidgets/QToolButton>

constexpr int kTitleHeight = 48;

MainWindow::MainWindow()
    : BaseMoveDialog(nullptr, true, false, false)
    , m_preview(new Preview(this))
    , m_snapshots(new SnapshotPage(this))
{
    setObjectName("studio");
    setWindowTitle(tr("Live Studio"));
    setWidgetResizable(true);
    setSystemMoveResize(true);
    setWidgetTitleHeight(kTitleHeight);
    setFocusPolicy(Qt::ClickFocus); // a press beside the controls closes the panels
    OrvMaskCtrl::setFollowsWindow(true);

    auto *tools = new ToolStrip(m_preview, this);
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(1, 1, 1, 1);
    grid->setSpacing(0);
    grid->addWidget(newTitleBar(), 0, 0, 1, 2);
    grid->addWidget(m_preview, 1, 0);
    grid->addWidget(tools, 2, 0);
    grid->addWidget(newSide(), 1, 1, 2, 1);
    grid->setRowStretch(1, 1);
    connect(tools, &ToolStrip::snapshotWanted, this, [this] { m_snapshots->add(m_preview->picture()); });
    connect(this, &BaseMoveDialog::sig_doubleclickCanDragRect, this, &MainWindow::toggleMaximised);

    setMinimumSize(860, 600);
    resize(1120, 640);
    totalcommon::moveToScreenCenter(this, 0);
    restoreGeometry(QSettings().value("geometry").toByteArray());
    if (!QSettings().value("noTips").toBool())
        QTimer::singleShot(0, this, [this] { Dialogs::showTips(this); });
}

QPixmap MainWindow::grabAt(double seconds)
{
    m_preview->freezeAt(seconds);
    QCoreApplication::processEvents();
    return grab();
}

QWidget *MainWindow::newTitleBar()
{
    auto *bar = new QWidget(this);
    bar->setObjectName("titleBar");
    bar->setAttribute(Qt::WA_StyledBackground);
    bar->setFixedHeight(kTitleHeight);
    auto *row = new QHBoxLayout(bar);
    row->setContentsMargins(16, 0, 8, 0);
    row->setSpacing(4);
    auto *logo = new QLabel(bar);
    logo->setPixmap(windowIcon().pixmap(24, 24));
    row->addWidget(logo);
    auto *name = new QLabel(windowTitle(), bar);
    name->setObjectName("titleName");
    row->addWidget(name, 1);

    QToolButton *dark = newTitleButton("look", tr("Dark look"), bar);
    dark->setCheckable(true);
    dark->setChecked(OrvLook::isDark());
    connect(dark, &QToolButton::toggled, this, &OrvLook::setDark);
    QToolButton *minimise = newTitleButton("minimise", tr("Minimise"), bar);
    connect(minimise, &QToolButton::clicked, this, &QWidget::showMinimized);
    m_maximise = newTitleButton("maximise", tr("Maximise"), bar);
    m_maximise->setCheckable(true);
    connect(m_maximise, &QToolButton::clicked, this, &MainWindow::toggleMaximised);
    QToolButton *close = newTitleButton("close", tr("Close"), bar);
    connect(close, &QToolButton::clicked, this, &QWidget::close);
    return bar;
}

QToolButton *MainWindow::newTitleButton(const char *picture, const QString &name, QWidget *bar)
{
    auto *button = new QToolButton(bar);
    button->setProperty("picture", picture); // for the style sheet
    button->setAccessibleName(name);
    button->setToolTip(name);
    button->setFixedSize(36, 32);
    bar->layout()->addWidget(button);
    return button;
}

QWidget *MainWindow::newSide()
{
    auto *side = new QWidget(this);
    side->setObjectName("side");
    side->setAttribute(Qt::WA_StyledBackground);
    side->setFixedWidth(300);
    auto *pages = new QStackedWidget(side);
    auto *grid = new QGridLayout(side);
    grid->setContentsMargins(20, 16, 19, 16);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(16);
    grid->addWidget(pages, 1, 0, 1, 2);
    const auto addPage = [=](QWidget *page, const QString &name) {
        QPushButton *tab = StudioStyle::newButton("tab", name, side);
        tab->setCheckable(true);
        tab->setAutoExclusive(true);
        tab->setChecked(pages->count() == 0);
        grid->addWidget(tab, 0, pages->addWidget(page));
        connect(tab, &QPushButton::clicked, pages, [=] { pages->setCurrentWidget(page); });
        return tab;
    };
    addPage(new PicturePage(m_preview, side), tr("Picture"));
    QPushButton *tab = addPage(m_snapshots, tr("Snapshots"));
    const auto tellCount = [tab](int count) {
        tab->setText(count > 0 ? tr("Snapshots (%1)").arg(count) : tr("Snapshots"));
    };
    connect(m_snapshots, &SnapshotPage::countChanged, tab, tellCount);
    tellCount(m_snapshots->count());
    return side;
}

void MainWindow::toggleMaximised()
{
    if (isMaximized())
        showNormal();
    else
        showMaximized();
}

void MainWindow::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::WindowStateChange) {
        m_maximise->setChecked(isMaximized());
        m_maximise->setAccessibleName(isMaximized() ? tr("Restore") : tr("Maximise"));
        m_maximise->setToolTip(m_maximise->accessibleName());
        setCanMove(!isMaximized());
        setWidgetResizable(!isMaximized());
    }
    BaseMoveDialog::changeEvent(event);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    if (!Dialogs::askToQuit(this))
        return event->ignore();
    QSettings().setValue("geometry", saveGeometry());
    BaseMoveDialog::closeEvent(event);
}

void MainWindow::resizeEvent(QResizeEvent *event)
{
    BaseMoveDialog::resizeEvent(event);
    setRectOfCanDrag(QRect(0, 0, width(), kTitleHeight));
}
