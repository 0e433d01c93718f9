#include "tooltipinform.h"

ToolTipInForm::ToolTipInForm(QWidget *parent)
    : ToolTipOfLibrary(parent)
{
    removeEventFilter(this); // closes it with its window's activation
    setAttribute(Qt::WA_DeleteOnClose, false);
    setWindowFlags(Qt::Widget);
}

// A dialog that is shown goes to the middle of its parent.
void ToolTipInForm::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
}

#define customWrapTextToolTip ToolTipInForm
#include "moc_tooltipinform.cpp"
