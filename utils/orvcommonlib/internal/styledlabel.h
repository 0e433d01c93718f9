#pragma once

#include <QtCore/QString>
#include <QtCore/Qt>

class QLabel;
class QWidget;

/// A label with the look of `sheet`, as every text of a dialog is one; see LookSheets.
QLabel *createStyledLabel(QWidget *parent, const QString &text, Qt::Alignment alignment, const char *sheet);
