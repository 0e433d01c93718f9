#pragma once

#include "accessiblebutton.h"

class CustomPictureBtn;

/// A push button whose text may be painted by itself.
class AccessiblePictureButton : public AccessibleButton
{
public:
    explicit AccessiblePictureButton(CustomPictureBtn *button);

    QString text(QAccessible::Text kind) const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void doAction(const QString &actionName) override;

private:
    CustomPictureBtn *pictureButton() const;
};
