#pragma once

class QWidget;

/// Lets the style sheets that apply to `widget` paint its background and border, which Qt does by itself only
/// for its own widget classes. To be called from the widget's paintEvent(), before anything else is painted.
void paintStyleSheet(QWidget *widget);
