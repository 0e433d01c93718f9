#include "accessiblepicturebutton.h"

#include "custompicturebtn.h"

#include <QtGui/QKeySequence>

AccessiblePictureButton::AccessiblePictureButton(CustomPictureBtn *button)
    : AccessibleButton(button)
{
}

QString AccessiblePictureButton::text(QAccessible::Text kind) const
{
    const bool isNamed = !widget()->accessibleName().isEmpty();
    if (kind == QAccessible::Name && !isNamed && !pictureButton()->customText().isEmpty())
        return pictureButton()->customText();
    if (kind == QAccessible::Accelerator && pictureButton()->isDefault())
        return QKeySequence(Qt::Key_Enter).toString(QKeySequence::NativeText);
    return AccessibleButton::text(kind);
}

QAccessible::Role AccessiblePictureButton::role() const
{
    if (pictureButton()->menu())
        return QAccessible::ButtonMenu;
    const bool isOneOfSeveral = button()->isCheckable() && button()->autoExclusive();
    return isOneOfSeveral ? QAccessible::RadioButton : AccessibleButton::role();
}

QAccessible::State AccessiblePictureButton::state() const
{
    QAccessible::State state = AccessibleButton::state();
    state.defaultButton = pictureButton()->isDefault();
    state.hasPopup = pictureButton()->menu() != nullptr;
    return state;
}

void AccessiblePictureButton::doAction(const QString &actionName)
{
    const bool opensMenu = actionName == showMenuAction() || actionName == pressAction();
    if (!opensMenu || !pictureButton()->menu())
        AccessibleButton::doAction(actionName);
    else if (button()->isEnabled())
        pictureButton()->showMenu();
}

CustomPictureBtn *AccessiblePictureButton::pictureButton() const
{
    return static_cast<CustomPictureBtn *>(widget());
}
