#include "accessiblebutton.h"

#include <QtGui/QKeySequence>
#include <QtWidgets/QAbstractButton>

namespace {

// A mnemonic is a mark in the text and not read out.
QString withoutMnemonic(const QString &text)
{
    QString plain;
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) == QLatin1Char('&') && i + 1 < text.size())
            ++i;
        plain.append(text.at(i));
    }
    return plain;
}

// As it stands in the text, with the key that goes with it.
QString mnemonicKey(const QString &text)
{
    for (int i = 0; i + 1 < text.size(); ++i) {
        if (text.at(i) != QLatin1Char('&'))
            continue;
        if (text.at(++i) != QLatin1Char('&'))
            return QKeySequence(Qt::ALT).toString(QKeySequence::NativeText) + text.at(i);
    }
    return {};
}

} // namespace

AccessibleButton::AccessibleButton(QAbstractButton *button)
    : QAccessibleWidget(button, QAccessible::Button)
{
}

QString AccessibleButton::text(QAccessible::Text kind) const
{
    if (kind == QAccessible::Name && widget()->accessibleName().isEmpty())
        return withoutMnemonic(button()->text());
    if (kind == QAccessible::Accelerator)
        return mnemonicKey(button()->text());
    return QAccessibleWidget::text(kind);
}

QAccessible::Role AccessibleButton::role() const
{
    return button()->isCheckable() ? QAccessible::CheckBox : QAccessible::Button;
}

QAccessible::State AccessibleButton::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = button()->isCheckable();
    state.checked = button()->isChecked();
    state.pressed = button()->isDown();
    return state;
}

QStringList AccessibleButton::actionNames() const
{
    QStringList names = QAccessibleWidget::actionNames();
    if (!button()->isEnabled())
        return names;
    if (role() == QAccessible::ButtonMenu)
        names.prepend(showMenuAction());
    else
        names.prepend(button()->isCheckable() ? toggleAction() : pressAction());
    return names;
}

// A click may run a dialog. Whoever asked for it waits for an answer, so that it comes from the event loop.
void AccessibleButton::doAction(const QString &actionName)
{
    if (!button()->isEnabled())
        return;
    if (actionName == pressAction())
        button()->animateClick();
    else if (actionName == toggleAction())
        button()->toggle();
    else
        QAccessibleWidget::doAction(actionName);
}

QStringList AccessibleButton::keyBindingsForAction(const QString &actionName) const
{
    return actionName == pressAction() ? QStringList(button()->shortcut().toString()) : QStringList();
}

QAbstractButton *AccessibleButton::button() const
{
    return static_cast<QAbstractButton *>(widget());
}
