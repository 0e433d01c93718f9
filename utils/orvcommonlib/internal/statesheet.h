#pragma once

class QString;
class QWidget;

/// Gives `widget` the style sheet of its present state. One that is in force already is set once more only
/// where it may have another effect by now, as setting it is expensive.
///
/// Qt itself looks at a sheet again whenever a sheet above it, a parent or a style changes. What it does not
/// notice are properties that a sheet selects on or sets, and pictures that have changed.
/// \param widget what is styled
/// \param sheet  its style sheet
void applyStateSheet(QWidget *widget, const QString &sheet);
