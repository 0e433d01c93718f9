#pragma once

#include "customwraptexttooltip.h"

// The class has no meta-object of its own, and Designer knows a widget by nothing else: on a form it would be a
// QDialog. The meta-object made here carries its name: moc sees the class under that, the compiler under its own.
#ifdef Q_MOC_RUN
#    define ToolTipInForm customWrapTextToolTip
#endif

using ToolTipOfLibrary = customWrapTextToolTip;

/// The tooltip as it stands on a form in Designer: a child that stays where it is, not a window that closes itself.
class ToolTipInForm : public ToolTipOfLibrary
{
    Q_OBJECT

public:
    explicit ToolTipInForm(QWidget *parent);

protected:
    void showEvent(QShowEvent *event) override;

private:
    Q_DISABLE_COPY(ToolTipInForm)
};
