#include "styledlabel.h"

#include "looksheets.h"

#include <QtWidgets/QLabel>

QLabel *createStyledLabel(QWidget *parent, const QString &text, Qt::Alignment alignment, const char *sheet)
{
    auto *label = new QLabel(parent);
    label->setAlignment(alignment);
    LookSheets::apply(label, sheet);
    label->setText(text);
    return label;
}
