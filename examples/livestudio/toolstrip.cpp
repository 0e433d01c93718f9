#include "toolstrip.h"
#include "dialogs.h"
#include "hotkeypanel.h"
#include "preview.h"
#include "studiostyle.h"

#include <customizeiconbutton.h>
#include <customtoolbutton.h>

#include <QtCore/QSettings>
#include <QtWidgets/QButtonGroup>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QPushButton>

ToolStrip::ToolStrip(Preview *preview, QWidget *parent)
    : QWidget(parent)
    , m_preview(preview)
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(16, 4, 16, 16);
    row->setSpacing(12);
    row->addStretch();
    addEffects();
    addMirror();
    addSnapshotButton();
    addHotkey();
    addHelp();
    row->addStretch();
}

void ToolStrip::start()
{
    m_hotkey->start();
}

CustomToolButton *ToolStrip::addTool(const QString &picture, const QString &name)
{
    const QString path = ":/studio/" + picture;
    auto *tool = new CustomToolButton(false, this, Top);
    tool->setFixedSize(40, 40);
    tool->setCheckable(true);
    tool->setFocusPolicy(Qt::StrongFocus);
    tool->updateImage(path + ".svg", path + "_checked.svg", path + ".svg", path + ".svg");
    tool->setAccessibleName(name);
    tool->setToolTip(name);
    layout()->addWidget(tool);
    return tool;
}

void ToolStrip::addEffects()
{
    auto *panel = new ToolPanel(tr("Effects"), addTool("effects", tr("Effects")));
    auto *row = new QHBoxLayout;
    panel->column()->addLayout(row);
    auto *group = new QButtonGroup(panel);
    for (const QString &name : {tr("None"), tr("Warm"), tr("Cool"), tr("Mono")}) {
        QPushButton *choice = StudioStyle::newButton("choice", name, panel);
        const auto effect = Preview::Effect(group->buttons().size());
        choice->setCheckable(true);
        group->addButton(choice, effect);
        row->addWidget(choice);
        connect(choice, &QPushButton::clicked, m_preview, [this, effect] {
            m_preview->setEffect(effect);
            QSettings().setValue("effect", int(effect));
        });
    }
    group->button(qBound(0, QSettings().value("effect").toInt(), 3))->click();
}

void ToolStrip::addMirror()
{
    CustomToolButton *tool = addTool("mirror", tr("Mirror"));
    connect(tool, &QToolButton::toggled, this, [this](bool mirrored) {
        m_preview->setMirrored(mirrored);
        QSettings().setValue("mirrored", mirrored);
    });
    tool->setChecked(QSettings().value("mirrored").toBool());
}

void ToolStrip::addSnapshotButton()
{
    auto *button = new CustomizeIconButton(QSize(20, 20), tr("Snapshot"), 8, this, true);
    const QString ground("QWidget#snapshot{background:%1;border-radius:20px;}");
    button->setObjectName("snapshot");
    button->setOveralStyle(ground.arg("#4257FF"), ground.arg("#5B6CFF"), ground.arg("#3546DB"), "");
    const QString picture(":/studio/snapshot.svg");
    button->setIconImage(picture, picture, picture, picture);
    button->setTextStyle("color:white;font-size:14px;", "", "", "");
    button->setFixedSize(148, 40);
    button->setFocusPolicy(Qt::StrongFocus);
    layout()->addWidget(button);
    connect(button, &CustomizeIconButton::clicked, this, &ToolStrip::snapshotWanted);
}

void ToolStrip::addHotkey()
{
    m_hotkey = new HotkeyPanel(addTool("keyboard", tr("Snapshot hotkey")));
    connect(m_hotkey, &HotkeyPanel::pressed, this, &ToolStrip::snapshotWanted);
}

void ToolStrip::addHelp()
{
    auto *panel = new ToolPanel(tr("Help"), addTool("help", tr("Help")));
    const auto addEntry = [this, panel](const QString &text, void (*showDialog)(QWidget *)) {
        QPushButton *button = StudioStyle::newButton("choice", text, panel);
        panel->column()->addWidget(button);
        connect(button, &QPushButton::clicked, panel, [this, showDialog] {
            window()->setFocus(); // which closes the panel
            showDialog(window());
        });
    };
    addEntry(tr("Tips"), Dialogs::showTips);
    addEntry(tr("What is new"), Dialogs::showNews);
    addEntry(tr("Look for updates"), Dialogs::showUpdate);
}
