#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVector>
#include <QtGui/QImage>
#include <QtWidgets/QWidget>

#include <functional>
#include <memory>

/// A widget of the library as the tests of looks make it, with all its parts filled.
struct LookKind
{
    const char *name;
    std::unique_ptr<QWidget> (*make)();
    bool changes; ///< whether a look makes it another picture
};

/// Every class that wears colours of the library, in each of its forms.
const QVector<LookKind> &lookKinds();

/// The style sheets of a widget and of all that stands in it, in the order in which they were made.
QStringList sheetsOf(const QWidget &widget);

/// What a widget paints, over nothing.
QImage pictureOf(QWidget *widget);
