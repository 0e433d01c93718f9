#pragma once

#include <QtCore/QString>

class MainWindow;

/// Writes a PNG of every page ("page-<name>.png", as tall as the page needs) and of every further shot that a
/// page registers, or marks by the property "picture", into the folder, which is made if need be; the same in the dark look into its folder "dark", and
/// one page in both looks ("light-and-dark.png"). Names of files that could not be written go to standard error;
/// false if there was any.
bool writeShots(MainWindow *window, const QString &folder);
