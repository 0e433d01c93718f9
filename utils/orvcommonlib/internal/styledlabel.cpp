#include "styledlabel.h"

#include <QtWidgets/QLabel>

QLabel *createStyledLabel(QWidget *parent, const QString &text, Qt::Alignment alignment,
                          QLatin1String styleSheet)
{
    auto *label = new QLabel(parent);
    label->setAlignment(alignment);
    label->setStyleSheet(styleSheet);
    label->setText(text);
    return label;
}
