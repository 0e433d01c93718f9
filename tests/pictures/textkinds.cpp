#include "customkeysequenceedit.h"
#include "customplaintextedit.h"
#include "customwraptexttooltip.h"
#include "kinds.h"

namespace Pictures {

namespace {

QWidget *textEdit()
{
    auto *edit = new CustomPlainTextEdit;
    edit->setPlainText(QStringLiteral("Gate North\nYard"));
    edit->resize(160, 70);
    return edit;
}

QVector<State> statesOfTextEdit()
{
    using Edit = CustomPlainTextEdit;
    QVector<State> states{asMade(), hovered(), disabled(), focused(), rightToLeft()};
    states << state<Edit>("margins", [](Edit *edit) { edit->adjustViewPortMargin(20, 10, 20, 10); })
           << state<Edit>("selected", [](Edit *edit) { edit->selectAll(); });
    return states + texts<Edit>([](Edit *edit, const QString &text) { edit->setPlainText(text); });
}

QWidget *keyEdit()
{
    auto *edit = new CustomKeySequenceEdit(nullptr, QStringLiteral("Press a key"));
    edit->setKeySequence(QKeySequence(QStringLiteral("Ctrl+F5")));
    edit->setEditSize(QSize(140, 28));
    edit->resize(140, 28);
    return edit;
}

QVector<State> statesOfKeyEdit()
{
    using Edit = CustomKeySequenceEdit;
    QVector<State> states{asMade(), hovered(), disabled(), focused(), rightToLeft()};
    QVector<State> placeholders = texts<Edit>([](Edit *edit, const QString &text) {
        edit->clear();
        edit->setPlaceholderText(text);
    });
    for (State &state : placeholders)
        state.name += QLatin1String(" placeholder");
    return states + placeholders;
}

QWidget *toolTip()
{
    auto *tip = new customWrapTextToolTip(customWrapTextToolTip::DirectionLeft, 160, nullptr, 8);
    tip->setText(QStringLiteral("Records as long as the button is held"));
    return tip;
}

QVector<State> statesOfToolTip()
{
    using Tip = customWrapTextToolTip;
    QVector<State> states{asMade(), hovered(), rightToLeft()};
    states << State{QStringLiteral("arrow below"), [](QWidget *) {},
                    [] {
                        auto *tip = new Tip(Tip::DirectionBottom, 160, nullptr, 8);
                        tip->setText(QStringLiteral("Records as long as the button is held"));
                        return tip;
                    }};
    return states + texts<Tip>([](Tip *tip, const QString &text) { tip->setText(text); });
}

} // namespace

QVector<Kind> textKinds()
{
    return {
        {"customplaintextedit", &textEdit, statesOfTextEdit(), false, {}},
        {"customkeysequenceedit", &keyEdit, statesOfKeyEdit(), false, {}},
        {"customwraptexttooltip", &toolTip, statesOfToolTip(), true, {}, true},
    };
}

} // namespace Pictures
