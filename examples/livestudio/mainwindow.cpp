#include "mainwindow.h"
#include "dialogs.h"
#include "hotkeypanel.h"
#include "picturepage.h"
#include "preview.h"
#include "snapshotpage.h"

#include <customtoolbutton.h>
#include <orvcommonlib.h>
#include <orvlook.h>
#include <orvmaskctrl.h>

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

    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(1, 1, 1, 1);
    grid->setSpacing(0);
    grid->addWidget(newTitleBar(), 0, 0, 1, 2);
    grid->addWidget(m_preview, 1, 0);
    grid->addWidget(newTools(), 2, 0);
    grid->addWidget(newSide({new PicturePage(m_preview, this), m_snapshots}), 1, 1, 2, 1);
    grid->setRowStretch(1, 1);
    connect(this, &BaseMoveDialog::sig_doubleclickCanDragRect, this, &MainWindow::toggleMaximised);

    setMinimumSize(860, 600);
    resize(1120, 640);
    totalcommon::moveToScreenCenter(this, 0);
    setFocus(); // which none of the controls has at the start
    restoreGeometry(QSettings().value("geometry").toByteArray());
    if (!QSettings().value("noTips").toBool())
        QTimer::singleShot(0, this, [this] { Dialogs::showTips(this); });
}

QWidget *MainWindow::newTitleBar()
{
    auto *bar = new QFrame(this);
    bar->setObjectName("titleBar");
    bar->setFixedHeight(kTitleHeight);
    auto *logo = new QLabel(bar);
    logo->setPixmap(windowIcon().pixmap(24, 24));
    auto *name = new QLabel(windowTitle(), bar);
    name->setObjectName("titleName");
    auto *row = new QHBoxLayout(bar);
    row->setContentsMargins(16, 0, 8, 0);
    row->setSpacing(4);
    row->addWidget(logo);
    row->addWidget(name, 1);

    QToolButton *dark =
        addTitleButton(bar, "look", tr("Dark look"), [] { OrvLook::setDark(!OrvLook::isDark()); });
    dark->setCheckable(true);
    dark->setChecked(OrvLook::isDark());
    addTitleButton(bar, "minimise", tr("Minimise"), [this] { showMinimized(); });
    m_maximise = addTitleButton(bar, "maximise", tr("Maximise"), [this] { toggleMaximised(); });
    m_maximise->setCheckable(true);
    addTitleButton(bar, "close", tr("Close"), [this] { close(); });
    return bar;
}

QToolButton *MainWindow::addTitleButton(QWidget *bar, const char *picture, const QString &name,
                                        const std::function<void()> &clicked)
{
    auto *button = new QToolButton(bar);
    button->setProperty("picture", picture); // for the style sheet
    button->setAccessibleName(name);
    button->setToolTip(name);
    button->setFixedSize(36, 32);
    bar->layout()->addWidget(button);
    connect(button, &QToolButton::clicked, this, clicked);
    return button;
}

QWidget *MainWindow::newTools()
{
    auto *tools = new QWidget(this);
    auto *row = new QHBoxLayout(tools);
    row->setContentsMargins(16, 4, 16, 16);
    row->setSpacing(12);
    row->addStretch();
    addEffects(newTool("effects", tr("Effects"), tools));
    auto *snapshot = new QPushButton(QIcon(":/studio/snapshot.svg"), tr("Snapshot"), tools);
    snapshot->setObjectName("snapshot");
    row->addWidget(snapshot);
    const auto takeSnapshot = [this] {
        m_snapshots->add(m_preview->picture());
    };
    connect(snapshot, &QPushButton::clicked, this, takeSnapshot);
    auto *hotkey = new HotkeyPanel(newTool("keyboard", tr("Snapshot hotkey"), tools));
    connect(hotkey, &HotkeyPanel::pressed, this, takeSnapshot);
    addHelp(newTool("help", tr("Help"), tools));
    row->addStretch();
    return tools;
}

CustomToolButton *MainWindow::newTool(const QString &picture, const QString &name, QWidget *tools)
{
    const QString path = ":/studio/" + picture;
    auto *tool = new CustomToolButton(false, tools, Top);
    tool->setFixedSize(40, 40);
    tool->setCheckable(true);
    tool->setFocusPolicy(Qt::StrongFocus);
    tool->updateImage(path + ".svg", path + "_checked.svg", path + ".svg", path + ".svg");
    tool->setAccessibleName(name);
    tool->setToolTip(name);
    tools->layout()->addWidget(tool);
    return tool;
}

void MainWindow::addEffects(CustomToolButton *tool)
{
    auto *panel = new ToolPanel(tool);
    const QList<QPair<QString, QString>> tints{
        {tr("None"), "white"}, {tr("Warm"), "#FFE9C4"}, {tr("Cool"), "#C9DEFF"}, {tr("Rose"), "#FFD0DA"}};
    for (const auto &[name, tint] : tints) {
        auto *choice = new QPushButton(name, panel);
        choice->setCheckable(true);
        choice->setAutoExclusive(true);
        choice->setChecked(m_preview->property("tint").toString() == tint);
        panel->layout()->addWidget(choice);
        connect(choice, &QPushButton::clicked, this, [this, tint = tint] { m_preview->set("tint", tint); });
    }
}

void MainWindow::addHelp(CustomToolButton *tool)
{
    auto *panel = new ToolPanel(tool);
    const auto addEntry = [=](const QString &text, void (*showDialog)(QWidget *)) {
        auto *entry = new QPushButton(text, panel);
        panel->layout()->addWidget(entry);
        connect(entry, &QPushButton::clicked, this, [=] {
            setFocus(); // which closes the panel
            showDialog(this);
        });
    };
    addEntry(tr("Tips"), Dialogs::showTips);
    addEntry(tr("What is new"), Dialogs::showNews);
    addEntry(tr("Look for updates"), Dialogs::showUpdate);
}

// A tab shows the title of its page.
QWidget *MainWindow::newSide(const QList<QWidget *> &pages)
{
    auto *side = new QFrame(this);
    side->setObjectName("side");
    side->setFixedWidth(300);
    auto *stack = new QStackedWidget(side);
    auto *grid = new QGridLayout(side);
    grid->setContentsMargins(20, 16, 19, 16);
    grid->setSpacing(12);
    for (QWidget *page : pages) {
        auto *tab = new QPushButton(page->windowTitle(), side);
        tab->setCheckable(true);
        tab->setAutoExclusive(true);
        tab->setChecked(page == pages.first());
        grid->addWidget(tab, 0, stack->addWidget(page));
        connect(tab, &QPushButton::clicked, stack, [=] { stack->setCurrentWidget(page); });
        connect(page, &QWidget::windowTitleChanged, tab, &QPushButton::setText);
    }
    grid->addWidget(stack, 1, 0, 1, -1);
    return side;
}

void MainWindow::toggleMaximised()
{
    isMaximized() ? showNormal() : showMaximized();
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
    const QString text = tr("The live picture ends. Your snapshots and settings are kept.");
    if (!Dialogs::ask(this, tr("Leave the studio?"), text, tr("Leave")))
        return event->ignore();
    QSettings().setValue("geometry", saveGeometry());
    BaseMoveDialog::closeEvent(event);
}

void MainWindow::resizeEvent(QResizeEvent *event)
{
    BaseMoveDialog::resizeEvent(event);
    setRectOfCanDrag(QRect(0, 0, width(), kTitleHeight));
}
