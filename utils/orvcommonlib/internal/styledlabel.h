#pragma once

#include <QtCore/QLatin1String>
#include <QtCore/QString>
#include <QtCore/Qt>

class QLabel;
class QWidget;

/// A label with the look of `styleSheet`, as every text of a dialog is one.
QLabel *createStyledLabel(QWidget *parent, const QString &text, Qt::Alignment alignment,
                          QLatin1String styleSheet);
