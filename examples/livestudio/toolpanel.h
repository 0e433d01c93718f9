#pragma once

#include <QtWidgets>

class CustomToolButton;

/// A panel above a tool button, which opens it by mouse or key. It closes with Escape, with another click on the button, and
/// when the focus goes elsewhere. What is added to its layout() stands below the button's name.
class ToolPanel : public QFrame
{
    Q_OBJECT

public:
    explicit ToolPanel(CustomToolButton *button);
};
