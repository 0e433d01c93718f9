#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

class QWidget;

/// The library's own style sheets, in which colours are written as "@name", and who wears them.
///
/// A sheet is a constant of the program, known by its address. "%1" to "%9" stand for arguments. What a widget wears is
/// remembered until it is destroyed; a client's sheet that it wears instead is never touched.
///
/// To be used in the GUI thread only.
namespace LookSheets {

/// The sheet in the look in force.
QString text(const char *sheet);

/// Gives `widget` the sheet, now and in every look to come. One that is in force already is set once more only where it
/// may have another effect by now, see applyStateSheet().
void apply(QWidget *widget, const char *sheet, const QStringList &arguments = {});

/// Leaves what `widget` wears to the client.
void forget(QWidget *widget);

/// Gives every widget what it wears in the look in force, and has all widgets painted anew: some paint with colours by
/// themselves.
void follow();

} // namespace LookSheets
