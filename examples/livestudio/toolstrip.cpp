#include "toolstrip.h"
#include "dialogs.h"
#include "hotkeypanel.h"
#include "preview.h"

#include <customizeiconbutton.h>
#include <customtoolbutton.h>

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
    auto *hotkey = new HotkeyPanel(addTool("keyboard", tr("Snapshot hotkey")));
    connect(hotkey, &HotkeyPanel::pressed, this, &ToolStrip::snapshotWanted);
    addHelp();
    row->addStretch();
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
    auto *panel = new ToolPanel(addTool("effects", tr("Effects")));
    int effect = Preview::NoEffect;
    for (const QString &name : {tr("None"), tr("Warm"), tr("Cool"), tr("Mono")}) {
        QPushButton *choice = panel->addButton(name);
        choice->setCheckable(true);
        choice->setAutoExclusive(true);
        choice->setChecked(m_preview->property("effect") == effect);
        connect(choice, &QPushButton::clicked, m_preview,
                [this, effect] { m_preview->set("effect", effect); });
        ++effect;
    }
}

void ToolStrip::addMirror()
{
    CustomToolButton *tool = addTool("mirror", tr("Mirror"));
    tool->setChecked(m_preview->property("mirrored").toBool());
    connect(tool, &QToolButton::toggled, m_preview,
            [this](bool mirrored) { m_preview->set("mirrored", mirrored); });
}

void ToolStrip::addSnapshotButton()
{
    auto *button = new CustomizeIconButton(QSize(20, 20), tr("Snapshot"), 8, this, true);
    const QString ground("QWidget#snapshot{background:%1;border-radius:20px;}");
    const QString picture(":/studio/snapshot.svg");
    button->setObjectName("snapshot");
    button->setOveralStyle(ground.arg("#4257FF"), ground.arg("#5B6CFF"), ground.arg("#3546DB"), "");
    button->setIconImage(picture, picture, picture, picture);
    button->setTextStyle("color:white;font-size:14px;", "", "", "");
    button->setFixedSize(148, 40);
    button->setFocusPolicy(Qt::StrongFocus);
    layout()->addWidget(button);
    connect(button, &CustomizeIconButton::clicked, this, &ToolStrip::snapshotWanted);
}

void ToolStrip::addHelp()
{
    auto *panel = new ToolPanel(addTool("help", tr("Help")));
    const auto addEntry = [=](const QString &text, void (*showDialog)(QWidget *)) {
        connect(panel->addButton(text), &QPushButton::clicked, this, [=] {
            window()->setFocus(); // which closes the panel
            showDialog(window());
        });
    };
    addEntry(tr("Tips"), Dialogs::showTips);
    addEntry(tr("What is new"), Dialogs::showNews);
    addEntry(tr("Look for updates"), Dialogs::showUpdate);
}
