#include "mainwindow.h"
#include "dialogs.h"
#include "picturepage.h"
#include "preview.h"
#include "snapshotpage.h"
#include "studiostyle.h"
#include "titlebar.h"
#include "toolstrip.h"

#include <orvcommonlib.h>
#include <orvmaskctrl.h>

#include <QtCore/QSettings>
#include <QtCore/QTimer>
#include <QtGui/QCloseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QButtonGroup>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStackedWidget>

namespace {

constexpr int kHairline = 1;
constexpr int kSideWidth = 300;

} // namespace

MainWindow::MainWindow()
    : BaseMoveDialog(nullptr, true, false, false)
    , m_titleBar(new TitleBar(this))
    , m_preview(new Preview(this))
    , m_tools(new ToolStrip(m_preview, this))
    , m_snapshots(new SnapshotPage(this))
    , m_pages(new QStackedWidget(this))
{
    setObjectName("studio");
    setWindowTitle(tr("Live Studio"));
    setWidgetResizable(true);
    setSystemMoveResize(true);
    setFocusPolicy(Qt::ClickFocus); // a press beside the controls closes the panels
    setWidgetTitleHeight(TitleBar::kHeight);
    setMinimumSize(860, 600);
    resize(1120, 640);
    buildContents();
    OrvMaskCtrl::setFollowsWindow(true);
    connect(m_tools, &ToolStrip::snapshotWanted, this, [this] { m_snapshots->add(m_preview->picture()); });
    connect(this, &BaseMoveDialog::sig_doubleclickCanDragRect, m_titleBar, &TitleBar::toggleMaximised);
}

void MainWindow::start()
{
    m_tools->start();
    totalcommon::moveToScreenCenter(this, 0);
    restoreGeometry(QSettings().value("geometry").toByteArray());
    show();
    QTimer::singleShot(0, this, [this] { Dialogs::showTipsAtStart(this); });
}

bool MainWindow::writeShot(const QString &file)
{
    setAttribute(Qt::WA_DontShowOnScreen);
    show();
    m_preview->freezeAt(42);
    QApplication::processEvents();
    return grab().save(file);
}

void MainWindow::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::WindowStateChange) {
        m_titleBar->followWindowState();
        setCanMove(!isMaximized());
        setWidgetResizable(!isMaximized());
    }
    BaseMoveDialog::changeEvent(event);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    if (!Dialogs::askToQuit(this)) {
        event->ignore();
        return;
    }
    QSettings().setValue("geometry", saveGeometry());
    BaseMoveDialog::closeEvent(event);
}

void MainWindow::resizeEvent(QResizeEvent *event)
{
    BaseMoveDialog::resizeEvent(event);
    setRectOfCanDrag(QRect(0, 0, width(), TitleBar::kHeight));
}

void MainWindow::buildContents()
{
    auto *stage = new QVBoxLayout;
    stage->setSpacing(0);
    stage->addWidget(m_preview, 1);
    stage->addWidget(m_tools);
    auto *body = new QHBoxLayout;
    body->setSpacing(0);
    body->addLayout(stage, 1);
    body->addWidget(newSide());
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(kHairline, kHairline, kHairline, kHairline);
    column->setSpacing(0);
    column->addWidget(m_titleBar);
    column->addLayout(body);
}

QWidget *MainWindow::newSide()
{
    auto *side = new QWidget(this);
    side->setObjectName("side");
    side->setAttribute(Qt::WA_StyledBackground);
    side->setFixedWidth(kSideWidth);
    auto *tabs = new QHBoxLayout;
    tabs->setSpacing(8);
    auto *group = new QButtonGroup(this);
    for (const QString &name : {tr("Picture"), tr("Snapshots")}) {
        QPushButton *tab = StudioStyle::newButton("tab", name, side);
        tab->setCheckable(true);
        group->addButton(tab, group->buttons().size());
        tabs->addWidget(tab);
        connect(tab, &QPushButton::clicked, m_pages,
                [this, group] { m_pages->setCurrentIndex(group->checkedId()); });
    }
    group->button(0)->setChecked(true);
    const auto tellCount = [tab = group->button(1)](int count) {
        tab->setText(count > 0 ? tr("Snapshots (%1)").arg(count) : tr("Snapshots"));
    };
    connect(m_snapshots, &SnapshotPage::countChanged, side, tellCount);
    tellCount(m_snapshots->count());

    m_pages->addWidget(new PicturePage(m_preview, m_pages));
    m_pages->addWidget(m_snapshots);
    auto *column = new QVBoxLayout(side);
    column->setContentsMargins(20, 16, 20 - kHairline, 16);
    column->setSpacing(16);
    column->addLayout(tabs);
    column->addWidget(m_pages);
    return side;
}
