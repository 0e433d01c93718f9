#pragma once

class QPushButton;
class QString;
class QWidget;

/// The studio's own style sheet, which changes with the library's look.
namespace StudioStyle {

/// Styles the application, now and after each switch of the look, and keeps the look in the settings.
void followLook();

/// \param kind what the style sheet knows it as: "choice", "plain", "primary", "quiet" or "tab"
QPushButton *newButton(const char *kind, const QString &text, QWidget *parent);

} // namespace StudioStyle
